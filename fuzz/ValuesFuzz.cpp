// Values of each type, made of the input's octets: what is printed reads as the value.
#include "Fuzz.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

namespace {

class Values {
public:
    Values(unsigned char const* data, std::size_t size) : m_input(data, size) {}

    ZvVariant Next() {
        ZvVariant value;
        switch (m_input.ConsumeIntegralInRange<int>(0, 8)) {
        case 0:
            SetInteger(value);
            break;
        case 1:
            value.SetR4(Real<float, std::uint32_t>());
            break;
        case 2:
            value.SetR8(Real<double, std::uint64_t>());
            break;
        case 3:
            value.SetDecimal(Decimal());
            break;
        case 4:
            value.SetInteger(Whole());
            break;
        case 5:
            value.SetHexBinary(Binary());
            break;
        case 6:
            value.SetBase64Binary(Binary());
            break;
        case 7:
            value.SetDuration(Duration());
            break;
        default:
            SetDate(value);
        }
        return value;
    }

    bool IsAtEnd() { return m_input.remaining_bytes() == 0; }

private:
    template <class Integer>
    Integer Number() {
        return m_input.ConsumeIntegral<Integer>();
    }
    template <class Integer>
    Integer UpTo(Integer last) {
        return m_input.ConsumeIntegralInRange<Integer>(0, last);
    }

    void SetInteger(ZvVariant& value) {
        switch (UpTo(9)) {
        case 0:
            return value.SetI1(Number<char>());
        case 1:
            return value.SetI2(Number<short>());
        case 2:
            return value.SetI4(Number<std::int32_t>());
        case 3:
            return value.SetI8(Number<long long>());
        case 4:
            return value.SetUI1(Number<unsigned char>());
        case 5:
            return value.SetUI2(Number<unsigned short>());
        case 6:
            return value.SetUI4(Number<std::uint32_t>());
        case 7:
            return value.SetUI8(Number<unsigned long long>());
        case 8:
            return value.SetBoolean(m_input.ConsumeBool());
        default:
            return value.SetYear(Number<unsigned short>());
        }
    }

    // Of as many digits as the text keeps; all others come back as the nearest number of these.
    template <class Float, class Bits>
    Float Real() {
        Bits const bits = Number<Bits>();
        Float number;
        std::memcpy(&number, &bits, sizeof(number));
        if (!std::isfinite(number))
            return number;
        int const digits = sizeof(Float) == sizeof(float) ? 7 : 16;
        return static_cast<Float>(std::strtod(FormatString("%.*g", digits, double{number}).c_str(), nullptr));
    }

    CBigInteger Whole() {
        CBigInteger number(Number<long long>());
        for (int factors = UpTo(12); factors > 0; --factors)
            number = number * CBigInteger(Number<unsigned long long>()) + CBigInteger(Number<int>());
        return number;
    }

    // As many fraction digits as are kept.
    CDecimal Decimal() {
        CDecimal number(Whole());
        int const places = UpTo(static_cast<int>(CDecimal::GetMaxDecimalPlaces()));
        return number / CDecimal(CBigInteger::Pow10(static_cast<unsigned>(places))) + CDecimal(UpTo(1));
    }

    CBinaryData Binary() {
        std::string const octets = m_input.ConsumeBytesAsString(UpTo<std::size_t>(64));
        CBinaryData data;
        data.SetBuffer(reinterpret_cast<unsigned char const*>(octets.data()),
                       static_cast<std::uint32_t>(octets.size()));
        return data;
    }

    CDateTimeSpan Duration() {
        CDateTimeSpan span(Number<unsigned short>(), Number<std::uint32_t>(), Number<std::uint32_t>(),
                           Number<std::uint32_t>(), Number<unsigned long long>(),
                           Number<unsigned long long>(), UpTo<unsigned short>(999), UpTo<unsigned short>(999),
                           UpTo<unsigned short>(999));
        if (m_input.ConsumeBool())
            span.Negate();
        return span;
    }

    void SetDate(ZvVariant& value) {
        int const kind = UpTo(6);
        auto const year = static_cast<short>((m_input.ConsumeBool() ? 1 : -1) * (1 + UpTo<int>(9998)));
        auto const month = static_cast<unsigned char>(1 + UpTo(11));
        auto const day = static_cast<unsigned char>(1 + UpTo(27));
        CDateTime date;
        if (kind == 0)
            return value.SetMonth(month);
        if (kind == 1)
            return value.SetDay(day);
        if (kind == 2)
            date.SetGYearMonth(year, month);
        else if (kind == 3)
            date.SetGMonthDay(month, day);
        else if (kind == 4)
            date.SetDate(year, month, day);
        else if (kind == 5)
            date.SetDateTime(year, month, day, UpTo<unsigned char>(23), UpTo<unsigned char>(59),
                             UpTo<unsigned char>(59), UpTo<unsigned short>(999), UpTo<unsigned short>(999),
                             UpTo<unsigned short>(999));
        else
            date.SetTime(UpTo<unsigned char>(23), UpTo<unsigned char>(59), UpTo<unsigned char>(59));
        SetZone(date);
        void (ZvVariant::*const setters[])(CDateTime const&) = {&ZvVariant::SetYearMonth,
                                                                &ZvVariant::SetMonthDay, &ZvVariant::SetDate,
                                                                &ZvVariant::SetDateTime, &ZvVariant::SetTime};
        (value.*setters[kind - 2])(date);
    }

    void SetZone(CDateTime& date) {
        int const zone = UpTo(2);
        if (zone == 1)
            date.SetUTC();
        else if (zone == 2)
            date.SetTimeZone(static_cast<short>(UpTo(46) - 23), UpTo<unsigned char>(59));
    }

    FuzzedDataProvider m_input;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    Values values(data, size);
    do
        RequireSameAgain(values.Next());
    while (!values.IsAtEnd());
    return 0;
}
