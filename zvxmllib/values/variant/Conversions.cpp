// CConversions, one pair of functions for each primitive type.
#include "zvxmllib/values/variant/Conversions.h"

#include "zvxmllib/values/binary/BinaryData.h"
#include "zvxmllib/values/dates/DateTime.h"
#include "zvxmllib/values/dates/DateTimeSpan.h"
#include "zvxmllib/values/numbers/Decimal.h"
#include "zvxmllib/values/text/TextValues.h"

#include <utility>

namespace ZvXmlLib16 {

namespace {

template <class Value>
using ToText = std::string const& (*)(Value value, char const* format, std::string& buffer);

template <class Value>
std::string TextOf(ToText<Value> toText, Value value, char const* format) {
    std::string buffer;
    std::string const& text = toText(value, format, buffer);
    return &text == &buffer ? std::move(buffer) : text;
}

} // namespace

#define ZV_CONVERSION(name, Policy, Name, Value, KIND, slot)                                                 \
    std::string CConversions::name##ToString(detail::Parameter<Value> value) {                               \
        return TextOf<detail::Parameter<Value>>(detail::name##ToText, value, nullptr);                       \
    }                                                                                                        \
    Value CConversions::name##FromString(std::string const& value, WhitespaceRule rule) {                    \
        return detail::name##FromText(value, rule);                                                          \
    }
ZV_SIMPLE_TYPES(ZV_CONVERSION)
#undef ZV_CONVERSION

std::string CConversions::r4ToString(float value, std::string const& format) {
    return TextOf<float>(detail::r4ToText, value, format.c_str());
}

std::string CConversions::r8ToString(double value, std::string const& format) {
    return TextOf<double>(detail::r8ToText, value, format.c_str());
}

std::string CConversions::decimalToString(CDecimal const& value, std::string const& format) {
    return TextOf<CDecimal const&>(detail::decimalToText, value, format.c_str());
}

} // namespace ZvXmlLib16
