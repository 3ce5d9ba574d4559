// The values of the primitive types from any piece of text, and their texts. CConversions gives the same for
// strings.
#pragma once

#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/values/text/Whitespace.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace ZvXmlLib16::detail {

using TextRule = CWhitespaceUtils::WhitespaceRule;

CBinaryData hexBinaryFromText(std::string_view text, TextRule rule);
CBinaryData base64BinaryFromText(std::string_view text, TextRule rule);
char i1FromText(std::string_view text, TextRule rule);
short i2FromText(std::string_view text, TextRule rule);
std::int32_t i4FromText(std::string_view text, TextRule rule);
long long i8FromText(std::string_view text, TextRule rule);
unsigned char ui1FromText(std::string_view text, TextRule rule);
unsigned short ui2FromText(std::string_view text, TextRule rule);
std::uint32_t ui4FromText(std::string_view text, TextRule rule);
unsigned long long ui8FromText(std::string_view text, TextRule rule);
float r4FromText(std::string_view text, TextRule rule);
double r8FromText(std::string_view text, TextRule rule);
char charFromText(std::string_view text, TextRule rule);
std::string stringFromText(std::string_view text, TextRule rule);
bool booleanFromText(std::string_view text, TextRule rule);
CDateTimeSpan durationFromText(std::string_view text, TextRule rule);
CDateTime yearMonthFromText(std::string_view text, TextRule rule);
CDateTime monthDayFromText(std::string_view text, TextRule rule);
unsigned short yearFromText(std::string_view text, TextRule rule);
unsigned char monthFromText(std::string_view text, TextRule rule);
unsigned char dayFromText(std::string_view text, TextRule rule);
CDateTime dateFromText(std::string_view text, TextRule rule);
CDateTime datetimeFromText(std::string_view text, TextRule rule);
CDateTime timeFromText(std::string_view text, TextRule rule);
CDecimal decimalFromText(std::string_view text, TextRule rule);
CBigInteger integerFromText(std::string_view text, TextRule rule);

// These take the place of the content of `buffer`, in the room that it has, and return it. A format is null,
// empty, or what CConversions says.
std::string const& hexBinaryToText(CBinaryData const& value, std::string& buffer);
std::string const& base64BinaryToText(CBinaryData const& value, std::string& buffer);
std::string const& i1ToText(char value, std::string& buffer);
std::string const& i2ToText(short value, std::string& buffer);
std::string const& i4ToText(std::int32_t value, std::string& buffer);
std::string const& i8ToText(long long value, std::string& buffer);
std::string const& ui1ToText(unsigned char value, std::string& buffer);
std::string const& ui2ToText(unsigned short value, std::string& buffer);
std::string const& ui4ToText(std::uint32_t value, std::string& buffer);
std::string const& ui8ToText(unsigned long long value, std::string& buffer);
std::string const& r4ToText(float value, char const* format, std::string& buffer);
std::string const& r8ToText(double value, char const* format, std::string& buffer);
std::string const& charToText(char value, std::string& buffer);
std::string const& booleanToText(bool value, std::string& buffer);
std::string const& durationToText(CDateTimeSpan const& value, std::string& buffer);
std::string const& yearToText(unsigned short value, std::string& buffer);
std::string const& monthToText(unsigned char value, std::string& buffer);
std::string const& dayToText(unsigned char value, std::string& buffer);
// Of all five types that a CDateTime is the value of.
std::string const& dateToText(CDateTime const& value, std::string& buffer);
std::string const& decimalToText(CDecimal const& value, char const* format, std::string& buffer);
std::string const& integerToText(CBigInteger const& value, std::string& buffer);

} // namespace ZvXmlLib16::detail
