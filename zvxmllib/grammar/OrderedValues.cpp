#include "zvxmllib/grammar/OrderedValues.h"

#include "zvxmllib/values/text/NumberText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace ZvXmlLib16::grammar {

namespace {

std::size_t CountDigits(std::string_view text) noexcept {
    auto const end = std::find_if_not(text.begin(), text.end(), detail::IsDigit);
    return static_cast<std::size_t>(end - text.begin());
}

// A sign, digits and perhaps a point: the rest stays in `text`. False without a digit.
bool TakeDecimal(std::string_view& text, DecimalDigits& value) noexcept {
    value.isNegative = !text.empty() && text.front() == '-';
    if (value.isNegative || (!text.empty() && text.front() == '+'))
        text.remove_prefix(1);
    std::size_t const wholeLength = CountDigits(text);
    value.whole = text.substr(0, wholeLength);
    text.remove_prefix(wholeLength);
    value.fraction = std::string_view();
    if (!text.empty() && text.front() == '.') {
        text.remove_prefix(1);
        value.fraction = text.substr(0, CountDigits(text));
        text.remove_prefix(value.fraction.size());
    }
    if (value.whole.empty() && value.fraction.empty())
        return false;
    while (!value.whole.empty() && value.whole.front() == '0')
        value.whole.remove_prefix(1);
    while (!value.fraction.empty() && value.fraction.back() == '0')
        value.fraction.remove_suffix(1);
    if (value.whole.empty() && value.fraction.empty())
        value.isNegative = false;
    return true;
}

int CompareMagnitudes(DecimalDigits const& left, DecimalDigits const& right) noexcept {
    if (left.whole.size() != right.whole.size())
        return left.whole.size() < right.whole.size() ? -1 : 1;
    int const byWhole = left.whole.compare(right.whole);
    return byWhole != 0 ? byWhole : left.fraction.compare(right.fraction);
}

// An optional exponent that is the whole of `text`. One beyond all measure is cut.
bool ReadExponent(std::string_view text, long long& exponent) noexcept {
    exponent = 0;
    if (text.empty())
        return true;
    if (text.front() != 'e' && text.front() != 'E')
        return false;
    text.remove_prefix(1);
    bool const isNegative = !text.empty() && text.front() == '-';
    if (isNegative || (!text.empty() && text.front() == '+'))
        text.remove_prefix(1);
    if (text.empty() || CountDigits(text) != text.size())
        return false;
    constexpr long long kMost = 1'000'000'000'000'000'000;
    if (std::from_chars(text.data(), text.data() + text.size(), exponent).ec != std::errc() ||
        exponent > kMost)
        exponent = kMost;
    if (isNegative)
        exponent = -exponent;
    return true;
}

// XML Schema Part 2, 3.2.4. What is too large is infinite, what is too small is 0.
template <class Real>
bool ReadReal(std::string_view text, Real& value) noexcept {
    if (text == "INF" || text == "-INF") {
        value = std::numeric_limits<Real>::infinity();
        if (text.front() == '-')
            value = -value;
        return true;
    }
    if (text == "NaN") {
        value = std::numeric_limits<Real>::quiet_NaN();
        return true;
    }
    std::string_view rest = text;
    DecimalDigits digits;
    long long exponent = 0;
    if (!TakeDecimal(rest, digits) || !ReadExponent(rest, exponent))
        return false;
    char const* const begin = text.data() + (text.front() == '+' ? 1 : 0);
    if (std::from_chars(begin, text.data() + text.size(), value).ec == std::errc::result_out_of_range) {
        std::size_t const zeros = std::min(digits.fraction.find_first_not_of('0'), digits.fraction.size());
        long long const places = digits.whole.empty() ? -static_cast<long long>(zeros)
                                                      : static_cast<long long>(digits.whole.size());
        value = exponent + places > 0 ? std::numeric_limits<Real>::infinity() : Real(0);
        if (digits.isNegative)
            value = -value;
    }
    return true;
}

// NaN is equal to itself and has no order with anything else.
template <class Real>
Order CompareReals(Real left, Real right) noexcept {
    if (std::isnan(left) || std::isnan(right))
        return std::isnan(left) && std::isnan(right) ? Order::kEqual : Order::kNoOrder;
    return left < right ? Order::kLess : left > right ? Order::kGreater : Order::kEqual;
}

template <class Real>
void AppendReal(Real value, std::string& key) {
    constexpr std::size_t kMostCharacters = 32;
    char text[kMostCharacters];
    if (value == 0)
        value = 0; // of both signs
    if (std::isnan(value))
        value = std::numeric_limits<Real>::quiet_NaN();
    key.append(text, std::to_chars(text, text + kMostCharacters, value).ptr);
}

struct KeyAppender {
    std::string& key;

    void operator()(std::monostate) const {}
    void operator()(DecimalDigits const& value) const {
        if (value.isNegative)
            key += '-';
        key.append(value.whole);
        key += '.';
        key.append(value.fraction);
    }
    void operator()(float value) const { AppendReal(value, key); }
    void operator()(double value) const { AppendReal(value, key); }
    void operator()(Instant const& value) const { AppendKey(value, key); }
    void operator()(Duration const& value) const { AppendKey(value, key); }
};

} // namespace

bool ReadDecimal(std::string_view text, DecimalDigits& value) noexcept {
    return TakeDecimal(text, value) && text.empty();
}

bool ReadInteger(std::string_view text, DecimalDigits& value) noexcept {
    return text.find('.') == std::string_view::npos && ReadDecimal(text, value);
}

Order Compare(DecimalDigits const& left, DecimalDigits const& right) noexcept {
    if (left.isNegative != right.isNegative)
        return left.isNegative ? Order::kLess : Order::kGreater;
    int const comparison = left.isNegative ? CompareMagnitudes(right, left) : CompareMagnitudes(left, right);
    return comparison < 0 ? Order::kLess : comparison > 0 ? Order::kGreater : Order::kEqual;
}

bool ReadOrdered(BuiltIn primitive, std::string_view text, OrderedValue& value) {
    switch (primitive) {
    case BuiltIn::kDecimal:
        return ReadDecimal(text, value.emplace<DecimalDigits>());
    case BuiltIn::kFloat:
        return ReadReal(text, value.emplace<float>());
    case BuiltIn::kDouble:
        return ReadReal(text, value.emplace<double>());
    case BuiltIn::kDuration:
        return ReadDuration(text, value.emplace<Duration>());
    default: {
        InstantFields fields;
        if (!ReadInstantFields(primitive, text, fields))
            return false;
        value = MakeInstant(primitive, fields);
        return true;
    }
    }
}

bool IsOrderedForm(BuiltIn primitive, std::string_view text) {
    if (primitive >= BuiltIn::kDateTime) {
        InstantFields fields;
        return ReadInstantFields(primitive, text, fields);
    }
    OrderedValue value;
    return ReadOrdered(primitive, text, value);
}

Order Compare(OrderedValue const& left, OrderedValue const& right) {
    return std::visit(
        [](auto const& a, auto const& b) {
            using Left = std::decay_t<decltype(a)>;
            using Right = std::decay_t<decltype(b)>;
            if constexpr (!std::is_same_v<Left, Right> || std::is_same_v<Left, std::monostate>)
                return Order::kNoOrder;
            else if constexpr (std::is_floating_point_v<Left>)
                return CompareReals(a, b);
            else
                return Compare(a, b);
        },
        left, right);
}

void AppendKey(OrderedValue const& value, std::string& key) {
    std::visit(KeyAppender{key}, value);
}

} // namespace ZvXmlLib16::grammar
