#include "zvxmllib/driver/ParentElementInfo.h"

#include "zvxmllib/foundation/TextOrEmpty.h"

namespace ZvXmlLib16Data {

CParentElementInfo::CParentElementInfo(ZvXmlLib16::XmlElementGroupType elementGroupType,
                                       ZvXmlLib16::XmlElementType elementType, char const* elementName,
                                       char const* elementNamespace, bool fromXmlFailIfAttributeUnknown,
                                       bool hasBaseClasses, std::int32_t primitiveValuePropertyIndex,
                                       ZvXmlLib16::ItemType primitiveDataType,
                                       char const* primitiveFormatOverride,
                                       bool outputPrimitiveClassAsTextProperty)
    : m_elementGroupType(elementGroupType), m_elementType(elementType),
      m_elementName(ZvXmlLib16::detail::TextOrEmpty(elementName)),
      m_elementNamespace(ZvXmlLib16::detail::TextOrEmpty(elementNamespace)),
      m_fromXmlFailIfAttributeUnknown(fromXmlFailIfAttributeUnknown), m_hasBaseClasses(hasBaseClasses),
      m_primitiveValuePropertyIndex(primitiveValuePropertyIndex), m_primitiveDataType(primitiveDataType),
      m_primitiveFormatOverride(ZvXmlLib16::detail::TextOrEmpty(primitiveFormatOverride)),
      m_outputPrimitiveClassAsTextProperty(outputPrimitiveClassAsTextProperty) {}

CParentElementInfo::~CParentElementInfo() = default;

} // namespace ZvXmlLib16Data
