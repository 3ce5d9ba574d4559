// Stops with a value of each kind that the debugger shows.
#include "zvxmllib/ZvXmlLib.h"
#include "zvxmllib/generated/ValueText.h"

using namespace ZvXmlLib16;

namespace {

int volatile s_stops = 0;

template <class... Values>
[[gnu::noinline]] void Stop(Values const&...) {
    s_stops = s_stops + 1;
}

} // namespace

int main() {
    SetGeneratorVersion(kLibraryMajorVersion, kLibraryMinorVersion);
    CDateTime const none;
    CDateTime const date =
        CConversions::dateFromString("2026-11-24Z", CWhitespaceUtils::WhitespaceRule_Collapse);
    CDateTime const moment = CConversions::datetimeFromString("-0044-03-15T10:00:01.25-01:30",
                                                              CWhitespaceUtils::WhitespaceRule_Collapse);
    CDateTimeSpan const span =
        CConversions::durationFromString("-P1Y2DT3.5S", CWhitespaceUtils::WhitespaceRule_Collapse);
    CDecimal const price("-12.050");
    CDecimal const zero("0");
    CBigInteger const large("-123456789012345678901234567890123456789");
    CBinaryData const bytes =
        CConversions::hexBinaryFromString("0102FF", CWhitespaceUtils::WhitespaceRule_Collapse);
    ZvVariant invalid;
    ZvVariant text;
    text.SetString("a \"b\"");
    ZvVariant number;
    number.SetUI1(200);
    ZvVariant nil;
    nil.SetNil(ItemType_i4);
    ZvVariant dated;
    dated.SetDate(date);
    CSmartPtr<Ci4Col> const numbers(new Ci4Col("n", "", 0, -1, nullptr, -1, -1, nullptr, nullptr, nullptr,
                                               nullptr, -1, -1, -1, CWhitespaceUtils::WhitespaceRule_Collapse,
                                               nullptr));
    numbers->Add(4);
    numbers->Add(5);
    CSmartPtr<Ci4Col> const nothing;
    generated::ValueText const shortText("short");
    generated::ValueText const longText("a text that has no room in place of a string");
    Stop(none, date, moment, span, price, zero, large, bytes, invalid, text, number, nil, dated, numbers,
         nothing, shortText, longText);
    return 0;
}
