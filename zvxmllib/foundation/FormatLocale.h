// The C locale for the formats that need it. Header only.
#pragma once

#include "zvxmllib/platform/NumericLocale.h"

#include <cstring>
#include <optional>

namespace ZvXmlLib16::detail {

// True if a conversion of the format depends on the locale: only floating point has a decimal point.
inline bool HasFloatingConversion(char const* format) noexcept {
    for (char const* p = std::strchr(format, '%'); p != nullptr; p = std::strchr(p, '%')) {
        p += 1 + std::strspn(p + 1, "#-+ 0123456789.*$'hlLqjzt");
        if (*p == '\0')
            return false;
        if (std::strchr("aAeEfFgG", *p) != nullptr)
            return true;
        ++p;
    }
    return false;
}

// Holds the C locale while a format that needs it is printed.
class FormatLocale {
public:
    explicit FormatLocale(char const* format) noexcept {
        if (HasFloatingConversion(format))
            m_guard.emplace();
    }

private:
    std::optional<platform::CNumericLocaleGuard> m_guard;
};

} // namespace ZvXmlLib16::detail
