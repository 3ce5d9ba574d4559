// Values of elements and attributes in a strict context.
#pragma once

#include "zvxmllib/foundation/Enumerations.h"
#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/values/facets/PrimitiveRestrictions.h"
#include "zvxmllib/values/text/Whitespace.h"

#include <string>
#include <string_view>

namespace ZvXmlLib16Data {

class CParentElementInfo;

namespace detail {

// What the table says about a value.
struct StrictValue {
    std::string const& name;
    ZvXmlLib16::ItemType type;
    ZvXmlLib16::CWhitespaceUtils::WhitespaceRule rule; // strings and characters have it, all others collapse
    ZvXmlLib16::CPrimitiveRestrictions const& restrictions;

    // From the text of an element or attribute. Throws CZvInvalidValueException for a text that is not one of
    // the type, and CZvValidationException for a value that violates a facet.
    void Read(ZvXmlLib16::ZvVariant& value, std::string_view text,
              ZvXmlLib16::CXmlElement const& place) const;
    void Read(ZvXmlLib16::ZvVariant& value, std::string_view text,
              ZvXmlLib16::CXmlAttribute const& place) const;

    // Like ZvVariant::ToText, but throws CZvInvalidStateException for a value that is not one of the type.
    std::string const& ToText(ZvXmlLib16::ZvVariant const& value, std::string const& format,
                              std::string& buffer) const;
    // Throws CZvException if a value, given with its text, violates a facet.
    void Check(ZvXmlLib16::ZvVariant const& value, std::string_view text) const;

private:
    template <class Place>
    void ReadAt(ZvXmlLib16::ZvVariant& value, std::string_view text, Place const& place) const;
};

} // namespace detail

// The text of a class with simple content, which has no facets in its table.
detail::StrictValue ContentOf(CParentElementInfo const& info, ZvXmlLib16::ItemType type) noexcept;

} // namespace ZvXmlLib16Data
