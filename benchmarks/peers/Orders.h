// Orders as plain structs, which every program of the comparison fills from its documents and writes.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace peers {

inline constexpr char kNamespace[] = "urn:example:orders";

struct Date {
    int year = 0;
    int month = 0;
    int day = 0;

    bool operator==(Date const& other) const {
        return year == other.year && month == other.month && day == other.day;
    }
};

// Exact: `units` divided by 10 to the power of `digits`.
struct Decimal {
    long long units = 0;
    int digits = 0;

    bool operator==(Decimal const& other) const; // of the values: 1.50 is 1.5
};

enum class Currency { kEur, kUsd, kGbp };

struct Item {
    std::string sku;
    int quantity = 0;
    Decimal price;
    std::optional<std::string> note;
    std::vector<std::string> tags;

    bool operator==(Item const& other) const;
};

struct Order {
    long long id = 0;
    Currency currency = Currency::kEur;
    std::string customer;
    Date date;
    bool express = false;
    Decimal total;
    std::vector<Item> items;

    bool operator==(Order const& other) const;
};

using Orders = std::vector<Order>;

// So many that their XML text has about `bytes` bytes; the same on each call.
Orders MakeOrders(std::size_t bytes);

// Conversions as one writes them by hand. Texts that are no value throw std::runtime_error.
long long ToInteger(std::string_view text);
bool ToBool(std::string_view text);
Date ToDate(std::string_view text);
Decimal ToDecimal(std::string_view text);
Currency ToCurrency(std::string_view text);
void Append(std::string& out, long long value);
void Append(std::string& out, Date const& date);
void Append(std::string& out, Decimal const& value);
char const* NameOf(Currency currency);
template <class Value>
std::string ToText(Value const& value) {
    std::string text;
    Append(text, value);
    return text;
}

} // namespace peers
