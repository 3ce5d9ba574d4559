// The text of an xsi:nil attribute.
#pragma once

#include <optional>
#include <string_view>

namespace ZvXmlLib16Data {

// "true", "false", "1" and "0", in letters of either case; nothing for any other text.
inline std::optional<bool> ParseNil(std::string_view text) noexcept {
    auto const equals = [text](std::string_view lower) {
        if (text.size() != lower.size())
            return false;
        for (std::size_t i = 0; i < text.size(); ++i) {
            char const c =
                text[i] >= 'A' && text[i] <= 'Z' ? static_cast<char>(text[i] + ('a' - 'A')) : text[i];
            if (c != lower[i])
                return false;
        }
        return true;
    };
    if (equals("true") || equals("1"))
        return true;
    if (equals("false") || equals("0"))
        return false;
    return std::nullopt;
}

} // namespace ZvXmlLib16Data
