#include "zvxmllib/grammar/Instants.h"

#include "zvxmllib/values/text/NumberText.h"

#include <charconv>
#include <cstddef>

namespace ZvXmlLib16::grammar {

namespace {

constexpr long long kSecondsOfMinute = 60;
constexpr long long kSecondsOfHour = 60 * kSecondsOfMinute;
constexpr long long kSecondsOfDay = 24 * kSecondsOfHour;
constexpr int kCycle = 400; // years, in which the calendar repeats
constexpr long long kDaysOfCycle = 146097;
constexpr int kMostZone = 14 * 60;

// Reads a text from its front.
class Reader {
public:
    explicit Reader(std::string_view text) : m_rest(text) {}

    bool IsAtEnd() const noexcept { return m_rest.empty(); }
    bool Take(char c) noexcept {
        if (m_rest.empty() || m_rest.front() != c)
            return false;
        m_rest.remove_prefix(1);
        return true;
    }
    std::string_view TakeDigits() noexcept {
        std::size_t count = 0;
        while (count < m_rest.size() && detail::IsDigit(m_rest[count]))
            ++count;
        std::string_view const digits = m_rest.substr(0, count);
        m_rest.remove_prefix(count);
        return digits;
    }
    // Two digits, a number in the range.
    bool TakeField(int least, int most, int& value) noexcept {
        if (m_rest.size() < 2 || !detail::IsDigit(m_rest[0]) || !detail::IsDigit(m_rest[1]))
            return false;
        value = (m_rest[0] - '0') * 10 + (m_rest[1] - '0');
        m_rest.remove_prefix(2);
        return value >= least && value <= most;
    }
    // A point and digits, if there is a point. The fraction is without zeros at its end.
    bool TakeFraction(std::string_view& fraction) noexcept {
        if (!Take('.'))
            return true;
        fraction = TakeDigits();
        bool const hasDigits = !fraction.empty();
        while (!fraction.empty() && fraction.back() == '0')
            fraction.remove_suffix(1);
        return hasDigits;
    }

private:
    std::string_view m_rest;
};

constexpr bool IsLeap(int year) noexcept {
    return year % 4 == 0 && (year % 100 != 0 || year % kCycle == 0);
}

constexpr int kDaysBefore[] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334, 365};

constexpr int DaysBeforeMonth(int month, bool isLeap) noexcept { // 1 to 13
    return kDaysBefore[month - 1] + (isLeap && month > 2 ? 1 : 0);
}

constexpr int DaysOfMonth(int month, bool isLeap) noexcept {
    return DaysBeforeMonth(month + 1, isLeap) - DaysBeforeMonth(month, isLeap);
}

// The place in the cycle of a year of four or more digits: ten thousand years are whole cycles.
int YearOfCycle(std::string_view year) noexcept {
    int value = 0;
    for (char const c : year.substr(year.size() - 4))
        value = value * 10 + (c - '0');
    return value % kCycle;
}

bool TakeYear(Reader& reader, InstantFields& fields) noexcept {
    fields.isYearNegative = reader.Take('-');
    std::string_view const year = fields.year = reader.TakeDigits();
    return year.size() >= 4 && (year.size() == 4 || year[0] != '0') && year != "0000";
}

bool TakeDay(Reader& reader, InstantFields& fields) noexcept {
    bool const isLeap = IsLeap(YearOfCycle(fields.year));
    return reader.TakeField(1, DaysOfMonth(fields.month, isLeap), fields.day);
}

bool TakeTime(Reader& reader, InstantFields& fields) noexcept {
    return reader.TakeField(0, 24, fields.hour) && reader.Take(':') &&
           reader.TakeField(0, 59, fields.minute) && reader.Take(':') &&
           reader.TakeField(0, 59, fields.second) && reader.TakeFraction(fields.fraction) &&
           (fields.hour != 24 || (fields.minute == 0 && fields.second == 0 && fields.fraction.empty()));
}

bool TakeZone(Reader& reader, InstantFields& fields) noexcept {
    fields.hasZone = true;
    if (reader.Take('Z'))
        return true;
    bool const isWest = reader.Take('-');
    if (!isWest && !reader.Take('+')) {
        fields.hasZone = false;
        return true;
    }
    int hours = 0;
    int minutes = 0;
    if (!reader.TakeField(0, 14, hours) || !reader.Take(':') || !reader.TakeField(0, 59, minutes))
        return false;
    fields.zone = hours * 60 + minutes;
    bool const isInRange = fields.zone <= kMostZone;
    if (isWest)
        fields.zone = -fields.zone;
    return isInRange;
}

bool TakeFields(BuiltIn type, Reader& reader, InstantFields& fields) noexcept {
    auto const month = [&] { return reader.TakeField(1, 12, fields.month); };
    auto const dash = [&] { return reader.Take('-'); };
    switch (type) {
    case BuiltIn::kDateTime:
        return TakeYear(reader, fields) && dash() && month() && dash() && TakeDay(reader, fields) &&
               reader.Take('T') && TakeTime(reader, fields);
    case BuiltIn::kDate:
        return TakeYear(reader, fields) && dash() && month() && dash() && TakeDay(reader, fields);
    case BuiltIn::kTime:
        return TakeTime(reader, fields);
    case BuiltIn::kGYearMonth:
        return TakeYear(reader, fields) && dash() && month();
    case BuiltIn::kGYear:
        return TakeYear(reader, fields);
    case BuiltIn::kGMonthDay:
        return dash() && dash() && month() && dash() && TakeDay(reader, fields);
    case BuiltIn::kGMonth:
        return dash() && dash() && month();
    case BuiltIn::kGDay:
        return dash() && dash() && dash() && TakeDay(reader, fields);
    default:
        return false;
    }
}

// Days from the first day of the year 1 to the first day of a year of which this is the number. Backwards,
// the year 1 comes directly behind the year -1. Cycles have the same length in both directions.
template <class Integer>
Integer DaysBeforeYear(Integer const& year, bool isNegative) {
    Integer const cycles = year / Integer(kCycle);
    auto const rest = static_cast<long long>(year % Integer(kCycle));
    // The days of the years 1 to `past` of the cycle; those of 0 to -1 are the leap year 0, taken away.
    auto const daysOf = [](long long past) {
        return past < 0 ? -366 : past * 365 + past / 4 - past / 100 + past / kCycle;
    };
    Integer days = cycles * Integer(kDaysOfCycle) + Integer(daysOf(isNegative ? rest : rest - 1));
    return isNegative ? Integer(0) - days : days;
}

int CompareTexts(std::string_view left, std::string_view right) noexcept {
    return left.compare(right);
}

Order OrderOf(int comparison) noexcept {
    return comparison < 0 ? Order::kLess : comparison > 0 ? Order::kGreater : Order::kEqual;
}

// A CBigInteger also orders 0 and -0, which are equal.
int CompareNumbers(CBigInteger const& left, CBigInteger const& right) noexcept {
    return left == right ? 0 : left < right ? -1 : 1;
}

void AppendSeconds(CBigInteger const& seconds, std::string_view fraction, std::string& key) {
    key += seconds.ToString();
    key += '.';
    key.append(fraction);
}

} // namespace

