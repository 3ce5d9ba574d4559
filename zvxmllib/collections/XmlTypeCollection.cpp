// CXmlTypeCollection, the base of all collections of values.
#include "zvxmllib/collections/XmlTypeCollection.h"

#include "zvxmllib/binding/Failures.h"
#include "zvxmllib/binding/ReadAt.h"
#include "zvxmllib/binding/StrictElement.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/XmlElement.h"
#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/foundation/RecentTexts.h"
#include "zvxmllib/values/facets/CheckPrimitive.h"
#include "zvxmllib/values/facets/FacetCheck.h"
#include "zvxmllib/values/text/RuledText.h"
#include "zvxmllib/values/variant/StrictText.h"

namespace ZvXmlLib16 {

CXmlTypeCollection::CXmlTypeCollection(ItemType type, char const* elementName, char const* namespaceURI,
                                       int minOccurs, int maxOccurs, char const* pattern,
                                       std::int32_t minLength, std::int32_t maxLength,
                                       char const* minInclusive, char const* maxInclusive,
                                       char const* minExclusive, char const* maxExclusive,
                                       std::int32_t length, std::int32_t totalDigits,
                                       std::int32_t fractionDigits, CWhitespaceUtils::WhitespaceRule rule,
                                       char const* formatOverride)
    : CXmlCollectionBase(elementName, namespaceURI, minOccurs, maxOccurs),
      m_restrictions(type, pattern, minLength, maxLength, minInclusive, maxInclusive, minExclusive,
                     maxExclusive, length, totalDigits, fractionDigits),
      m_formatOverride(detail::ShareRecent(formatOverride == nullptr ? "" : formatOverride)),
      m_itemType(type), m_whitespaceRule(rule), m_needsCheck(detail::NeedsCheck(type, m_restrictions)) {}

CXmlTypeCollection::~CXmlTypeCollection() = default;

CXmlElement* CXmlTypeCollection::FromXml_Int(CXmlElement*, CXmlElement* current,
                                             CSerializationContext const& ctx, bool optionalChoice) {
    TakeText const take = [](CXmlTypeCollection& collection, std::string_view text) {
        collection.AddFromString(std::string(text));
    };
    return ReadTexts(current, ctx, take, optionalChoice);
}

CXmlElement* CXmlTypeCollection::ReadTexts(CXmlElement* current, CSerializationContext const& ctx,
                                           TakeText take, bool isInGroup) {
    if (ctx.GetStrict())
        return ReadEach(current, ctx, isInGroup, [&](CXmlElement const& element, std::string& room) {
            CheckValueElement(ctx, element, m_itemType, false);
            take(*this, element.GetNodeText().Read(room));
        });
    std::string room;
    while (current != nullptr &&
           DoesElementNameMatch(ctx, current, GetElementName().c_str(), m_namespace.c_str())) {
        ReadAt(ctx, *current, *current->GetParentElm(),
               [&] { take(*this, current->GetNodeText().Read(room)); });
        current = current->GetNextSiblingElement();
    }
    return current;
}

CXmlElement* CXmlTypeCollection::ReadStrictly(CXmlElement* current, CSerializationContext const& ctx,
                                              TakeElement take, bool isInGroup) {
    auto const rule = detail::StrictRule(m_whitespaceRule, m_itemType);
    return ReadEach(current, ctx, isInGroup, [&](CXmlElement const& element, std::string& room) {
        CheckValueElement(ctx, element, m_itemType, false);
        detail::RuledText const ruled(rule, element.GetNodeText().Read(room));
        take(*this, ruled.Get(), element);
    });
}

// A group may repeat, and items beyond the maximum belong to the next one.
template <class Take>
CXmlElement* CXmlTypeCollection::ReadEach(CXmlElement* current, CSerializationContext const& ctx,
                                          bool isInGroup, Take take) {
    bool const hasMost = isInGroup && GetMaxOccurs() != -1 && !ctx.GetIgnoreInvalidCollectionCounts();
    std::string room;
    while (current != nullptr && (!hasMost || GetCount() < GetMaxOccurs()) &&
           DoesElementNameMatch(ctx, current, GetElementName().c_str(), m_namespace.c_str())) {
        ReadAt(ctx, *current, *current->GetParentElm(), [&] { take(*current, room); });
        current = current->GetNextSiblingElement();
    }
    return current;
}

void CXmlTypeCollection::CheckRead(ZvVariant const& value, std::string_view text,
                                   CXmlElement const& element) const {
    if (!m_restrictions.HasFacets())
        return;
    try {
        FacetCheck const check{GetElementName().c_str(), m_restrictions, detail::FacetRules::kXmlSchema};
        check.Check(value, m_itemType);
        check.CheckText(text);
    } catch (CZvException const& failure) {
        FailFacetOfRead(failure, element.GetXPath());
    }
}

std::string const& CXmlTypeCollection::CheckWritten(ZvVariant const& value, std::string& buffer) const {
    std::string const& text =
        detail::ToStrictText(GetElementName().c_str(), value, m_itemType, m_formatOverride.c_str(), buffer);
    if (m_restrictions.HasFacets()) {
        FacetCheck const check{GetElementName().c_str(), m_restrictions, detail::FacetRules::kXmlSchema};
        check.Check(value, m_itemType);
        check.CheckText(text);
    }
    return text;
}

} // namespace ZvXmlLib16
