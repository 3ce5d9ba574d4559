#include "zvxmllib/values/variant/LexicalForm.h"

#include "zvxmllib/values/text/NumberText.h"

#include <algorithm>
#include <cstdint>

namespace ZvXmlLib16::detail {

namespace {

// What is left of a text. Each operation takes what it names from the front, or nothing and answers false.
class Scan {
public:
    explicit Scan(std::string_view text) noexcept : m_rest(text) {}

    bool IsAtEnd() const noexcept { return m_rest.empty(); }
    std::string_view GetRest() const noexcept { return m_rest; }
    bool Take(char c) noexcept {
        bool const isNext = !m_rest.empty() && m_rest.front() == c;
        if (isNext)
            m_rest.remove_prefix(1);
        return isNext;
    }
    bool TakeSign() noexcept { return Take('-') || Take('+'); }
    // Returns their count.
    std::size_t TakeDigits() noexcept {
        std::size_t count = 0;
        while (count < m_rest.size() && IsDigit(m_rest[count]))
            ++count;
        m_rest.remove_prefix(count);
        return count;
    }
    bool TakeTwoDigits(unsigned& number) noexcept {
        if (m_rest.size() < 2 || !IsDigit(m_rest[0]) || !IsDigit(m_rest[1]))
            return false;
        number = static_cast<unsigned>(m_rest[0] - '0') * 10 + static_cast<unsigned>(m_rest[1] - '0');
        m_rest.remove_prefix(2);
        return true;
    }
    bool TakeTwoDigits() noexcept {
        unsigned number = 0;
        return TakeTwoDigits(number);
    }

private:
    std::string_view m_rest;
};

// [0-9]+(\.[0-9]*)?|\.[0-9]+
bool TakeUnsignedDecimal(Scan& scan) noexcept {
    std::size_t const whole = scan.TakeDigits();
    std::size_t const places = scan.Take('.') ? scan.TakeDigits() : 0;
    return whole + places != 0;
}

bool IsInteger(std::string_view text, bool mayBeNegative) noexcept {
    Scan scan(text);
    bool const isNegative = scan.Take('-');
    if (!isNegative)
        scan.Take('+');
    std::string_view const digits = scan.GetRest();
    if (scan.TakeDigits() == 0 || !scan.IsAtEnd())
        return false;
    return !isNegative || mayBeNegative || digits.find_first_not_of('0') == std::string_view::npos;
}

bool IsDecimal(std::string_view text) noexcept {
    Scan scan(text);
    scan.TakeSign();
    return TakeUnsignedDecimal(scan) && scan.IsAtEnd();
}

bool IsReal(std::string_view text) noexcept {
    if (text == "INF" || text == "-INF" || text == "NaN")
        return true;
    Scan scan(text);
    scan.TakeSign();
    if (!TakeUnsignedDecimal(scan))
        return false;
    if (scan.Take('e') || scan.Take('E')) {
        scan.TakeSign();
        if (scan.TakeDigits() == 0)
            return false;
    }
    return scan.IsAtEnd();
}

bool IsHexDigit(char c) noexcept {
    return IsDigit(c) || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}

bool IsHexBinary(std::string_view text) noexcept {
    return text.size() % 2 == 0 && std::all_of(text.begin(), text.end(), IsHexDigit);
}

int Base64Value(char c) noexcept {
    if (c >= 'A' && c <= 'Z')
        return c - 'A';
    if (c >= 'a' && c <= 'z')
        return c - 'a' + 26;
    if (IsDigit(c))
        return c - '0' + 52;
    return c == '+' ? 62 : c == '/' ? 63 : -1;
}

// Groups of four with single blanks between characters, padding at the end of the last one, and zero in the
// bits that padding leaves over.
bool IsBase64(std::string_view text) noexcept {
    std::size_t characters = 0;
    std::size_t padding = 0;
    int last = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == ' ') {
            if (i == 0 || i + 1 == text.size() || text[i + 1] == ' ')
                return false;
            continue;
        }
        ++characters;
        if (text[i] == '=') {
            ++padding;
            continue;
        }
        last = Base64Value(text[i]);
        if (last < 0 || padding != 0)
            return false;
    }
    int const spareBits = padding == 1 ? 0x3 : 0xF;
    return characters % 4 == 0 && padding <= 2 && (padding == 0 || (last & spareBits) == 0);
}

// The class keeps the low 16 bits of what is more; other parts it refuses.
bool FitsInYears(std::string_view digits) noexcept {
    digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
    std::uint16_t years = 0;
    return digits.empty() || ReadPlainInteger(digits, years);
}

// nYnMnDTnHnMnS behind the P: parts in order, one at least, and one behind the T.
bool IsDuration(std::string_view text) noexcept {
    Scan scan(text);
    scan.Take('-');
    if (!scan.Take('P') || scan.IsAtEnd())
        return false;
    std::string_view designators = "YMD";
    bool isInTime = false;
    while (!scan.IsAtEnd()) {
        if (!isInTime && scan.Take('T')) {
            isInTime = true;
            designators = "HMS";
            if (scan.IsAtEnd())
                return false;
        }
        std::string_view number = scan.GetRest();
        number = number.substr(0, scan.TakeDigits());
        if (number.empty() || (scan.GetRest().substr(0, 1) == "Y" && !FitsInYears(number)))
            return false;
        bool const hasPlaces = scan.Take('.');
        if (hasPlaces && scan.TakeDigits() == 0)
            return false;
        std::size_t const part =
            scan.IsAtEnd() ? std::string_view::npos : designators.find(scan.GetRest().front());
        if (part == std::string_view::npos || (hasPlaces && designators[part] != 'S'))
            return false;
        scan.Take(designators[part]);
        designators.remove_prefix(part + 1);
    }
    return true;
}