bool ReadInstantFields(BuiltIn type, std::string_view text, InstantFields& fields) {
    Reader reader(text);
    return TakeFields(type, reader, fields) && TakeZone(reader, fields) && reader.IsAtEnd();
}

Instant MakeInstant(BuiltIn type, InstantFields const& fields) {
    bool const isLeap = IsLeap(YearOfCycle(fields.year));
    // A time has no next day: 24:00:00 is 00:00:00.
    int const hour = type == BuiltIn::kTime ? fields.hour % 24 : fields.hour;
    long long const days = DaysBeforeMonth(fields.month, isLeap) + fields.day - 1;
    long long const rest = days * kSecondsOfDay + hour * kSecondsOfHour +
                           (fields.minute - fields.zone) * kSecondsOfMinute + fields.second;
    Instant value;
    value.fraction = fields.fraction;
    value.hasZone = fields.hasZone;
    constexpr std::size_t kShortYear = 10; // digits, whose seconds fit 64 bits
    if (fields.year.size() <= kShortYear) {
        long long year = 0;
        std::from_chars(fields.year.data(), fields.year.data() + fields.year.size(), year);
        value.seconds = CBigInteger(DaysBeforeYear(year, fields.isYearNegative) * kSecondsOfDay + rest);
    } else {
        CBigInteger const year = CBigInteger::FromText(fields.year);
        value.seconds =
            DaysBeforeYear(year, fields.isYearNegative) * CBigInteger(kSecondsOfDay) + CBigInteger(rest);
    }
    return value;
}

Order Compare(Instant const& left, Instant const& right) {
    auto const compare = [&](CBigInteger const& leftSeconds, CBigInteger const& rightSeconds) {
        int const bySeconds = CompareNumbers(leftSeconds, rightSeconds);
        return OrderOf(bySeconds != 0 ? bySeconds : CompareTexts(left.fraction, right.fraction));
    };
    if (left.hasZone == right.hasZone)
        return compare(left.seconds, right.seconds);
    CBigInteger const most(kMostZone * kSecondsOfMinute);
    Order const early = left.hasZone ? compare(left.seconds, right.seconds - most)
                                     : compare(left.seconds - most, right.seconds);
    Order const late = left.hasZone ? compare(left.seconds, right.seconds + most)
                                    : compare(left.seconds + most, right.seconds);
    return early == late ? early : Order::kNoOrder;
}

