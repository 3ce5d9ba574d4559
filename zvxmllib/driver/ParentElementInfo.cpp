#include "zvxmllib/driver/ParentElementInfo.h"

#include "zvxmllib/foundation/TextOrEmpty.h"

namespace ZvXmlLib16Data {

CParentElementInfo::CParentElementInfo(ZvXmlLib16::XmlElementGroupType elementGroupType,
                                       ZvXmlLib16::XmlElementType elementType, char const* elementName,
                                       char const* elementNamespace, bool fromXmlFailIfAttributeUnknown,
                                       bool hasBaseClasses, CProperty const& primitiveValueProperty,
                                       ZvXmlLib16::ItemType primitiveDataType,
                                       char const* primitiveFormatOverride,
                                       bool outputPrimitiveClassAsTextProperty)
    : m_elementGroupType(elementGroupType), m_elementType(elementType),
      m_elementName(ZvXmlLib16::detail::TextOrEmpty(elementName)),
      m_elementNamespace(ZvXmlLib16::detail::TextOrEmpty(elementNamespace)),
      m_fromXmlFailIfAttributeUnknown(fromXmlFailIfAttributeUnknown), m_hasBaseClasses(hasBaseClasses),
      m_primitiveValueProperty(primitiveValueProperty, primitiveDataType, false, elementName),
      m_primitiveDataType(primitiveDataType),
      m_primitiveFormatOverride(ZvXmlLib16::detail::TextOrEmpty(primitiveFormatOverride)),
      m_outputPrimitiveClassAsTextProperty(outputPrimitiveClassAsTextProperty) {}

CParentElementInfo::~CParentElementInfo() = default;

bool CParentElementInfo::HasSimpleContent() const noexcept {
    return (m_primitiveValueProperty.IsMember() || m_primitiveValueProperty.GetIndex() != -1) &&
           m_primitiveDataType != ZvXmlLib16::ItemType_invalid;
}

} // namespace ZvXmlLib16Data
