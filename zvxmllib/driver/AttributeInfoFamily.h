// The entries of an attribute table: primitive, enumeration and wildcard attributes.
#pragma once

#include "zvxmllib/driver/AttributeInfo.h"
#include "zvxmllib/foundation/Enumerations.h"
#include "zvxmllib/values/facets/PrimitiveRestrictions.h"
#include "zvxmllib/values/text/Whitespace.h"

namespace ZvXmlLib16Data {

namespace detail {
struct StrictValue;
}

// A typed attribute. Its value is tested against the facets on writing. Matches by exact name and namespace.
class ZV_API CAttributeInfoPrimitive : public CAttributeInfo {
public:
    // `formatOverride` is a printf format for r4 and r8, the number of fraction digits for decimal, null for
    // none. The facets are copied.
    CAttributeInfoPrimitive(char const* name, char const* ns, CProperty const& property, bool optional,
                            ZvXmlLib16::ItemType type, char const* formatOverride,
                            ZvXmlLib16::CWhitespaceUtils::WhitespaceRule rule,
                            ZvXmlLib16::CPrimitiveRestrictions const& restrictions, char const* defaultValue);
    ~CAttributeInfoPrimitive() override;

    void AttributeToXml(CSerializationContext const& ctx, CXmlGeneratedClass const* object,
                        CXmlWriter* writer) const override;
    bool AttributeFromXml(CSerializationContext const& ctx, CXmlGeneratedClass* object,
                          CXmlAttribute* attribute) override;
    void Validate(CSerializationContext const& ctx, bool found) const override;

    // Throws CZvInvalidValueException for a value that violates a facet.
    void CheckRestriction(ZvVariant const& value) const;

private:
    detail::StrictValue AsStrictValue() const noexcept;
    std::string const& ToText(CSerializationContext const& ctx, ZvVariant const& value,
                              std::string& buffer) const;

    ZvXmlLib16::CPrimitiveRestrictions const m_restrictions;
    ZvXmlLib16::ItemType const m_type;
    std::string const m_formatOverride;
    ZvXmlLib16::CWhitespaceUtils::WhitespaceRule const m_rule;
    bool const m_needsCheck; // values are tested on writing
};

// An attribute of a generated enumeration: the property holds the enumerator as i4.
class ZV_API CAttributeInfoEnum : public CAttributeInfo {
public:
    // The two functions are generated: the text of an enumerator, and the enumerator of a text.
    CAttributeInfoEnum(char const* name, char const* ns, CProperty const& property, bool optional,
                       char const* (*enumToString)(int), int (*stringToEnum)(char const*),
                       char const* defaultValue);
    ~CAttributeInfoEnum() override;

    void AttributeToXml(CSerializationContext const& ctx, CXmlGeneratedClass const* object,
                        CXmlWriter* writer) const override;
    bool AttributeFromXml(CSerializationContext const& ctx, CXmlGeneratedClass* object,
                          CXmlAttribute* attribute) override;
    void Validate(CSerializationContext const& ctx, bool found) const override;

private:
    char const* (*const m_enumToString)(int);
    int (*const m_stringToEnum)(char const*);
};

// An attribute wildcard: takes every attribute whose namespace is allowed into a CAttributeCol.
class ZV_API CAttributeInfoAny : public CAttributeInfo {
public:
    // `allowedNamespaces` is the list of an XML Schema wildcard, as CAttributeCol takes it.
    CAttributeInfoAny(char const* name, char const* ns, CProperty const& property, bool optional,
                      char const* allowedNamespaces, char const* targetNamespace, char const* defaultValue);
    ~CAttributeInfoAny() override;

    void AttributeToXml(CSerializationContext const& ctx, CXmlGeneratedClass const* object,
                        CXmlWriter* writer) const override;
    bool AttributeFromXml(CSerializationContext const& ctx, CXmlGeneratedClass* object,
                          CXmlAttribute* attribute) override;
    // A wildcard requires nothing.
    void Validate(CSerializationContext const& ctx, bool found) const override;

    // In a strict context: the prefixes that the values need, as CAttributeCol keeps and writes them.
    void KeepDeclarations(CXmlGeneratedClass const* object, CXmlElement const& element) const;
    void WriteDeclarations(CXmlGeneratedClass const* object, CXmlWriter& writer) const;

private:
    std::string const m_allowedNamespaces;
    std::string const m_targetNamespace;
};

} // namespace ZvXmlLib16Data