void AppendKey(Instant const& value, std::string& key) {
    AppendSeconds(value.seconds, value.fraction, key);
    if (value.hasZone)
        key += 'Z';
}

namespace {

// Takes the numbers that stand ahead of these letters, in their order, each of them optional.
template <std::size_t size>
bool TakeNumbers(Reader& reader, char const (&letters)[size], CBigInteger (&numbers)[size - 1],
                 std::string_view& fraction, bool& isAny) {
    std::size_t next = 0;
    for (;;) {
        std::string_view const digits = reader.TakeDigits();
        if (digits.empty())
            return true;
        if (!reader.TakeFraction(fraction))
            return false;
        bool const isWhole = fraction.data() == nullptr;
        while (next < size - 1 && !reader.Take(letters[next]))
            ++next;
        if (next == size - 1 || (!isWhole && letters[next] != 'S'))
            return false;
        numbers[next++] = CBigInteger::FromText(digits);
        isAny = true;
    }
}

// What adding a duration to the first day of a month gives, in seconds. The months are counted from year 0.
CBigInteger AddToMonth(int month, Duration const& value) {
    constexpr int kMonthsOfCycle = kCycle * 12;
    CBigInteger const sign(value.isNegative ? -1 : 1);
    CBigInteger const sum = CBigInteger(month) + sign * value.months;
    CBigInteger cycles = sum / CBigInteger(kMonthsOfCycle);
    int rest = static_cast<int>(sum % CBigInteger(kMonthsOfCycle));
    if (rest < 0) {
        rest += kMonthsOfCycle;
        cycles = cycles - CBigInteger(1);
    }
    int const year = rest / 12;
    long long const days =
        DaysBeforeYear<long long>(year, false) + DaysBeforeMonth(rest % 12 + 1, IsLeap(year));
    return (cycles * CBigInteger(kDaysOfCycle) + CBigInteger(days)) * CBigInteger(kSecondsOfDay) +
           sign * value.seconds;
}

// The digits of 1 less a fraction that is not 0.
std::string Complement(std::string_view fraction) {
    std::string result(fraction);
    for (char& c : result)
        c = static_cast<char>('9' - (c - '0'));
    ++result.back(); // the last digit was not 0
    return result;
}

// The same as a whole number, rounded down, and a fraction above it.
int CompareSeconds(CBigInteger left, Duration const& leftValue, CBigInteger right,
                   Duration const& rightValue) {
    auto const roundDown = [](CBigInteger& seconds, Duration const& value) {
        if (!value.isNegative || value.fraction.empty())
            return std::string(value.fraction);
        seconds = seconds - CBigInteger(1);
        return Complement(value.fraction);
    };
    std::string const leftFraction = roundDown(left, leftValue);
    std::string const rightFraction = roundDown(right, rightValue);
    int const bySeconds = CompareNumbers(left, right);
    return bySeconds != 0 ? bySeconds : CompareTexts(leftFraction, rightFraction);
}

} // namespace

bool ReadDuration(std::string_view text, Duration& value) {
    Reader reader(text);
    value.isNegative = reader.Take('-');
    if (!reader.Take('P'))
        return false;
    bool isAny = false;
    CBigInteger date[3]; // years, months, days
    std::string_view none;
    if (!TakeNumbers(reader, "YMD", date, none, isAny))
        return false;
    CBigInteger time[3]; // hours, minutes, seconds
    if (reader.Take('T')) {
        bool isAnyTime = false;
        if (!TakeNumbers(reader, "HMS", time, value.fraction, isAnyTime) || !isAnyTime)
            return false;
        isAny = true;
    }
    if (!isAny || !reader.IsAtEnd())
        return false;
    value.months = date[0] * CBigInteger(12) + date[1];
    value.seconds = date[2] * CBigInteger(kSecondsOfDay) + time[0] * CBigInteger(kSecondsOfHour) +
                    time[1] * CBigInteger(kSecondsOfMinute) + time[2];
    CBigInteger const zero(0);
    if (value.months == zero && value.seconds == zero && value.fraction.empty())
        value.isNegative = false;
    return true;
}

Order Compare(Duration const& left, Duration const& right) {
    constexpr int kMonths[] = {1696 * 12 + 8, 1697 * 12 + 1, 1903 * 12 + 2, 1903 * 12 + 6};
    Order order = Order::kNoOrder;
    for (int const month : kMonths) {
        Order const next =
            OrderOf(CompareSeconds(AddToMonth(month, left), left, AddToMonth(month, right), right));
        if (order != Order::kNoOrder && next != order)
            return Order::kNoOrder;
        order = next;
    }
    return order;
}

void AppendKey(Duration const& value, std::string& key) {
    if (value.isNegative)
        key += '-';
    key += value.months.ToString();
    key += 'M';
    AppendSeconds(value.seconds, value.fraction, key);
}

} // namespace ZvXmlLib16::grammar
