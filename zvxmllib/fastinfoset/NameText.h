// Comparison of texts as short as names are. Header only.
#pragma once

#include "zvxmllib/fastinfoset/IndexMap.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace ZvXmlLib16 {
namespace detail {

// Between the parts of a qualified name in its text.
inline constexpr char kNameSeparator = '\1';

template <class Word>
std::uint64_t WordAt(char const* p) noexcept {
    Word word;
    std::memcpy(&word, p, sizeof word);
    return word;
}

// Faster than a call of memcmp. The last word may overlap the one before.
inline bool AreEqual(char const* a, char const* b, std::size_t length) noexcept {
    if (length >= 8) {
        std::size_t const last = length - 8;
        for (std::size_t i = 0; i < last; i += 8) {
            if (WordAt<std::uint64_t>(a + i) != WordAt<std::uint64_t>(b + i))
                return false;
        }
        return WordAt<std::uint64_t>(a + last) == WordAt<std::uint64_t>(b + last);
    }
    if (length >= 4)
        return WordAt<std::uint32_t>(a) == WordAt<std::uint32_t>(b) &&
               WordAt<std::uint32_t>(a + length - 4) == WordAt<std::uint32_t>(b + length - 4);
    return length == 0 || (a[0] == b[0] && a[length / 2] == b[length / 2] && a[length - 1] == b[length - 1]);
}

inline bool Equals(std::string_view a, std::string_view b) noexcept {
    return a.size() == b.size() && AreEqual(a.data(), b.data(), a.size());
}

inline bool Equals(IndexMap::QName const& name, std::string_view text) noexcept {
    std::size_t const namespaceBegin = name.localName.size() + 1;
    std::size_t const prefixBegin = namespaceBegin + name.namespaceName.size() + 1;
    char const* const p = text.data();
    return prefixBegin + name.prefix.size() == text.size() && p[namespaceBegin - 1] == kNameSeparator &&
           p[prefixBegin - 1] == kNameSeparator &&
           AreEqual(name.localName.data(), p, name.localName.size()) &&
           AreEqual(name.namespaceName.data(), p + namespaceBegin, name.namespaceName.size()) &&
           AreEqual(name.prefix.data(), p + prefixBegin, name.prefix.size());
}

} // namespace detail
} // namespace ZvXmlLib16
