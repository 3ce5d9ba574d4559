#include "zvxmllib/grammar/QuickTest.h"

#include "zvxmllib/grammar/LexicalForms.h"
#include "zvxmllib/grammar/OrderedValues.h"
#include "zvxmllib/grammar/SimpleType.h"

#include <algorithm>
#include <limits>
#include <variant>

namespace ZvXmlLib16::grammar {

namespace {

constexpr std::size_t kMostDigits = 18; // that no std::int64_t is too small for
constexpr std::int64_t kBeyondDigits = 1'000'000'000'000'000'000;

constexpr bool IsDigitCharacter(char c) noexcept {
    return static_cast<unsigned char>(c - '0') < 10;
}

// The digits at the begin of `text` from `at` on.
std::size_t DigitsFrom(std::string_view text, std::size_t at) noexcept {
    std::size_t end = at;
    while (end < text.size() && IsDigitCharacter(text[end]))
        ++end;
    return end - at;
}

bool HasOnlySpaces(std::string_view text) noexcept {
    return std::none_of(text.begin(), text.end(), [](char c) { return c == '\t' || c == '\n' || c == '\r'; });
}

bool IsCollapsed(std::string_view text) noexcept {
    char before = ' ';
    for (char const c : text) {
        if (IsSpace(c) && (c != ' ' || before == ' '))
            return false;
        before = c;
    }
    return text.empty() || before != ' ';
}

bool IsLimited(SimpleType const& type) noexcept {
    return type.hasBounds || type.totalDigits.text != nullptr || type.fractionDigits.text != nullptr;
}

std::int64_t DigitsOf(SizeFacet const& facet) noexcept {
    constexpr std::uint64_t kMost = std::numeric_limits<std::int64_t>::max();
    return static_cast<std::int64_t>(std::min(facet.value, kMost));
}

} // namespace

QuickTest::Kind QuickTest::KindOf(SimpleType const& type) noexcept {
    bool const isPlain =
        type.variety == Variety::kAtomic && !type.hasIds && !type.hasQNames && type.patterns == nullptr;
    if (!isPlain)
        return Kind::kNothing;
    if (type.enumeration != nullptr)
        return type.primitive == BuiltIn::kString && !type.hasLengths ? Kind::kEnumeration : Kind::kNothing;
    switch (type.builtIn) {
    case BuiltIn::kAnySimpleType:
    case BuiltIn::kString:
    case BuiltIn::kNormalizedString:
    case BuiltIn::kToken:
        return type.whiteSpace == WhiteSpace::kPreserve  ? Kind::kText
               : type.whiteSpace == WhiteSpace::kReplace ? Kind::kLine
                                                         : Kind::kWords;
    case BuiltIn::kNMTOKEN:
        return Kind::kNmToken;
    case BuiltIn::kNCName:
        return Kind::kNCName;
    case BuiltIn::kBoolean:
        return Kind::kBoolean;
    case BuiltIn::kDecimal:
        return type.hasBounds ? Kind::kNothing : Kind::kNumber;
    case BuiltIn::kFloat:
    case BuiltIn::kDouble:
        return IsLimited(type) ? Kind::kNothing : Kind::kNumber;
    default:
        return type.primitive == BuiltIn::kDecimal && type.totalDigits.text == nullptr ? Kind::kInteger
                                                                                       : Kind::kNothing;
    }
}

QuickTest::QuickTest(SimpleType const& type) noexcept : m_kind(KindOf(type)) {
    if (m_kind == Kind::kInteger)
        LimitInteger(type);
    else if (m_kind == Kind::kEnumeration)
        m_keys = type.enumeration;
    else if (type.hasLengths)
        LimitLength(type);
    if (m_kind == Kind::kNumber && type.totalDigits.text != nullptr)
        m_totalDigits = static_cast<std::size_t>(DigitsOf(type.totalDigits));
    if (m_kind == Kind::kNumber && type.fractionDigits.text != nullptr)
        m_fractionDigits = static_cast<std::size_t>(DigitsOf(type.fractionDigits));
}

void QuickTest::LimitLength(SimpleType const& type) noexcept {
    auto const& [exact, least, most] = type.lengths;
    m_isLimited = true;
    m_least = 0;
    for (SizeFacet const* const facet : {&exact, &least}) {
        if (facet->text != nullptr)
            m_least = std::max(m_least, DigitsOf(*facet));
    }
    for (SizeFacet const* const facet : {&exact, &most}) {
        if (facet->text != nullptr)
            m_most = std::min(m_most, DigitsOf(*facet));
    }
}

// A bound of more digits than are looked at is none for numbers of fewer, or lets none through.
void QuickTest::LimitInteger(SimpleType const& type) noexcept {
    for (std::size_t i = 0; i < SimpleType::kBounds; ++i) {
        if (type.bounds[i] == nullptr)
            continue;
        auto const* const digits = std::get_if<DecimalDigits>(&type.bounds[i]->value);
        if (digits == nullptr || !digits->fraction.empty()) {
            m_kind = Kind::kNothing;
            return;
        }
        std::int64_t bound = digits->whole.size() > kMostDigits ? kBeyondDigits : 0;
        if (bound == 0) {
            for (char const c : digits->whole)
                bound = bound * 10 + (c - '0');
        }
        if (digits->isNegative)
            bound = -bound;
        switch (BoundFacet(i)) {
        case Facet::kMinInclusive:
            m_least = std::max(m_least, bound);
            break;
        case Facet::kMinExclusive:
            m_least = std::max(m_least, bound + 1);
            break;
        case Facet::kMaxInclusive:
            m_most = std::min(m_most, bound);
            break;
        default:
            m_most = std::min(m_most, bound - 1);
        }
    }
}

bool QuickTest::HasLength(std::string_view text) const noexcept {
    if (!m_isLimited)
        return true;
    auto const length = static_cast<std::int64_t>(CountCharacters(text));
    return length >= m_least && length <= m_most;
}

bool QuickTest::IsInteger(std::string_view text) const noexcept {
    bool const isNegative = !text.empty() && text[0] == '-';
    if (isNegative)
        text.remove_prefix(1);
    if (text.empty() || text.size() > kMostDigits)
        return false;
    std::int64_t value = 0;
    for (char const c : text) {
        if (!IsDigitCharacter(c))
            return false;
        value = value * 10 + (c - '0');
    }
    if (isNegative)
        value = -value;
    return value >= m_least && value <= m_most;
}

// Zeros in front and at the end do not count as digits, so declining too much is fine.
bool QuickTest::IsNumber(std::string_view text) const noexcept {
    std::size_t const begin = !text.empty() && text[0] == '-' ? 1 : 0;
    std::size_t const whole = DigitsFrom(text, begin);
    if (whole == 0)
        return false;
    std::size_t end = begin + whole;
    std::size_t fraction = 0;
    if (end < text.size() && text[end] == '.') {
        fraction = DigitsFrom(text, end + 1);
        end += 1 + fraction;
    }
    return end == text.size() && whole + fraction <= m_totalDigits && fraction <= m_fractionDigits;
}

bool QuickTest::IsEnumerated(std::string_view text) const noexcept {
    auto const found = std::lower_bound(
        m_keys->begin(), m_keys->end(), text,
        [](std::string const& key, std::string_view of) { return std::string_view(key).substr(1) < of; });
    return found != m_keys->end() && std::string_view(*found).substr(1) == text;
}

bool QuickTest::Accepts(std::string_view text) const noexcept {
    switch (m_kind) {
    case Kind::kText:
        return HasLength(text);
    case Kind::kLine:
        return HasOnlySpaces(text) && HasLength(text);
    case Kind::kWords:
        return IsCollapsed(text) && HasLength(text);
    case Kind::kNmToken:
        return IsNmToken(text) && HasLength(text);
    case Kind::kNCName:
        return IsNCName(text) && HasLength(text);
    case Kind::kBoolean:
        return ReadBoolean(text) >= 0;
    case Kind::kInteger:
        return IsInteger(text);
    case Kind::kNumber:
        return IsNumber(text);
    case Kind::kEnumeration:
        return IsEnumerated(text);
    default:
        return false;
    }
}

} // namespace ZvXmlLib16::grammar
