// CXmlTypeCollection, the base of all collections of values: the type, its facets, reading.
#pragma once

#include "zvxmllib/binding/XmlCollectionBase.h"
#include "zvxmllib/collections/SharedRestrictions.h"
#include "zvxmllib/foundation/Enumerations.h"
#include "zvxmllib/values/text/Whitespace.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace ZvXmlLib16 {

// A repeating element of a simple type. Values are checked against the facets when they are added, so a
// collection never holds one that its type forbids. Belongs to one thread at a time. The order of the virtual
// operations is a contract.
class ZV_API CXmlTypeCollection : public CXmlCollectionBase {
public:
    // Whether values are checked by the rules of XML Schema, see CPrimitiveRestrictions. False; to be set
    // before the first value is added. A strict context reads by these rules in any case.
    void SetStrict(bool strict) { m_restrictions.SetStrict(strict); }

protected:
    // Bounds as in CXmlCollectionBase, facets as in CPrimitiveRestrictions. `rule` applies to values read
    // from text, `formatOverride` to r4, r8 and decimal written as text; null for none.
    CXmlTypeCollection(ItemType type, char const* elementName, char const* namespaceURI, int minOccurs,
                       int maxOccurs, char const* pattern, std::int32_t minLength, std::int32_t maxLength,
                       char const* minInclusive, char const* maxInclusive, char const* minExclusive,
                       char const* maxExclusive, std::int32_t length, std::int32_t totalDigits,
                       std::int32_t fractionDigits, CWhitespaceUtils::WhitespaceRule rule,
                       char const* formatOverride);
    ~CXmlTypeCollection() override;

    // Adds the texts of adjacent elements of the collection's name, starting at `current`. In a strict
    // context `optionalChoice` is true for a collection in a group, which ends at its maximum number of
    // items.
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* current, CSerializationContext const& ctx,
                             bool optionalChoice) override;
    // Throws what converting and adding the value throw.
    virtual void AddFromString(std::string value) = 0;

    // FromXml_Int with another way to take a text, and with the element that it stands in.
    using TakeText = void (*)(CXmlTypeCollection& collection, std::string_view text);
    CXmlElement* ReadTexts(CXmlElement* current, CSerializationContext const& ctx, TakeText take,
                           bool isInGroup = false);
    using TakeElement = void (*)(CXmlTypeCollection& collection, std::string_view text,
                                 CXmlElement const& element);
    CXmlElement* ReadStrictly(CXmlElement* current, CSerializationContext const& ctx, TakeElement take,
                              bool isInGroup);
    // In a strict context, for a value and its text. The first throws CZvValidationException with the path.
    void CheckRead(ZvVariant const& value, std::string_view text, CXmlElement const& element) const;
    std::string const& CheckWritten(ZvVariant const& value, std::string& buffer) const;

    detail::SharedRestrictions m_restrictions;               // the facets
    detail::SharedText const m_formatOverride;               // of r4, r8, decimal; empty for none
    ItemType const m_itemType;                               // the type of the values
    CWhitespaceUtils::WhitespaceRule const m_whitespaceRule; // for values that are read
    bool const m_needsCheck;                                 // false if the facets let every value pass

private:
    template <class Take>
    CXmlElement* ReadEach(CXmlElement* current, CSerializationContext const& ctx, bool isInGroup, Take take);
};

} // namespace ZvXmlLib16
