// What the fuzzers share. A claim that does not hold ends the program, and so does an exception that is none
// of the library's; libFuzzer keeps the input then.
#pragma once

#include "zvxmllib/ZvXmlLib.h"

#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

using namespace ZvXmlLib16; // the fuzzers are programs of one file each

inline void Require(bool holds) {
    if (!holds)
        std::abort();
}

inline std::string_view TextOf(unsigned char const* data, std::size_t size) {
    return std::string_view(reinterpret_cast<char const*>(data), size);
}

// The result of `function`, none if it is refused.
template <class Function>
auto Attempt(Function function) -> std::optional<decltype(function())> {
    try {
        return function();
    } catch (CZvException const&) {
        return std::nullopt;
    }
}

inline std::optional<ZvVariant> Read(std::string_view text, ItemType type) {
    std::optional<ZvVariant> value(std::in_place);
    try {
        value->FromText(text, type, CWhitespaceUtils::WhitespaceRule_Collapse);
    } catch (CZvException const&) {
        value.reset();
    }
    return value;
}

// A decimal may print a zero at its end, which reading drops; dates and durations have to be equal and look
// equal.
inline bool AreEqual(ZvVariant const& left, ZvVariant const& right) {
    if (left.FindDecimal() != nullptr && right.FindDecimal() != nullptr)
        return *left.FindDecimal() == *right.FindDecimal();
    if (left.FindDateTime() != nullptr && right.FindDateTime() != nullptr &&
        *left.FindDateTime() != *right.FindDateTime())
        return false;
    if (left.FindDuration() != nullptr && right.FindDuration() != nullptr &&
        *left.FindDuration() != *right.FindDuration())
        return false;
    return left.ToString(nullptr) == right.ToString(nullptr);
}

// Texts that are not read, or not as the value: that of a zero duration, that of a number that stands for a
// year below 1000 or for a negative one, and 16 digits of a number that are more than the greatest there is.
inline bool HasReadableText(ZvVariant const& value) {
    switch (value.GetTypeAsEnum()) {
    case ItemType_duration:
        return value.ToString(nullptr).back() != 'P';
    case ItemType_year:
        return value.GetYear() >= 1000 && value.GetYear() <= 9999;
    case ItemType_r8:
        return std::isinf(value.GetR8()) || !(std::fabs(value.GetR8()) > 1.797693134862315E+308);
    default:
        return true;
    }
}

// Two numbers of which the last digit may differ, since the nearest number to 16 digits, or to the 7 of a
// float, need not have these: the number above 1E+23 has them too, but is not what they read as.
inline bool AreNeighbours(ZvVariant const& left, ZvVariant const& right) {
    switch (left.GetTypeAsEnum()) {
    case ItemType_r4:
        return std::fabs(left.GetR4() - right.GetR4()) <= 1e-6F * std::fabs(right.GetR4());
    case ItemType_r8:
        return std::fabs(left.GetR8() - right.GetR8()) <= 1e-15 * std::fabs(right.GetR8());
    default:
        return false;
    }
}

inline void RequireSameAgain(ZvVariant const& value) {
    if (!HasReadableText(value))
        return;
    std::optional<ZvVariant> const again = Read(value.ToString(nullptr), value.GetTypeAsEnum());
    Require(again && (AreEqual(*again, value) || AreNeighbours(*again, value)));
}

// Whether the text is a value of the type. What is read is printed so that it reads the same, and reads the
// same with a blank behind it, which keeps it from the short ways of plain texts; a NUL would end the text
// then.
inline bool ReadAs(std::string const& text, ItemType type) {
    std::optional<ZvVariant> const value = Read(text, type);
    if (!value)
        return false;
    RequireSameAgain(*value);
    if (text.find('\0') == std::string::npos) {
        std::optional<ZvVariant> const withBlank = Read(text + ' ', type);
        Require(withBlank && AreEqual(*withBlank, *value));
    }
    return true;
}

inline void ReadAsEach(std::string const& text, std::initializer_list<ItemType> types) {
    for (ItemType const type : types)
        ReadAs(text, type);
}
