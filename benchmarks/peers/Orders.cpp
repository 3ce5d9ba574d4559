#include "benchmarks/peers/Orders.h"

#include <charconv>
#include <cstdint>
#include <stdexcept>

namespace peers {

bool Decimal::operator==(Decimal const& other) const {
    if (digits > other.digits)
        return other == *this;
    long long scaled = units;
    for (int i = digits; i < other.digits; ++i)
        scaled *= 10;
    return scaled == other.units;
}

bool Item::operator==(Item const& other) const {
    return sku == other.sku && quantity == other.quantity && price == other.price && note == other.note &&
           tags == other.tags;
}

bool Order::operator==(Order const& other) const {
    return id == other.id && currency == other.currency && customer == other.customer && date == other.date &&
           express == other.express && total == other.total && items == other.items;
}

namespace {

class Numbers {
public:
    int Below(int limit) {
        m_state = m_state * 6364136223846793005U + 1442695040888963407U;
        return static_cast<int>((m_state >> 33U) % static_cast<unsigned>(limit));
    }

private:
    std::uint64_t m_state = 20;
};

Item MakeItem(Numbers& numbers) {
    static char const* const kTags[] = {"fragile", "gift", "cold", "return & repair"};
    Item item;
    item.sku = "SKU-" + std::to_string(100000 + numbers.Below(900000));
    item.quantity = 1 + numbers.Below(20);
    item.price = {1 + numbers.Below(99999), 2};
    if (numbers.Below(3) == 0)
        item.note = "Please wrap it well, it is for somebody's birthday; <no> plastic";
    for (int i = numbers.Below(3); i > 0; --i)
        item.tags.emplace_back(kTags[numbers.Below(4)]);
    return item;
}

[[noreturn]] void Fail(std::string_view text) {
    throw std::runtime_error("no value: " + std::string(text));
}

} // namespace

Orders MakeOrders(std::size_t bytes) {
    constexpr std::size_t kBytesOfOrder = 740; // on average
    static char const* const kCustomers[] = {"Anna Larsson", "B\xC3\xB6rse & S\xC3\xB6hne", "Carlos Ortega",
                                             "Dupont SARL"};
    Numbers numbers;
    Orders orders(bytes / kBytesOfOrder + 1);
    long long id = 4711000000;
    for (Order& order : orders) {
        order.id = ++id;
        order.currency = static_cast<Currency>(numbers.Below(3));
        order.customer = kCustomers[numbers.Below(4)];
        order.date = {2020 + numbers.Below(7), 1 + numbers.Below(12), 1 + numbers.Below(28)};
        order.express = numbers.Below(2) == 0;
        order.total = {numbers.Below(10000000), 2};
        for (int i = 1 + numbers.Below(6); i > 0; --i)
            order.items.push_back(MakeItem(numbers));
    }
    return orders;
}

long long ToInteger(std::string_view text) {
    long long value = 0;
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size())
        Fail(text);
    return value;
}

bool ToBool(std::string_view text) {
    if (text != "true" && text != "false" && text != "1" && text != "0")
        Fail(text);
    return text == "true" || text == "1";
}

Date ToDate(std::string_view text) {
    if (text.size() != 10 || text[4] != '-' || text[7] != '-')
        Fail(text);
    Date const date{static_cast<int>(ToInteger(text.substr(0, 4))),
                    static_cast<int>(ToInteger(text.substr(5, 2))),
                    static_cast<int>(ToInteger(text.substr(8)))};
    if (date.month < 1 || date.month > 12 || date.day < 1 || date.day > 31)
        Fail(text);
    return date;
}

Decimal ToDecimal(std::string_view text) {
    Decimal value;
    bool const isNegative = !text.empty() && text[0] == '-';
    bool isFraction = false;
    for (char const c : text.substr(isNegative ? 1 : 0)) {
        if (c == '.' && !isFraction) {
            isFraction = true;
            continue;
        }
        if (c < '0' || c > '9' || value.units > 100000000000000000)
            Fail(text);
        value.units = value.units * 10 + (c - '0');
        value.digits += isFraction ? 1 : 0;
    }
    if (text.empty())
        Fail(text);
    value.units = isNegative ? -value.units : value.units;
    return value;
}

Currency ToCurrency(std::string_view text) {
    for (Currency const currency : {Currency::kEur, Currency::kUsd, Currency::kGbp}) {
        if (text == NameOf(currency))
            return currency;
    }
    Fail(text);
}

char const* NameOf(Currency currency) {
    static char const* const kNames[] = {"EUR", "USD", "GBP"};
    return kNames[static_cast<int>(currency)];
}

void Append(std::string& out, long long value) {
    char digits[24];
    auto const [end, error] = std::to_chars(digits, digits + sizeof digits, value);
    static_cast<void>(error);
    out.append(digits, end);
}

namespace {

void AppendPadded(std::string& out, long long value, std::size_t width) {
    std::size_t const start = out.size();
    Append(out, value);
    if (out.size() - start < width)
        out.insert(start, width - (out.size() - start), '0');
}

} // namespace

void Append(std::string& out, Date const& date) {
    AppendPadded(out, date.year, 4);
    out += '-';
    AppendPadded(out, date.month, 2);
    out += '-';
    AppendPadded(out, date.day, 2);
}

void Append(std::string& out, Decimal const& value) {
    long long const units = value.units < 0 ? -value.units : value.units;
    if (value.units < 0)
        out += '-';
    AppendPadded(out, units, static_cast<std::size_t>(value.digits) + 1);
    if (value.digits != 0)
        out.insert(out.size() - static_cast<std::size_t>(value.digits), 1, '.');
}

} // namespace peers
