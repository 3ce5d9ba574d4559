// Parts of texts.
#pragma once

#include <string_view>

namespace ZvXmlLib16::detail {

// What a C string of these bytes holds.
inline std::string_view UpToNul(std::string_view text) noexcept {
    return text.substr(0, text.find('\0'));
}

inline bool StartsWith(std::string_view text, std::string_view start) noexcept {
    return text.substr(0, start.size()) == start;
}

} // namespace ZvXmlLib16::detail
