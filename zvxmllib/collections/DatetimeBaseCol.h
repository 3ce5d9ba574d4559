// CdatetimeBaseCol, the base of the five collections of dates and times.
#pragma once

#include "zvxmllib/collections/ValueCollection.h"
#include "zvxmllib/values/dates/DateTime.h"

#include <string>
#include <string_view>

namespace ZvXmlLib16 {

// Each collection takes values of one kind only, and checks that and the facets before it notifies listeners.
class ZV_API CdatetimeBaseCol : public detail::ValueStore<CDateTime> {
public:
    // Removes the values one by one, from the first.
    void Clear() override;
    // Adds at the end. Throws like AddAt.
    virtual void Add(CDateTime const& value);
    // `index` is from 0 to the count. Throws CZvInvalidParamException for another index or a date of another
    // kind, and CZvException for a value that violates a facet.
    virtual void AddAt(int index, CDateTime const& value) = 0;
    // Returns a copy. Throws CZvInvalidParamException for an index out of range, like Remove.
    virtual CDateTime Item(int index);

protected:
    using ValueStore::ValueStore;
    ~CdatetimeBaseCol() override;

    // The text of a value as it is written.
    virtual std::string ItemToString(CDateTime const& value) = 0;
    // Adds without a check, and tells the listeners.
    void BaseAddAt(int index, CDateTime const& value);
    void ToXml_Int(CXmlWriter* writer, bool isRoot, char const* ns, CSerializationContext const& ctx,
                   bool optionalChoice) const override;
};

namespace detail {

// The operations of CyearMonthCol, CmonthDayCol, CdateCol, CdatetimeCol and CtimeCol: a repeating element
// with a date of one kind.
template <class Policy>
class ZV_API DateCollection : public CdatetimeBaseCol, public CInstanceMonitor {
public:
    // Name and namespace of the element, its bounds (-1: unbounded), the facets of its type (null and -1: not
    // set), the whitespace rule for reading, and the format, which dates do not use.
    DateCollection(char const* elementName, char const* namespaceURI, int minOccurs, int maxOccurs,
                   char const* pattern, std::int32_t minLength, std::int32_t maxLength,
                   char const* minInclusive, char const* maxInclusive, char const* minExclusive,
                   char const* maxExclusive, std::int32_t length, std::int32_t totalDigits,
                   std::int32_t fractionDigits, CWhitespaceUtils::WhitespaceRule rule,
                   char const* formatOverride);

    // As in the base.
    void Clear() override;
    void AddAt(int index, CDateTime const& value) override;

protected:
    ~DateCollection() override;

    // As in ValueCollection, these two take a shortcut if the object is not of a derived class.
    void ToXml_Int(CXmlWriter* writer, bool isRoot, char const* ns, CSerializationContext const& ctx,
                   bool optionalChoice) const override;
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* current, CSerializationContext const& ctx,
                             bool optionalChoice) override;
    void AddFromString(std::string value) override;
    std::string ItemToString(CDateTime const& value) override;

private:
    void AddText(std::string_view text);
    void AddStrictly(std::string_view text, CXmlElement const& element);
};

} // namespace detail

} // namespace ZvXmlLib16
