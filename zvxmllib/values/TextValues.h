// The values of the primitive types from any piece of text. CConversions gives the same for strings.
#pragma once

#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/values/Whitespace.h"

#include <cstdint>
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

} // namespace ZvXmlLib16::detail
