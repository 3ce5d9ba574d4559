#include "zvxmllib/generated/ItemTypes.h"

#include "zvxmllib/grammar/LexicalForms.h"
#include "zvxmllib/values/text/NumberText.h"

#include <algorithm>

namespace ZvXmlLib16::generated {

using grammar::BuiltIn;

namespace {

constexpr ItemType kIntegers[] = {ItemType_i8,  ItemType_i4,  ItemType_i2,  ItemType_i1,
                                  ItemType_ui8, ItemType_ui4, ItemType_ui2, ItemType_ui1};

ItemType FromBuiltIn(BuiltIn type) {
    if (type >= BuiltIn::kLong && type <= BuiltIn::kUnsignedByte)
        return kIntegers[static_cast<int>(type) - static_cast<int>(BuiltIn::kLong)];
    if (type >= BuiltIn::kInteger && type <= BuiltIn::kPositiveInteger)
        return ItemType_integer;
    switch (type) {
    case BuiltIn::kBoolean:
        return ItemType_boolean;
    case BuiltIn::kDecimal:
        return ItemType_decimal;
    case BuiltIn::kFloat:
        return ItemType_r4;
    case BuiltIn::kDouble:
        return ItemType_r8;
    default:
        return ItemType_string;
    }
}

// Digits of a decimal, with what JSON wants around the point and without what it forbids.
void ToJsonNumber(std::string_view text, std::string& number) {
    number.clear();
    if (!text.empty() && (text[0] == '-' || text[0] == '+')) {
        if (text[0] == '-')
            number += '-';
        text.remove_prefix(1);
    }
    while (text.size() > 1 && text[0] == '0' && detail::IsDigit(text[1]))
        text.remove_prefix(1);
    if (!text.empty() && !detail::IsDigit(text[0]))
        number += '0';
    std::size_t const point = text.find('.');
    bool const isBare =
        point != std::string_view::npos && (point + 1 == text.size() || !detail::IsDigit(text[point + 1]));
    number.append(text.substr(0, point));
    if (point != std::string_view::npos)
        number.append(text.substr(isBare ? point + 1 : point));
}

} // namespace

ItemType ToWrittenForm(grammar::SimpleTypes const& types, std::uint32_t type, std::string_view text,
                       std::string& written) {
    ItemType item = FromBuiltIn(types.GetBuiltIn(type));
    bool const isReal = item == ItemType_r4 || item == ItemType_r8;
    // INF and NaN are no numbers of JSON.
    if (isReal && text.find('N') != std::string_view::npos)
        item = ItemType_string;
    if (item == ItemType_string) {
        written.assign(text);
        return item;
    }
    std::string_view const trimmed = grammar::Trim(text);
    if (item == ItemType_boolean)
        written = trimmed == "1" || trimmed == "true" ? "true" : "false";
    else
        ToJsonNumber(trimmed, written);
    // A pattern may allow "1" and not "true".
    std::string room;
    if (type < grammar::kBuiltInCount || written == text ||
        types.FindFault(type, written, nullptr, nullptr, room) == nullptr)
        return item;
    written.assign(text);
    return ItemType_string;
}

} // namespace ZvXmlLib16::generated
