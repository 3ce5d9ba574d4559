// CXmlTypeCollection, what all collections of values share.
#include "zvxmllib/collections/XmlTypeCollection.h"

#include "zvxmllib/document/XmlElement.h"
#include "zvxmllib/values/facets/CheckPrimitive.h"

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
      m_restrictions(pattern, minLength, maxLength, minInclusive, maxInclusive, minExclusive, maxExclusive,
                     length, totalDigits, fractionDigits),
      m_itemType(type), m_formatOverride(formatOverride == nullptr ? "" : formatOverride),
      m_whitespaceRule(rule), m_needsCheck(NeedsCheck(type, m_restrictions)) {}

CXmlTypeCollection::~CXmlTypeCollection() = default;

CXmlElement* CXmlTypeCollection::FromXml_Int(CXmlElement*, CXmlElement* current,
                                             CSerializationContext const& ctx, bool) {
    return ReadTexts(current, ctx, [](CXmlTypeCollection& collection, std::string_view text) {
        collection.AddFromString(std::string(text));
    });
}

CXmlElement* CXmlTypeCollection::ReadTexts(CXmlElement* current, CSerializationContext const& ctx,
                                           TakeText take) {
    std::string room;
    while (current != nullptr &&
           DoesElementNameMatch(ctx, current, GetElementName().c_str(), m_namespace.c_str())) {
        take(*this, current->GetNodeText().Read(room));
        current = current->GetNextSiblingElement();
    }
    return current;
}

} // namespace ZvXmlLib16