// Z, or an offset of fourteen hours at most; also nothing.
bool TakeZone(Scan& scan) noexcept {
    if (scan.IsAtEnd() || scan.Take('Z'))
        return true;
    unsigned hour = 0;
    unsigned minute = 0;
    return scan.TakeSign() && scan.TakeTwoDigits(hour) && scan.Take(':') && scan.TakeTwoDigits(minute) &&
           minute < 60 && hour * 60 + minute <= 14 * 60;
}

bool TakeYear(Scan& scan) noexcept {
    scan.Take('-');
    std::string_view const digits = scan.GetRest();
    std::size_t const count = scan.TakeDigits();
    return count == 4 || (count > 4 && digits.front() != '0');
}

bool TakeDate(Scan& scan) noexcept {
    return TakeYear(scan) && scan.Take('-') && scan.TakeTwoDigits() && scan.Take('-') && scan.TakeTwoDigits();
}

// hh:mm:ss with places, in range, or 24:00:00 with no others than zeros.
bool TakeTime(Scan& scan) noexcept {
    unsigned hour = 0;
    unsigned minute = 0;
    unsigned second = 0;
    if (!scan.TakeTwoDigits(hour) || !scan.Take(':') || !scan.TakeTwoDigits(minute) || !scan.Take(':') ||
        !scan.TakeTwoDigits(second))
        return false;
    std::string_view places;
    if (scan.Take('.')) {
        places = scan.GetRest();
        places = places.substr(0, scan.TakeDigits());
        if (places.empty())
            return false;
    }
    if (hour == 24)
        return minute == 0 && second == 0 && places.find_first_not_of('0') == std::string_view::npos;
    return hour < 24 && minute < 60 && second < 60;
}

bool IsDate(ItemType type, std::string_view text) noexcept {
    Scan scan(text);
    switch (type) {
    case ItemType_datetime:
        return TakeDate(scan) && scan.Take('T') && TakeTime(scan) && TakeZone(scan) && scan.IsAtEnd();
    case ItemType_date:
        return TakeDate(scan) && TakeZone(scan) && scan.IsAtEnd();
    case ItemType_time:
        return TakeTime(scan) && TakeZone(scan) && scan.IsAtEnd();
    case ItemType_yearMonth:
        return TakeYear(scan) && scan.Take('-') && scan.TakeTwoDigits() && TakeZone(scan) && scan.IsAtEnd();
    case ItemType_monthDay:
        return scan.Take('-') && scan.Take('-') && scan.TakeTwoDigits() && scan.Take('-') &&
               scan.TakeTwoDigits() && TakeZone(scan) && scan.IsAtEnd();
    case ItemType_year:
        return scan.TakeTwoDigits() && scan.TakeTwoDigits() && scan.IsAtEnd();
    case ItemType_month:
        return scan.Take('-') && scan.Take('-') && scan.TakeTwoDigits() && scan.IsAtEnd();
    default: // a day
        return scan.Take('-') && scan.Take('-') && scan.Take('-') && scan.TakeTwoDigits() && scan.IsAtEnd();
    }
}

} // namespace

bool HasLexicalForm(ItemType type, std::string_view text) noexcept {
    switch (type) {
    case ItemType_hexBinary:
        return IsHexBinary(text);
    case ItemType_base64Binary:
        return IsBase64(text);
    case ItemType_i1:
    case ItemType_i2:
    case ItemType_i4:
    case ItemType_i8:
    case ItemType_integer:
        return IsInteger(text, true);
    case ItemType_ui1:
    case ItemType_ui2:
    case ItemType_ui4:
    case ItemType_ui8:
        return IsInteger(text, false);
    case ItemType_r4:
    case ItemType_r8:
        return IsReal(text);
    case ItemType_decimal:
        return IsDecimal(text);
    case ItemType_boolean:
        return text == "true" || text == "false" || text == "1" || text == "0";
    case ItemType_duration:
        return IsDuration(text);
    case ItemType_datetime:
    case ItemType_date:
    case ItemType_time:
    case ItemType_yearMonth:
    case ItemType_monthDay:
    case ItemType_year:
    case ItemType_month:
    case ItemType_day:
        return IsDate(type, text);
    default:
        return true;
    }
}

std::string_view ZoneOf(std::string_view text) noexcept {
    constexpr std::size_t kOffsetLength = 6; // +hh:mm
    std::size_t const length = text.empty() || text.back() == 'Z' ? 1 : kOffsetLength;
    if (text.size() <= length)
        return {};
    std::string_view const zone = text.substr(text.size() - length);
    Scan scan(zone);
    return TakeZone(scan) && scan.IsAtEnd() ? zone : std::string_view();
}

std::size_t CountDecimalPlaces(std::string_view text) noexcept {
    std::size_t const point = text.find('.');
    if (point == std::string_view::npos)
        return 0;
    std::size_t const last = text.find_last_not_of('0');
    return last - point; // the point itself is no zero
}

} // namespace ZvXmlLib16::detail
