// Null stands for the empty text in many arguments.
#pragma once

namespace ZvXmlLib16::detail {

constexpr char const* TextOrEmpty(char const* text) noexcept {
    return text == nullptr ? "" : text;
}

} // namespace ZvXmlLib16::detail
