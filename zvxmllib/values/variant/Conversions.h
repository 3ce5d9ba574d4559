// CConversions, one pair of functions for each primitive type: its lexical form to and from the value.
#pragma once

#include "zvxmllib/foundation/Enumerations.h"
#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/platform/Api.h"
#include "zvxmllib/values/text/Whitespace.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace ZvXmlLib16 {

// Text is single-byte text in the local encoding; the locale of the process makes no difference. Each
// FromString applies the whitespace rule, parses and checks the range. It throws CZvInvalidValueException for
// a text that is not a value of the type, and CZvException for a rule out of range; binary forms throw what
// CBinaryData throws. Thread-safe.
class ZV_API CConversions {
public:
    // What becomes of white space ahead of parsing.
    using WhitespaceRule = CWhitespaceUtils::WhitespaceRule;

    CConversions() = delete;

    // Two digits for each byte, in upper case; base64 on one line.
    static std::string hexBinaryToString(CBinaryData const& value);
    static CBinaryData hexBinaryFromString(std::string const& value, WhitespaceRule rule);
    static std::string base64BinaryToString(CBinaryData const& value);
    static CBinaryData base64BinaryFromString(std::string const& value, WhitespaceRule rule);

    // A sign and white space are accepted before the digits. The unsigned types accept a minus sign and
    // negate modulo their width (ui1 and ui2 modulo 32 bits, then they check their range).
    static std::string i1ToString(char value); // a signed number
    static char i1FromString(std::string const& value, WhitespaceRule rule);
    static std::string i2ToString(short value);
    static short i2FromString(std::string const& value, WhitespaceRule rule);
    static std::string i4ToString(std::int32_t value);
    static std::int32_t i4FromString(std::string const& value, WhitespaceRule rule);
    static std::string i8ToString(long long value);
    static long long i8FromString(std::string const& value, WhitespaceRule rule);
    static std::string ui1ToString(unsigned char value);
    static unsigned char ui1FromString(std::string const& value, WhitespaceRule rule);
    static std::string ui2ToString(unsigned short value);
    static unsigned short ui2FromString(std::string const& value, WhitespaceRule rule);
    static std::string ui4ToString(std::uint32_t value);
    static std::uint32_t ui4FromString(std::string const& value, WhitespaceRule rule);
    static std::string ui8ToString(unsigned long long value);
    static unsigned long long ui8FromString(std::string const& value, WhitespaceRule rule);

    // "NaN", "INF", "-INF", otherwise 7 or 16 significant digits, or the given printf format for a double;
    // the text is cut to 31 (r4) or 47 (r8) characters. A text beyond the range reads as infinity or 0.
    static std::string r4ToString(float value);
    static std::string r4ToString(float value, std::string const& format);
    static float r4FromString(std::string const& value, WhitespaceRule rule);
    static std::string r8ToString(double value);
    static std::string r8ToString(double value, std::string const& format);
    static double r8FromString(std::string const& value, WhitespaceRule rule);

    // Exactly one byte.
    static std::string charToString(char value);
    static char charFromString(std::string const& value, WhitespaceRule rule);
    static std::string stringToString(std::string const& value);
    static std::string stringFromString(std::string const& value, WhitespaceRule rule);
    // "true" and "false" in any case, "1", "0".
    static std::string booleanToString(bool value);
    static bool booleanFromString(std::string const& value, WhitespaceRule rule);

    // The texts are those of the value classes, which also document what they read. Of gYear, gMonth and gDay
    // only the number is kept: a zone is read and dropped, and a negative year becomes its 16-bit pattern.
    static std::string durationToString(CDateTimeSpan const& value);
    static CDateTimeSpan durationFromString(std::string const& value, WhitespaceRule rule);
    static std::string yearMonthToString(CDateTime const& value);
    static CDateTime yearMonthFromString(std::string const& value, WhitespaceRule rule);
    static std::string monthDayToString(CDateTime const& value);
    static CDateTime monthDayFromString(std::string const& value, WhitespaceRule rule);
    static std::string yearToString(unsigned short value);
    static unsigned short yearFromString(std::string const& value, WhitespaceRule rule);
    static std::string monthToString(unsigned char value);
    static unsigned char monthFromString(std::string const& value, WhitespaceRule rule);
    static std::string dayToString(unsigned char value);
    static unsigned char dayFromString(std::string const& value, WhitespaceRule rule);
    static std::string dateToString(CDateTime const& value);
    static CDateTime dateFromString(std::string const& value, WhitespaceRule rule);
    static std::string datetimeToString(CDateTime const& value);
    static CDateTime datetimeFromString(std::string const& value, WhitespaceRule rule);
    static std::string timeToString(CDateTime const& value);
    static CDateTime timeFromString(std::string const& value, WhitespaceRule rule);
    // A non-empty format is the number of fraction digits to round to.
    static std::string decimalToString(CDecimal const& value);
    static std::string decimalToString(CDecimal const& value, std::string const& format);
    static CDecimal decimalFromString(std::string const& value, WhitespaceRule rule);
    static std::string integerToString(CBigInteger const& value);
    static CBigInteger integerFromString(std::string const& value, WhitespaceRule rule);
};

// True if a strict context would read this text, which its white space rule has been applied to, as a value
// of the type: XML Schema Part 2 gives it to the type, and the value class holds it without loss. False for a
// type that has no text. The conversions above take more.
ZV_API bool IsValidText(ItemType type, std::string_view text);

} // namespace ZvXmlLib16
