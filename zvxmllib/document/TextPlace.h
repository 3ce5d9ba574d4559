// Where the parts of an element's text stand between its children.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>
#include <vector>

namespace ZvXmlLib16 {

// So many bytes of the text, the next ones, stand behind so many children.
struct TextPlace {
    std::uint32_t children; // how many children stand ahead of it
    std::uint32_t length;   // in bytes
};

// Adds that many bytes behind the last part.
inline void AddTextPlace(std::vector<TextPlace>& places, std::uint32_t children, std::size_t length) {
    constexpr std::uint32_t kMost = std::numeric_limits<std::uint32_t>::max();
    while (length != 0) {
        if (places.empty() || places.back().children != children || places.back().length == kMost)
            places.push_back({children, 0});
        auto const count =
            static_cast<std::uint32_t>(std::min<std::size_t>(kMost - places.back().length, length));
        places.back().length += count;
        length -= count;
    }
}

// Calls `onText(std::string_view)` and `onChild(std::size_t)`, with the index of the child, in document
// order. Text that has no place, or one behind more children than there are, stands behind the last child.
// Empty parts are left out.
template <class OnText, class OnChild>
void WalkContent(std::string_view text, std::vector<TextPlace> const& places, std::size_t children,
                 OnText onText, OnChild onChild) {
    std::size_t child = 0;
    for (TextPlace const& place : places) {
        std::size_t const length = std::min<std::size_t>(place.length, text.size());
        if (length == 0)
            continue;
        for (; child < std::min<std::size_t>(place.children, children); ++child)
            onChild(child);
        if (place.children > children)
            break;
        onText(text.substr(0, length));
        text.remove_prefix(length);
    }
    for (; child < children; ++child)
        onChild(child);
    if (!text.empty())
        onText(text);
}

} // namespace ZvXmlLib16
