// Dates and durations from text, for tests: the value, and what came of reading it.
#pragma once

#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/values/dates/DateTimeSpan.h"

#include <array>
#include <random>
#include <string>

namespace zvtest {

// By the parser that the type of the text asks for.
inline ZvXmlLib16::CDateTime ReadDate(std::string const& text) {
    ZvXmlLib16::CDateTime value;
    if (text.find('T') != std::string::npos)
        value.ParseXSDDateTime(text.c_str());
    else if (text.size() > 2 && text[2] == ':')
        value.ParseXSDTime(text.c_str());
    else
        value.ParseXSDDate(text.c_str());
    return value;
}

inline ZvXmlLib16::CDateTimeSpan ReadSpan(std::string const& text) {
    ZvXmlLib16::CDateTimeSpan value;
    value.ParseXSDDuration(text.c_str());
    return value;
}

// The value printed again with its type, or the message.
template <class Read>
std::string Outcome(Read read) {
    try {
        return read();
    } catch (ZvXmlLib16::CZvInvalidValueException const& failure) {
        return "invalid: " + failure.GetFullMessage();
    }
}

// Random texts in the printed form of one of the eight types, with any zone or none.
class RandomDates {
public:
    explicit RandomDates(unsigned seed) : m_engine(seed) {}

    int Number(int minimum, int maximum) {
        return std::uniform_int_distribution<int>(minimum, maximum)(m_engine);
    }

    std::string Text() {
        std::string const year = (Number(0, 9) == 0 ? "-" : "") + Digits(Number(1, 9999), 4);
        int const month = Number(1, 12);
        constexpr std::array<int, 12> kLengths = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
        std::string const monthText = Digits(month, 2);
        std::string const day = Digits(Number(1, kLengths[static_cast<std::size_t>(month - 1)]), 2);
        switch (Number(0, 9)) {
        case 0:
            return year + Zone();
        case 1:
            return year + "-" + monthText + Zone();
        case 2:
            return year + "-" + monthText + "-" + day + Zone();
        case 3:
            return "--" + monthText + Zone();
        case 4:
            return "--" + monthText + "-" + day + Zone();
        case 5:
            return "---" + day + Zone();
        case 6:
            return Time() + Zone();
        default:
            return year + "-" + monthText + "-" + day + "T" + Time() + Zone();
        }
    }

private:
    static std::string Digits(int number, int width) {
        std::string const digits = std::to_string(number);
        return std::string(static_cast<std::size_t>(width) - digits.size(), '0') + digits;
    }
    std::string Time() {
        std::string text =
            Digits(Number(0, 23), 2) + ":" + Digits(Number(0, 59), 2) + ":" + Digits(Number(0, 59), 2);
        if (int const digits = Number(-9, 9); digits > 0) {
            text += "." + std::string(static_cast<std::size_t>(digits - 1), '0');
            for (char& digit : text)
                if (&digit > &text[8])
                    digit = static_cast<char>('0' + Number(0, 9));
            text += static_cast<char>('0' + Number(1, 9)); // printing drops zeros at the end
        }
        return text;
    }
    std::string Zone() {
        switch (Number(0, 3)) {
        case 0:
            return "Z";
        case 1:
            return "+" + Digits(Number(0, 23), 2) + ":" + Digits(Number(0, 59), 2);
        case 2:
            return "-" + Digits(Number(1, 23), 2) + ":" + Digits(Number(0, 59), 2);
        default:
            return "";
        }
    }

    std::mt19937 m_engine;
};

} // namespace zvtest
