#include "zvxmllib/driver/ParentElementInfo.h"

namespace ZvXmlLib16Data {

namespace {
char const* TextOrEmpty(char const* text) {
    return text == nullptr ? "" : text;
}
} // namespace

CParentElementInfo::CParentElementInfo(ZvXmlLib16::XmlElementGroupType elementGroupType,
                                       ZvXmlLib16::XmlElementType elementType, char const* elementName,
                                       char const* elementNamespace, bool fromXmlFailIfAttributeUnknown,
                                       bool hasBaseClasses, std::int32_t primitiveValuePropertyIndex,
                                       ZvXmlLib16::ItemType primitiveDataType,
                                       char const* primitiveFormatOverride,
                                       bool outputPrimitiveClassAsTextProperty)
    : m_elementGroupType(elementGroupType), m_elementType(elementType),
      m_elementName(TextOrEmpty(elementName)), m_elementNamespace(TextOrEmpty(elementNamespace)),
      m_fromXmlFailIfAttributeUnknown(fromXmlFailIfAttributeUnknown), m_hasBaseClasses(hasBaseClasses),
      m_primitiveValuePropertyIndex(primitiveValuePropertyIndex), m_primitiveDataType(primitiveDataType),
      m_primitiveFormatOverride(TextOrEmpty(primitiveFormatOverride)),
      m_outputPrimitiveClassAsTextProperty(outputPrimitiveClassAsTextProperty) {}

CParentElementInfo::~CParentElementInfo() = default;

} // namespace ZvXmlLib16Data
