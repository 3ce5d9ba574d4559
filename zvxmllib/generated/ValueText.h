// ValueText, the text of a value. Header only.
#pragma once

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

namespace ZvXmlLib16::generated {

// A string of the size of std::string that keeps twice as many characters in place, so that most values of
// documents need no memory of their own.
class ValueText {
public:
    ValueText() noexcept = default;
    // Copies the text.
    ValueText(std::string_view text) { Assign(text); }
    ValueText(ValueText const& other) { Assign(other.View()); }
    ValueText(ValueText&& other) noexcept { Take(other); }
    ~ValueText() { Free(); }
    ValueText& operator=(ValueText other) noexcept {
        Free();
        Take(other);
        return *this;
    }

    // The text; a view of it is valid until it is set or ends.
    std::string_view View() const noexcept {
        if (m_length != kElsewhere)
            return {m_chars, m_length};
        Block const block = GetBlock();
        return {block.chars, block.length};
    }
    // A copy of the text.
    std::string Get() const { return std::string(View()); }
    // Like View.
    operator std::string_view() const noexcept { return View(); }

    template <class Stream>
    friend Stream& operator<<(Stream& stream, ValueText const& text) {
        stream << text.View();
        return stream;
    }

private:
    struct Block {
        char* chars; // owned
        std::size_t length;
    };
    static constexpr std::size_t kInPlace = sizeof(std::string) - 1;
    static constexpr unsigned char kElsewhere = 0xFF;

    Block GetBlock() const noexcept {
        Block block;
        std::memcpy(&block, m_chars, sizeof block);
        return block;
    }
    void Assign(std::string_view text) {
        if (text.size() <= kInPlace) {
            if (!text.empty())
                std::memcpy(m_chars, text.data(), text.size());
            m_length = static_cast<unsigned char>(text.size());
            return;
        }
        Block const block{new char[text.size()], text.size()};
        std::memcpy(block.chars, text.data(), text.size());
        std::memcpy(m_chars, &block, sizeof block);
        m_length = kElsewhere;
    }
    void Take(ValueText& other) noexcept {
        std::memcpy(m_chars, other.m_chars, sizeof m_chars);
        m_length = std::exchange(other.m_length, static_cast<unsigned char>(0));
    }
    void Free() noexcept {
        if (m_length == kElsewhere)
            delete[] GetBlock().chars;
    }

    alignas(std::string) char m_chars[kInPlace] = {}; // or a Block
    unsigned char m_length = 0;
};

} // namespace ZvXmlLib16::generated
