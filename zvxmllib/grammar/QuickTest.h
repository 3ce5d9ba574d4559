// The usual texts of the usual simple types, told at a glance.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ZvXmlLib16::grammar {

struct SimpleType;

// Accepts a text or declines. What it accepts fits the type, and the white space rule leaves it as it is;
// what it declines is for SimpleTypeTest, which finds the same and more.
class QuickTest {
public:
    // Borrowed.
    explicit QuickTest(SimpleType const& type) noexcept;
    bool Accepts(std::string_view text) const noexcept;

private:
    enum class Kind : std::uint8_t {
        kNothing,
        kText,  // with white space of any kind
        kLine,  // of spaces alone
        kWords, // single spaces between them
        kNmToken,
        kNCName,
        kBoolean,
        kInteger,
        kNumber,
        kEnumeration
    };

    static Kind KindOf(SimpleType const& type) noexcept;
    void LimitLength(SimpleType const& type) noexcept;
    void LimitInteger(SimpleType const& type) noexcept;
    bool HasLength(std::string_view text) const noexcept;
    bool IsInteger(std::string_view text) const noexcept;
    bool IsNumber(std::string_view text) const noexcept;
    bool IsEnumerated(std::string_view text) const noexcept;

    Kind m_kind;
    bool m_isLimited = false;
    std::int64_t m_least = INT64_MIN; // of characters or of the integer
    std::int64_t m_most = INT64_MAX;
    std::size_t m_totalDigits = SIZE_MAX;
    std::size_t m_fractionDigits = SIZE_MAX;
    std::vector<std::string> const* m_keys = nullptr; // of the enumeration: a sign, then the text
};

} // namespace ZvXmlLib16::grammar
