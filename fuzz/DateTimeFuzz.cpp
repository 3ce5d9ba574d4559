// Texts as dates, times and durations. What was read prints as a text that reads as the same value.
#include "zvxmllib/ZvXmlLib.h"

#include <cstdlib>
#include <string_view>

using namespace ZvXmlLib16;

namespace {

template <class Value, class Parse>
void Try(std::string_view text, Parse parse) {
    Value value;
    try {
        parse(value, text);
    } catch (CZvInvalidValueException const&) {
        return;
    }
    std::string const printed = value.ToString();
    if (printed == "P" || printed == "-P") // a zero duration is printed, not read
        return;
    Value again;
    parse(again, printed);
    if (again.ToString() != printed || again.CompareTo(value) != CDateTime::DTCompareEqual)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    std::string_view const text(reinterpret_cast<char const*>(data), size);
    Try<CDateTime>(text, [](CDateTime& value, std::string_view t) { value.ParseXSDDateTime(t); });
    Try<CDateTime>(text, [](CDateTime& value, std::string_view t) { value.ParseXSDDate(t); });
    Try<CDateTime>(text, [](CDateTime& value, std::string_view t) { value.ParseXSDTime(t); });
    Try<CDateTimeSpan>(text, [](CDateTimeSpan& value, std::string_view t) { value.ParseXSDDuration(t); });
    return 0;
}
