// What becomes of a text that is read as a value of some type.
#pragma once

#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/foundation/SimpleTypes.h"
#include "zvxmllib/values/variant/ZvVariant.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <typeinfo>

namespace zvtest {

// The failure with its class: "invalid: ..." for CZvInvalidValueException, "plain: ..." for CZvException.
inline std::string Failure(ZvXmlLib16::CZvException const& failure) {
    char const* const kind = typeid(failure) == typeid(ZvXmlLib16::CZvInvalidValueException) ? "invalid: "
                             : typeid(failure) == typeid(ZvXmlLib16::CZvException)           ? "plain: "
                                                                                             : "other: ";
    return kind + failure.GetFullMessage() + failure.GetPath();
}

// The type of this name.
inline ZvXmlLib16::ItemType TypeNamed(std::string const& wanted) {
#define ZV_IF_NAMED(name, Policy, Name, Value, KIND, slot)                                                   \
    if (wanted == #name)                                                                                     \
        return ZvXmlLib16::ItemType_##name;
    ZV_SIMPLE_TYPES(ZV_IF_NAMED)
#undef ZV_IF_NAMED
    ADD_FAILURE() << wanted;
    return ZvXmlLib16::ItemType_invalid;
}

// The value printed again, or the failure. The text stands among digits, which must not be looked at.
inline std::string ReadText(ZvXmlLib16::ItemType type, std::string const& text,
                            ZvXmlLib16::CWhitespaceUtils::WhitespaceRule rule) {
    std::string const among = "9" + text + "9";
    try {
        ZvXmlLib16::ZvVariant value;
        value.FromText(std::string_view(among).substr(1, text.size()), type, rule);
        return value.ToString(nullptr);
    } catch (ZvXmlLib16::CZvException const& failure) {
        return Failure(failure);
    }
}

} // namespace zvtest
