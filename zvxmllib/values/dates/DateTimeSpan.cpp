// CDateTimeSpan, duration.
#include "zvxmllib/values/dates/DateTimeSpan.h"

#include "zvxmllib/values/dates/DateTimeFailures.h"
#include "zvxmllib/values/dates/DateTimeFields.h"

#include <charconv>
#include <limits>

namespace ZvXmlLib16 {

namespace {

// Sign, designators, and the digits of all fields at their widest.
constexpr std::size_t kLongestDuration = 128;

// How far the parser of a duration has come. A designator is allowed in some states only, which enforces the
// order.
enum State {
    kNothingRead = 0,
    kYearsRead = 1,
    kMonthsRead = 2,
    kDaysRead = 3,
    kTimeBegun = 4,
    kHoursRead = 5,
    kMinutesRead = 6,
    kSecondsRead = 7,
    kFractionRead = 8
};

struct Number {
    unsigned long long value = 0; // 0 without digits
    bool isTooLarge = false;
    std::size_t length = 0;
};

Number ReadNumber(std::string_view text) {
    Number number;
    std::from_chars_result const read = std::from_chars(text.data(), text.data() + text.size(), number.value);
    number.length = static_cast<std::size_t>(read.ptr - text.data());
    number.isTooLarge = read.ec == std::errc::result_out_of_range;
    return number;
}

char* PrintPart(char* at, unsigned long long number, char designator) {
    if (number == 0)
        return at;
    at = std::to_chars(at, at + std::numeric_limits<unsigned long long>::digits10 + 1, number).ptr;
    *at++ = designator;
    return at;
}

constexpr bool FitsIn32Bits(unsigned long long number) {
    return number <= std::numeric_limits<std::uint32_t>::max();
}

} // namespace

CDateTimeSpan::CDateTimeSpan(std::uint32_t hours, unsigned long long minutes,
                             unsigned long long seconds) noexcept
    : CDateTimeSpan(0, 0, 0, hours, minutes, seconds, 0, 0, 0) {}

CDateTimeSpan::CDateTimeSpan(unsigned short years, std::uint32_t months, std::uint32_t days,
                             std::uint32_t hours, unsigned long long minutes,
                             unsigned long long seconds) noexcept
    : CDateTimeSpan(years, months, days, hours, minutes, seconds, 0, 0, 0) {}

CDateTimeSpan::CDateTimeSpan(unsigned short years, std::uint32_t months, std::uint32_t days,
                             std::uint32_t hours, unsigned long long minutes, unsigned long long seconds,
                             unsigned short milliSeconds, unsigned short microSeconds,
                             unsigned short nanoSeconds) noexcept
    : m_years(years), m_months(months), m_days(days), m_hours(hours), m_minutes(minutes), m_seconds(seconds),
      m_milliSeconds(milliSeconds), m_microSeconds(microSeconds), m_nanoSeconds(nanoSeconds) {}

CDateTimeSpan::~CDateTimeSpan() = default;

void CDateTimeSpan::SetDateTimeSpan(std::uint32_t hours, unsigned long long minutes,
                                    unsigned long long seconds) noexcept {
    *this = CDateTimeSpan(hours, minutes, seconds);
}

void CDateTimeSpan::SetDateTimeSpan(unsigned short years, std::uint32_t months, std::uint32_t days,
                                    std::uint32_t hours, unsigned long long minutes,
                                    unsigned long long seconds) noexcept {
    *this = CDateTimeSpan(years, months, days, hours, minutes, seconds);
}

void CDateTimeSpan::SetDateTimeSpan(unsigned short years, std::uint32_t months, std::uint32_t days,
                                    std::uint32_t hours, unsigned long long minutes,
                                    unsigned long long seconds, unsigned short milliSeconds,
                                    unsigned short microSeconds, unsigned short nanoSeconds) noexcept {
    *this =
        CDateTimeSpan(years, months, days, hours, minutes, seconds, milliSeconds, microSeconds, nanoSeconds);
}

CDateTimeSpan CDateTimeSpan::GetAsNegative() const noexcept {
    CDateTimeSpan result(*this);
    result.m_isNegative = true;
    return result;
}

void CDateTimeSpan::Clear() noexcept {
    *this = CDateTimeSpan();
}

std::string CDateTimeSpan::ToString() const {
    char text[kLongestDuration];
    return std::string(text, static_cast<std::size_t>(PrintTo(text) - text));
}

std::string& CDateTimeSpan::Print(std::string& text) const {
    char buffer[kLongestDuration];
    return text.assign(buffer, static_cast<std::size_t>(PrintTo(buffer) - buffer));
}

char* CDateTimeSpan::PrintTo(char* at) const noexcept {
    if (m_isNegative)
        *at++ = '-';
    *at++ = 'P';
    at = PrintPart(at, m_years, 'Y');
    at = PrintPart(at, m_months, 'M');
    at = PrintPart(at, m_days, 'D');
    bool const hasFraction = m_milliSeconds != 0 || m_microSeconds != 0 || m_nanoSeconds != 0;
    bool const hasSeconds = m_seconds != 0 || hasFraction;
    if (m_hours == 0 && m_minutes == 0 && !hasSeconds)
        return at;
    *at++ = 'T';
    at = PrintPart(at, m_hours, 'H');
    at = PrintPart(at, m_minutes, 'M');
    if (!hasFraction)
        return PrintPart(at, m_seconds, 'S');
    at = std::to_chars(at, at + std::numeric_limits<unsigned long long>::digits10 + 1, m_seconds).ptr;
    at = detail::PrintFraction(at, m_milliSeconds, m_microSeconds, m_nanoSeconds);
    *at++ = 'S';
    return at;
}

void CDateTimeSpan::ParseXSDDuration(char const* text) {
    if (text == nullptr) {
        Clear();
        FailDurationNull();
    }
    ParseXSDDuration(std::string_view(text));
}

void CDateTimeSpan::ParseXSDDuration(std::string_view whole) {
    Clear();
    whole = whole.substr(0, whole.find('\0'));
    if (whole.empty())
        FailDurationEmpty();
    std::string_view text = whole;
    if (text.front() == '-') {
        m_isNegative = true;
        text.remove_prefix(1);
    }
    if (text.empty() || text.front() != 'P')
        FailDurationForm(whole);
    text.remove_prefix(1);

    int state = kNothingRead;
    while (!text.empty()) {
        Number const number = ReadNumber(text);
        if (number.isTooLarge || number.length == text.size() ||
            !SetDesignated(text[number.length], number.value, state))
            FailDurationForm(whole);
        text.remove_prefix(number.length + 1);
        if (state != kFractionRead)
            continue;
        // Behind the point.
        detail::SecondFraction const fraction = detail::ReadFraction(text);
        if (fraction.isTooLong)
            FailDurationFraction(whole);
        if (fraction.length == text.size() || text[fraction.length] != 'S')
            FailDurationForm(whole);
        m_milliSeconds = fraction.milliSecond;
        m_microSeconds = fraction.microSecond;
        m_nanoSeconds = fraction.nanoSecond;
        text.remove_prefix(fraction.length + 1);
    }
    if (state == kNothingRead || state == kTimeBegun)
        FailDurationForm(whole);
}

// False for an unknown or misplaced designator, or a number too large for its field. Years keep their low 16
// bits, and are allowed anywhere.
bool CDateTimeSpan::SetDesignated(char designator, unsigned long long number, int& state) noexcept {
    auto const set32 = [&](std::uint32_t& field, int next) {
        field = static_cast<std::uint32_t>(number);
        state = next;
        return FitsIn32Bits(number);
    };
    auto const set64 = [&](unsigned long long& field, int next) {
        field = number;
        state = next;
        return true;
    };
    bool const isInTime = state >= kTimeBegun && state <= kMinutesRead;
    switch (designator) {
    case 'Y':
        m_years = static_cast<unsigned short>(number);
        state = kYearsRead;
        return true;
    case 'M':
        if (state <= kYearsRead)
            return set32(m_months, kMonthsRead);
        return (state == kTimeBegun || state == kHoursRead) && set64(m_minutes, kMinutesRead);
    case 'D':
        return state <= kMonthsRead && set32(m_days, kDaysRead);
    case 'T':
        if (state > kDaysRead)
            return false;
        state = kTimeBegun;
        return true;
    case 'H':
        return state == kTimeBegun && set32(m_hours, kHoursRead);
    case 'S':
        return isInTime && set64(m_seconds, kSecondsRead);
    case '.':
        return isInTime && set64(m_seconds, kFractionRead);
    default:
        return false;
    }
}

CDateTime::DTCompareResult CDateTimeSpan::CompareTo(CDateTimeSpan const& other) const {
    struct YearMonth {
        short year;
        unsigned char month;
    };
    // Their months differ in length with leap years and centuries, so spans that agree here agree anywhere.
    constexpr YearMonth kReferences[] = {{1696, 9}, {1697, 2}, {1903, 3}, {1903, 7}};

    CDateTime::DTCompareResult result = CDateTime::DTCompareIndeterminate;
    for (YearMonth const& start : kReferences) {
        CDateTime reference(start.year, start.month, 1, 0, 0, 0);
        reference.SetUTC();
        CDateTime::DTCompareResult const here = (reference + *this).CompareTo(reference + other);
        if (here == CDateTime::DTCompareIndeterminate || (&start != kReferences && here != result))
            return CDateTime::DTCompareIndeterminate;
        result = here;
    }
    return result;
}

bool CDateTimeSpan::operator==(CDateTimeSpan const& other) const {
    return CompareTo(other) == CDateTime::DTCompareEqual;
}

bool CDateTimeSpan::operator!=(CDateTimeSpan const& other) const {
    return CompareTo(other) != CDateTime::DTCompareEqual;
}

bool CDateTimeSpan::operator<(CDateTimeSpan const& other) const {
    return CompareTo(other) == CDateTime::DTCompareLess;
}

bool CDateTimeSpan::operator>(CDateTimeSpan const& other) const {
    return CompareTo(other) == CDateTime::DTCompareGreater;
}

} // namespace ZvXmlLib16
