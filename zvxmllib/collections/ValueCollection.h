// The templates of the collections of values. Their bodies are in TypedCollections.cpp. Header only.
#pragma once

#include "zvxmllib/collections/XmlTypeCollection.h"
#include "zvxmllib/foundation/InstanceMonitor.h"

#include <string>
#include <string_view>
#include <typeinfo>
#include <vector>

namespace ZvXmlLib16::detail {

// Values in order of position, and the events of adding and removing them.
template <class Value>
class ZV_API ValueStore : public CXmlTypeCollection {
public:
    // Over the values; `const_iterator` for reading only.
    using iterator = typename std::vector<Value>::iterator;
    using const_iterator = typename std::vector<Value>::const_iterator;

    // The number of values.
    int GetCount() const override;
    // Throws CZvInvalidParamException for an index out of range.
    void Remove(int index) override;

    // For reading: a change made through them is not checked and fires no event.
    iterator begin() noexcept { return m_values.begin(); }
    iterator end() noexcept { return m_values.end(); }
    const_iterator begin() const noexcept { return m_values.begin(); }
    const_iterator end() const noexcept { return m_values.end(); }

protected:
    using CXmlTypeCollection::CXmlTypeCollection;
    ~ValueStore() override;

    // A copy. Throws CZvInvalidParamException for an index out of range.
    Value At(int index) const;
    // The steps of adding: facets are checked between the first two.
    void BeginAdd(int index, Value const& value);
    void Insert(int index, Value value);
    void CompleteAdd(Value const& value);
    // Empties the collection at once if it has no listeners and is of exactly this class, so that no derived
    // Remove is skipped.
    void ClearAs(std::type_info const& collection);
    // `toText(value, buffer)` returns the text, which may be in the buffer.
    template <class ToText>
    void WriteValues(CXmlWriter* writer, CSerializationContext const& ctx, ItemType type,
                     ToText toText) const;
    // In a strict context. `put(variant, value)` puts a value into a variant.
    template <class Put>
    void WriteStrictly(CXmlWriter* writer, CSerializationContext const& ctx, ItemType type, Put put) const;

private:
    std::vector<Value> m_values;
};

// The operations of the typed collections but those of dates: a repeating element of one simple type. Ci4Col,
// CstringCol and so on are this template for their value.
template <class Policy>
class ZV_API ValueCollection : public ValueStore<typename Policy::Value>, public CInstanceMonitor {
public:
    // A value.
    using Value = typename Policy::Value;
    // A value as it is passed: large ones by reference.
    using Argument = typename Policy::Argument;

    // Name and namespace of the element, its bounds (-1: unbounded), the facets of its type (null and -1: not
    // set), the whitespace rule for reading, and the format: for r4 and r8 a printf format, for decimal the
    // number of fraction digits; null for none.
    ValueCollection(char const* elementName, char const* namespaceURI, int minOccurs, int maxOccurs,
                    char const* pattern, std::int32_t minLength, std::int32_t maxLength,
                    char const* minInclusive, char const* maxInclusive, char const* minExclusive,
                    char const* maxExclusive, std::int32_t length, std::int32_t totalDigits,
                    std::int32_t fractionDigits, CWhitespaceUtils::WhitespaceRule rule,
                    char const* formatOverride);

    // Adds at the end. Throws like AddAt.
    void Add(Argument value);
    // `index` is from 0 to the count. Throws CZvInvalidParamException for another index, and CZvException for
    // a value that violates a facet.
    void AddAt(int index, Argument value);
    // Returns a copy. Throws CZvInvalidParamException for an index out of range, like Remove.
    Value Item(int index) const;
    // Removes the values one by one, from the first.
    void Clear() override;

protected:
    ~ValueCollection() override;

    // Writes an element for each value.
    void ToXml_Int(CXmlWriter* writer, bool isRoot, char const* ns, CSerializationContext const& ctx,
                   bool optionalChoice) const override;
    // Reads the texts in place, if the object is not of a derived class.
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* current, CSerializationContext const& ctx,
                             bool optionalChoice) override;
    void AddFromString(std::string value) override;

private:
    void Check(Value const& value) const;
    void AddText(std::string_view text);
    void AddStrictly(std::string_view text, CXmlElement const& element);
};

} // namespace ZvXmlLib16::detail
