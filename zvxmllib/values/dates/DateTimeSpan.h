// CDateTimeSpan, duration.
#pragma once

#include "zvxmllib/platform/Api.h"
#include "zvxmllib/values/dates/DateTime.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace ZvXmlLib16 {

// An XML Schema duration (XML Schema Part 2, 3.2.6), in the parts in which it was written: a hundred minutes
// stay a hundred minutes. One sign applies to all parts. An object belongs to one thread at a time.
class ZV_API CDateTimeSpan {
public:
    CDateTimeSpan() noexcept = default;
    CDateTimeSpan(CDateTimeSpan const& other) noexcept = default;
    // By its parts, without a minus sign. Nothing is carried from one part to another.
    CDateTimeSpan(std::uint32_t hours, unsigned long long minutes, unsigned long long seconds) noexcept;
    CDateTimeSpan(unsigned short years, std::uint32_t months, std::uint32_t days, std::uint32_t hours,
                  unsigned long long minutes, unsigned long long seconds) noexcept;
    CDateTimeSpan(unsigned short years, std::uint32_t months, std::uint32_t days, std::uint32_t hours,
                  unsigned long long minutes, unsigned long long seconds, unsigned short milliSeconds,
                  unsigned short microSeconds, unsigned short nanoSeconds) noexcept;
    virtual ~CDateTimeSpan();

    CDateTimeSpan& operator=(CDateTimeSpan const& other) noexcept = default;

    // These clear everything first, including the sign.
    void SetDateTimeSpan(std::uint32_t hours, unsigned long long minutes,
                         unsigned long long seconds) noexcept;
    void SetDateTimeSpan(unsigned short years, std::uint32_t months, std::uint32_t days, std::uint32_t hours,
                         unsigned long long minutes, unsigned long long seconds) noexcept;
    void SetDateTimeSpan(unsigned short years, std::uint32_t months, std::uint32_t days, std::uint32_t hours,
                         unsigned long long minutes, unsigned long long seconds, unsigned short milliSeconds,
                         unsigned short microSeconds, unsigned short nanoSeconds) noexcept;

    // The parts, each without a sign. Setters take any number, and carry nothing over.
    unsigned short GetYears() const noexcept { return m_years; }
    void SetYears(unsigned short years) noexcept { m_years = years; }
    std::uint32_t GetMonths() const noexcept { return m_months; }
    void SetMonths(std::uint32_t months) noexcept { m_months = months; }
    std::uint32_t GetDays() const noexcept { return m_days; }
    void SetDays(std::uint32_t days) noexcept { m_days = days; }
    std::uint32_t GetHours() const noexcept { return m_hours; }
    void SetHours(std::uint32_t hours) noexcept { m_hours = hours; }
    unsigned long long GetMinutes() const noexcept { return m_minutes; }
    void SetMinutes(unsigned long long minutes) noexcept { m_minutes = minutes; }
    unsigned long long GetSeconds() const noexcept { return m_seconds; }
    void SetSeconds(unsigned long long seconds) noexcept { m_seconds = seconds; }
    unsigned short GetMilliSeconds() const noexcept { return m_milliSeconds; }
    void SetMilliSeconds(unsigned short milliSeconds) noexcept { m_milliSeconds = milliSeconds; }
    unsigned short GetMicroSeconds() const noexcept { return m_microSeconds; }
    void SetMicroSeconds(unsigned short microSeconds) noexcept { m_microSeconds = microSeconds; }
    unsigned short GetNanoSeconds() const noexcept { return m_nanoSeconds; }
    void SetNanoSeconds(unsigned short nanoSeconds) noexcept { m_nanoSeconds = nanoSeconds; }

    // The sign of the whole duration.
    bool IsNegative() const noexcept { return m_isNegative; }
    void Negate() noexcept { m_isNegative = !m_isNegative; }
    // The same magnitude with a minus sign, whatever the sign of this one.
    CDateTimeSpan GetAsNegative() const noexcept;

    // Parts that are 0 are left out; a zero duration is "P", which ParseXSDDuration refuses.
    std::string ToString() const;
    // Replaces the content of `text` by ToString(), reusing its memory. Returns `text`.
    std::string& Print(std::string& text) const;
    // Throws CZvInvalidValueException, also for a null pointer, and the object must then be set again. A text
    // given by its length ends at its first NUL.
    void ParseXSDDuration(char const* text);
    void ParseXSDDuration(std::string_view text);

    // The partial order of XML Schema Part 2, 3.2.6.2: by the sums with four reference dates.
    CDateTime::DTCompareResult CompareTo(CDateTimeSpan const& other) const;
    bool operator==(CDateTimeSpan const& other) const;
    bool operator!=(CDateTimeSpan const& other) const;
    bool operator<(CDateTimeSpan const& other) const;
    bool operator>(CDateTimeSpan const& other) const;

private:
    void Clear() noexcept;
    char* PrintTo(char* at) const noexcept;
    bool SetDesignated(char designator, unsigned long long number, int& state) noexcept;

    unsigned short m_years = 0;
    std::uint32_t m_months = 0;
    std::uint32_t m_days = 0;
    std::uint32_t m_hours = 0;
    unsigned long long m_minutes = 0;
    unsigned long long m_seconds = 0;
    unsigned short m_milliSeconds = 0;
    unsigned short m_microSeconds = 0;
    unsigned short m_nanoSeconds = 0;
    bool m_isNegative = false;
};

} // namespace ZvXmlLib16
