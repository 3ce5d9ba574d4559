// CParentElementInfo, the description of a generated class itself.
#pragma once

#include "zvxmllib/driver/BoundProperty.h"
#include "zvxmllib/foundation/Enumerations.h"
#include "zvxmllib/platform/Api.h"

#include <atomic>
#include <cstdint>
#include <string>
#include <typeinfo>

namespace ZvXmlLib16 {
class CXmlGeneratedClass;
}

namespace ZvXmlLib16Data {

// One for each generated class, shared by its instances; immutable.
class ZV_API CParentElementInfo {
public:
    // A null format override counts as empty. `primitiveValueProperty` is -1 and `primitiveDataType`
    // ItemType_invalid for a class without simple content. A member that holds the value is of the data type,
    // also where reading passes text: white space is then collapsed ahead of the conversion.
    CParentElementInfo(ZvXmlLib16::XmlElementGroupType elementGroupType,
                       ZvXmlLib16::XmlElementType elementType, char const* elementName,
                       char const* elementNamespace, bool fromXmlFailIfAttributeUnknown, bool hasBaseClasses,
                       CProperty const& primitiveValueProperty, ZvXmlLib16::ItemType primitiveDataType,
                       char const* primitiveFormatOverride, bool outputPrimitiveClassAsTextProperty);
    CParentElementInfo(CParentElementInfo const&) = delete;
    CParentElementInfo& operator=(CParentElementInfo const&) = delete;
    virtual ~CParentElementInfo();

    // The content model.
    ZvXmlLib16::XmlElementGroupType GetElementGroupType() const noexcept { return m_elementGroupType; }
    // A real element with a tag, or a group.
    ZvXmlLib16::XmlElementType GetElementType() const noexcept { return m_elementType; }
    // The name of the type, which xsi:type names.
    std::string const& GetElementName() const noexcept { return m_elementName; }
    std::string const& GetElementNamespace() const noexcept { return m_elementNamespace; }
    // Whether an attribute that fits no entry is an error.
    bool GetFromXmlFailIfAttributeUnknown() const noexcept { return m_fromXmlFailIfAttributeUnknown; }
    // Whether the type takes part in a derivation, so that xsi:type may be needed.
    bool GetHasBaseClasses() const noexcept { return m_hasBaseClasses; }
    // The number of the property of simple content; -1 for none, and for a member.
    std::int32_t GetPrimitiveValuePropertyIndex() const noexcept {
        return m_primitiveValueProperty.GetIndex();
    }
    // Whether the class has simple content.
    bool HasSimpleContent() const noexcept;
    ZvXmlLib16::ItemType GetPrimitiveDataType() const noexcept { return m_primitiveDataType; }
    std::string const& GetPrimitiveFormatOverride() const noexcept { return m_primitiveFormatOverride; }
    // Whether reading passes the text of simple content to the property unparsed.
    bool GetOutputPrimitiveClassAsTextProperty() const noexcept {
        return m_outputPrimitiveClassAsTextProperty;
    }

private:
    friend class ZvXmlLib16::CXmlGeneratedClass;

    ZvXmlLib16::XmlElementGroupType m_elementGroupType;
    ZvXmlLib16::XmlElementType m_elementType;
    std::string m_elementName;
    std::string m_elementNamespace;
    bool m_fromXmlFailIfAttributeUnknown;
    bool m_hasBaseClasses;
    detail::BoundProperty m_primitiveValueProperty;
    ZvXmlLib16::ItemType m_primitiveDataType;
    std::string m_primitiveFormatOverride;
    bool m_outputPrimitiveClassAsTextProperty;
    // The last class found to have no INillable. Saves the driver a checked cast for each object.
    mutable std::atomic<std::type_info const*> m_classWithoutNil{nullptr};
};

} // namespace ZvXmlLib16Data
