// ZvVariant to and from text.
#include "zvxmllib/values/Failures.h"
#include "zvxmllib/values/dates/DateTimeSpan.h"
#include "zvxmllib/values/numbers/Decimal.h"
#include "zvxmllib/values/text/RuledText.h"
#include "zvxmllib/values/text/TextValues.h"
#include "zvxmllib/values/variant/ZvVariant.h"

#include <iterator>
#include <utility>

namespace ZvXmlLib16 {

namespace {

// By ItemType, from 1 on.
#define ZV_NAME(name, Policy, Name, Value, KIND, slot) #name,
constexpr char const* kTypeNames[] = {ZV_SIMPLE_TYPES(ZV_NAME)};
#undef ZV_NAME
static_assert(std::size(kTypeNames) == ItemType_integer);
#define ZV_NUMBER(name, Policy, Name, Value, KIND, slot) ItemType_##name,
constexpr ItemType kTypes[] = {ZV_SIMPLE_TYPES(ZV_NUMBER)};
#undef ZV_NUMBER
constexpr bool AreInOrder() {
    for (std::size_t i = 0; i < std::size(kTypes); ++i) {
        if (kTypes[i] != i + 1)
            return false;
    }
    return true;
}
static_assert(AreInOrder());

bool IsNamed(ItemType type) {
    return type >= ItemType_hexBinary && type <= ItemType_integer;
}

// The text of a value, or of the empty one where there is none.
template <class Value>
using ToTextFunction = std::string const& (*)(Value const& value, char const* format, std::string& buffer);
template <class Value>
std::string const& TextOf(Value const* value, ToTextFunction<Value> toText, char const* format,
                          std::string& buffer) {
    return value != nullptr ? toText(*value, format, buffer) : toText(Value(), format, buffer);
}

} // namespace

std::string ZvVariant::GetType() const {
    if (!IsNamed(m_type))
        FailTypeName(m_type);
    return kTypeNames[m_type - 1];
}

std::string ZvVariant::ToString(char const* format) const {
    std::string buffer;
    std::string const& text = ToText(format, buffer);
    if (&text == &buffer)
        return buffer;
    return text;
}

std::string const& ZvVariant::ToText(char const* format, std::string& buffer) const {
    switch (m_type) {
#define ZV_TEXT_SCALAR(name, Name, slot) detail::name##ToText(m_##slot, format, buffer)
#define ZV_TEXT_BINARY(name, Name, slot) detail::name##ToText(GetBinary(), format, buffer)
#define ZV_TEXT_DATE(name, Name, slot) TextOf(FindDateTime(), detail::name##ToText, format, buffer)
#define ZV_TEXT_OBJECT(name, Name, slot) TextOf(Find##Name(), detail::name##ToText, format, buffer)
#define ZV_TEXT_NUMBER ZV_TEXT_OBJECT
#define ZV_TEXT_TEXT(name, Name, slot) m_text
#define ZV_CASE(name, Policy, Name, Value, KIND, slot)                                                       \
    case ItemType_##name:                                                                                    \
        return ZV_TEXT_##KIND(name, Name, slot);
        ZV_SIMPLE_TYPES(ZV_CASE)
#undef ZV_CASE
#undef ZV_TEXT_TEXT
#undef ZV_TEXT_NUMBER
#undef ZV_TEXT_OBJECT
#undef ZV_TEXT_DATE
#undef ZV_TEXT_BINARY
#undef ZV_TEXT_SCALAR
    default:
        FailTypeToString(m_type);
    }
}

void ZvVariant::FromString(std::string const& text, ItemType type, CWhitespaceUtils::WhitespaceRule rule) {
    FromText(text, type, rule);
}

// Each value is parsed before its setter touches the variant.
void ZvVariant::FromText(std::string_view text, ItemType type, CWhitespaceUtils::WhitespaceRule rule) {
    if (type == ItemType_string)
        return SetRuledString(text, rule);
    switch (type) {
#define ZV_CASE(name, Policy, Name, Value, KIND, slot)                                                       \
    case ItemType_##name:                                                                                    \
        return Set##Name(detail::name##FromText(text, rule));
        ZV_SIMPLE_TYPES(ZV_CASE)
#undef ZV_CASE
    default:
        FailTypeToString(type);
    }
}

void ZvVariant::SetRuledString(std::string_view text, CWhitespaceUtils::WhitespaceRule rule) {
    detail::RuledText ruled(rule, text);
    if (std::string* const own = ruled.Own())
        return SetString(std::move(*own));
    m_text.assign(text); // before anything is dropped: the text may live in what the variant holds
    TextBecomesValue();
}

} // namespace ZvXmlLib16
