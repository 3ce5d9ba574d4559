// SharedText, a text that many objects hold and nobody changes. Header only.
#pragma once

#include <atomic>
#include <cstdint>
#include <new>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace ZvXmlLib16::detail {

// A counted, immutable string, one pointer in size; null for the empty text. Copies share the string, also
// between threads; one SharedText belongs to one thread. References to the string are valid until the last
// holder is assigned to or ends.
class SharedText {
public:
    SharedText() noexcept = default;
    SharedText(std::string text) : m_text(text.empty() ? nullptr : new Counted(std::move(text))) {}
    SharedText(std::string_view text) : SharedText(std::string(text)) {}
    SharedText(char const* text) : SharedText(std::string(text)) {} // not null
    SharedText(SharedText const& other) noexcept : m_text(other.m_text) {
        if (m_text != nullptr)
            m_text->holders.fetch_add(1, std::memory_order_relaxed);
    }
    SharedText(SharedText&& other) noexcept : m_text(std::exchange(other.m_text, nullptr)) {}
    ~SharedText() {
        if (m_text != nullptr && m_text->holders.fetch_sub(1, std::memory_order_acq_rel) == 1)
            delete m_text;
    }
    SharedText& operator=(SharedText other) noexcept {
        std::swap(m_text, other.m_text);
        return *this;
    }

    // Shares the string that another SharedText holds.
    static SharedText Of(std::string const& held) noexcept {
        static_assert(std::is_standard_layout_v<Counted>, "the string is found at the beginning");
        SharedText shared;
        if (!held.empty()) {
            shared.m_text = reinterpret_cast<Counted*>(const_cast<std::string*>(&held));
            shared.m_text->holders.fetch_add(1, std::memory_order_relaxed);
        }
        return shared;
    }

    std::string const& Get() const noexcept { return m_text != nullptr ? m_text->text : Empty(); }
    operator std::string const&() const noexcept { return Get(); }
    char const* c_str() const noexcept { return m_text != nullptr ? m_text->text.c_str() : ""; }
    bool empty() const noexcept { return m_text == nullptr; }

    friend bool operator==(SharedText const& a, std::string const& b) noexcept { return a.Get() == b; }
    friend bool operator!=(SharedText const& a, std::string const& b) noexcept { return a.Get() != b; }

private:
    struct Counted {
        explicit Counted(std::string&& t) noexcept : text(std::move(t)) {}
        std::string const text;
        std::atomic<std::uint32_t> holders{1};
    };

    static std::string const& Empty() noexcept {
        // Never ends: objects of static storage may hold it.
        alignas(std::string) static unsigned char storage[sizeof(std::string)];
        static std::string const& empty = *new (storage) std::string;
        return empty;
    }

    Counted* m_text = nullptr;
};

} // namespace ZvXmlLib16::detail
