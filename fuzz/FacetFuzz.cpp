// A value against facets, first when they are met and then when they have been prepared. The input is the
// type and a number for the facets that are one, a byte each, and lines: the value, the four bounds.
#include "Fuzz.h"

namespace {

// The message, empty if the value passes.
std::string Check(ZvVariant const& value, CPrimitiveRestrictions const& facets) {
    try {
        CheckPrimitiveVariant("n", value, value.GetTypeAsEnum(), facets);
        return "";
    } catch (CZvException const& failure) {
        return failure.GetFullMessage();
    }
}

std::string TakeLine(std::string_view& text) {
    std::size_t const end = text.find('\n');
    std::string line(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return line;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    constexpr std::size_t kNumbers = 2;
    if (size < kNumbers)
        return 0;
    auto const type = static_cast<ItemType>(1 + data[0] % ItemType_integer);
    std::string_view lines = TextOf(data + kNumbers, size - kNumbers);
    std::optional<ZvVariant> const value = Read(TakeLine(lines), type);
    if (!value)
        return 0;
    CPrimitiveRestrictions facets;
    facets.minInclusive = TakeLine(lines);
    facets.maxInclusive = TakeLine(lines);
    facets.minExclusive = TakeLine(lines);
    facets.maxExclusive = TakeLine(lines);
    facets.totalDigits = facets.fractionDigits = facets.maxLength = static_cast<signed char>(data[1]);
    std::string const first = Check(*value, facets);
    Require(Check(*value, facets) == first && Check(*value, CPrimitiveRestrictions(facets)) == first);
    return 0;
}
