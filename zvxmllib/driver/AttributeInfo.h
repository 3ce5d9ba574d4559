// CAttributeInfo, the base of the entries of an attribute table.
#pragma once

#include "zvxmllib/driver/BoundProperty.h"
#include "zvxmllib/foundation/Enumerations.h"
#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/platform/Api.h"

#include <string>

namespace ZvXmlLib16Data {

using ZvXmlLib16::CSerializationContext;
using ZvXmlLib16::CXmlAttribute;
using ZvXmlLib16::CXmlElement;
using ZvXmlLib16::CXmlGeneratedClass;
using ZvXmlLib16::CXmlObjectBase;
using ZvXmlLib16::CXmlWriter;
using ZvXmlLib16::ZvVariant;

// One attribute of a generated class: writes it from the object's property, and sets the property from a
// parsed attribute. Immutable, shared by all instances and threads. The order of the virtual operations is a
// contract.
class ZV_API CAttributeInfo {
public:
    CAttributeInfo(CAttributeInfo const&) = delete;
    CAttributeInfo& operator=(CAttributeInfo const&) = delete;
    virtual ~CAttributeInfo();

    // Writes the attribute if the property holds something.
    virtual void AttributeToXml(CSerializationContext const& ctx, CXmlGeneratedClass const* object,
                                CXmlWriter* writer) const = 0;
    // Returns true if this entry took the attribute.
    virtual bool AttributeFromXml(CSerializationContext const& ctx, CXmlGeneratedClass* object,
                                  CXmlAttribute* attribute) = 0;
    // Called once after all attributes of an element have been offered; `found` says whether this entry took
    // one.
    virtual void Validate(CSerializationContext const& ctx, bool found) const = 0;

protected:
    // A null or empty default value means none. `type` is that of the property, for a member.
    CAttributeInfo(char const* name, char const* ns, CProperty const& property, bool optional,
                   char const* defaultValue, ZvXmlLib16::ItemType type = ZvXmlLib16::ItemType_invalid);

    // Whether name and namespace are those of the entry: by the rules of the context, or exactly.
    bool IsThisAttribute(CSerializationContext const& ctx, CXmlAttribute* attribute);
    bool HasExactName(CXmlAttribute const& attribute) const noexcept;

    // They wrap exceptions of the property's class in CZvValidationException.
    void InvokePropertyGet(CXmlGeneratedClass* object, ZvVariant& value) const;
    void InvokePropertySet(CXmlGeneratedClass* object, ZvVariant& value,
                           CXmlAttribute const& attribute) const;
    void ReadProperty(CXmlGeneratedClass const* object, ZvVariant& value) const;

    // Whether to leave out an optional attribute whose text is its default.
    bool IsSuppressedDefault(CSerializationContext const& ctx, std::string const& text) const;
    void ValidatePresence(bool found) const;

    // Access to protected operations of bound objects.
    static std::string GetTargetNamespace(CXmlObjectBase const* object);
    static void ToXml_Int(CXmlObjectBase const* object, CXmlWriter* writer, bool isRoot, char const* ns,
                          CSerializationContext const& ctx);
    static bool IsNamespaceValid(std::string const& ns, std::string const& allowed, std::string const& target,
                                 bool isStrict = false);
    static void TestNamespace(std::string const& ns, std::string const& allowed, std::string const& target);

    std::string const m_name;      // the local name
    std::string const m_namespace; // empty for none
    detail::BoundProperty const m_property; // its place
    bool const m_optional;            // it may be absent
    std::string const m_defaultValue; // empty for none
};

} // namespace ZvXmlLib16Data
