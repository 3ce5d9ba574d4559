#include "zvxmllib/foundation/RecentTexts.h"

#include <array>
#include <cstddef>

namespace ZvXmlLib16::detail {

namespace {

constexpr std::size_t kLongestRemembered = 128;
constexpr std::size_t kRemembered = 64; // a power of two

// Objects of static storage may be made and named after the texts of their thread have ended.
thread_local bool t_textsEnded = false;

struct RecentTexts {
    ~RecentTexts() { t_textsEnded = true; }
    std::array<SharedText, kRemembered> texts;
};

// Names differ at their ends more than at their beginnings.
std::size_t SlotOf(std::string_view text) noexcept {
    auto const byte = [text](std::size_t i) -> std::size_t { return static_cast<unsigned char>(text[i]); };
    std::size_t const last = text.size() - 1;
    return (byte(0) + byte(last / 2) * 5 + byte(last) * 11 + text.size() * 17) % kRemembered;
}

} // namespace

SharedText ShareRecent(std::string_view text) {
    if (text.empty())
        return SharedText();
    if (text.size() > kLongestRemembered || t_textsEnded)
        return SharedText(text);
    thread_local RecentTexts recent;
    SharedText& slot = recent.texts[SlotOf(text)];
    if (slot.Get() != text)
        slot = SharedText(text);
    return slot;
}

} // namespace ZvXmlLib16::detail
