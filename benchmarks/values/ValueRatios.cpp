// Single values to and from text, by the time of the fastest way known: medians of ratios.
// One row for each kind of value; a new kind is one more line of main and, where it has to be written by
// hand, its best known way in BestKnown.h.
#include "benchmarks/MedianRatio.h"
#include "benchmarks/values/BestKnown.h"
#include "benchmarks/values/DateTimeByHand.h"

#include "zvxmllib/ZvXmlLib.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

using namespace ZvXmlLib16;

namespace {

constexpr double kMost = 2;
constexpr int kValues = 512;
constexpr CWhitespaceUtils::WhitespaceRule kCollapse = CWhitespaceUtils::WhitespaceRule_Collapse;

// So that no result is left out.
template <class Value>
void Keep(Value const& value) {
    asm volatile("" : : "g"(&value) : "memory");
}

template <class Items, class Convert>
auto ForEach(Items const& items, Convert convert) {
    return [&items, convert] {
        for (auto const& item : items)
            Keep(convert(item));
    };
}

template <class Items, class Convert>
auto ConvertAll(Items const& items, Convert convert) {
    std::vector<decltype(convert(items.front()))> results;
    results.reserve(items.size());
    for (auto const& item : items)
        results.push_back(convert(item));
    return results;
}

// The texts are those that both ways write. `read` and `write` are the library's.
template <class Read, class Write, class BestRead, class BestWrite>
void PrintRow(char const* name, std::vector<std::string> const& texts, Read read, Write write,
              BestRead bestRead, BestWrite bestWrite, double limit = kMost) {
    auto const values = ConvertAll(texts, read);
    auto const bestValues = ConvertAll(texts, bestRead);
    if (ConvertAll(values, write) != texts || ConvertAll(bestValues, bestWrite) != texts) {
        std::printf("%s: the two ways do not agree\n", name);
        std::exit(1);
    }
    double const reading = bench::MedianRatio(ForEach(texts, read), ForEach(texts, bestRead));
    double const writing = bench::MedianRatio(ForEach(values, write), ForEach(bestValues, bestWrite));
    std::printf("%-16s %8.2f%c %8.2f%c\n", name, reading, bench::Mark(reading, limit), writing,
                bench::Mark(writing, limit));
    std::fflush(stdout);
}

std::mt19937_64 random_;

// Of all lengths alike.
long long AnyInteger(int bits) {
    auto const value =
        static_cast<long long>(random_() >> (64U - random_() % static_cast<unsigned>(bits - 1) - 1U));
    return random_() % 2 != 0 ? -value : value;
}

template <class Make>
std::vector<std::string> MakeTexts(Make make) {
    std::vector<std::string> texts;
    texts.reserve(kValues);
    for (int i = 0; i < kValues; ++i)
        texts.push_back(make());
    return texts;
}

// Twenty digits, the last of them not 0, with the point anywhere among them.
std::string AnyDecimal() {
    std::string text = std::to_string(1 + random_() % 9);
    while (text.size() < 19)
        text += static_cast<char>('0' + random_() % 10);
    text += static_cast<char>('1' + random_() % 9);
    text.insert(1 + random_() % 19, 1, '.');
    return (random_() % 2 != 0 ? "-" : "") + text;
}

std::string AnyBase64(std::size_t size) {
    std::vector<unsigned char> bytes(size);
    for (unsigned char& byte : bytes)
        byte = static_cast<unsigned char>(random_());
    return bench::WriteBase64(bytes);
}

void PrintBase64(char const* name, std::size_t size) {
    PrintRow(
        name, MakeTexts([&] { return AnyBase64(size); }),
        [](std::string const& text) { return CConversions::base64BinaryFromString(text, kCollapse); },
        [](CBinaryData const& value) { return CConversions::base64BinaryToString(value); }, bench::ReadBase64,
        bench::WriteBase64);
}

// With a zone, Z or an offset, and with a fraction, or without either.
std::string AnyDateTime(bool hasZone, bool hasFraction) {
    auto const number = [](int from, int to) {
        return from + static_cast<int>(random_() % static_cast<unsigned>(to - from + 1));
    };
    bench::PlainDateTime value;
    value.year = number(1900, 2100);
    value.month = number(1, 12);
    value.day = number(1, 28);
    value.hour = number(0, 23);
    value.minute = number(0, 59);
    value.second = number(0, 59);
    value.nanoSecond = hasFraction ? number(1, 999) * 1'000'000 : 0;
    value.hasZone = hasZone;
    value.isOffset = hasZone && number(0, 1) == 0;
    value.zone = value.isOffset ? number(1, 14) * 60 : 0;
    return bench::WriteDateTime(value);
}

void PrintDateTime(char const* name, bool hasZone, bool hasFraction) {
    PrintRow(
        name, MakeTexts([&] { return AnyDateTime(hasZone, hasFraction); }),
        [](std::string const& text) { return CConversions::datetimeFromString(text, kCollapse); },
        [](CDateTime const& value) { return CConversions::datetimeToString(value); }, bench::ReadDateTime,
        bench::WriteDateTime);
}

} // namespace

int main() {
    std::printf("Texts read into values and values written as text, by the time of std::from_chars, "
                "std::to_chars or\n"
                "what a program would do by hand (limit %.1f). '!' is above the limit.\n\n%-16s %8s  %8s\n",
                kMost, "value", "read", "write");
    PrintRow(
        "int", MakeTexts([] { return std::to_string(AnyInteger(32)); }),
        [](std::string const& text) { return CConversions::i4FromString(text, kCollapse); },
        [](std::int32_t value) { return CConversions::i4ToString(value); }, bench::ReadInt, bench::WriteInt);
    PrintRow(
        "long", MakeTexts([] { return std::to_string(AnyInteger(64)); }),
        [](std::string const& text) { return CConversions::i8FromString(text, kCollapse); },
        [](long long value) { return CConversions::i8ToString(value); }, bench::ReadLongLong,
        bench::WriteLongLong);
    PrintRow(
        "double", MakeTexts([] {
            return bench::WriteDouble(static_cast<double>(AnyInteger(60)) / static_cast<double>(random_()));
        }),
        [](std::string const& text) { return CConversions::r8FromString(text, kCollapse); },
        [](double value) { return CConversions::r8ToString(value); }, bench::ReadDouble, bench::WriteDouble);
    PrintRow(
        "decimal", MakeTexts(AnyDecimal),
        [](std::string const& text) { return CConversions::decimalFromString(text, kCollapse); },
        [](CDecimal const& value) { return CConversions::decimalToString(value); }, bench::ReadFixedPoint,
        bench::WriteFixedPoint);
    PrintDateTime("dateTime", false, false);
    PrintDateTime("dateTime, zone", true, false);
    PrintDateTime("dateTime, .fff", true, true);
    PrintBase64("base64, 30 B", 30);
    PrintBase64("base64, 4 KB", 4096);
}
