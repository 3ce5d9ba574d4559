// OctetInput, the cursor over a document, and the numbers of X.891 Annex C on their way in. Header only.
#pragma once

#include "zvxmllib/fastinfoset/Failures.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace ZvXmlLib16 {

// The numbers of a class that has ReadOctet(). They begin in an octet that has already been read; the bits
// before them do not matter. Bits are counted from 1, the highest. Each function throws CZvException at the
// end of the input.
template <class Derived>
class OctetNumbers {
public:
    // Integers from 1, on the second bit (C.25), the third (C.27) and the fourth (C.28).
    std::uint32_t ReadInteger2(std::uint8_t octet) {
        if ((octet & 0x40) == 0)
            return (octet & 0x3FU) + 1;
        if ((octet & 0x20) == 0)
            return ReadTail(octet & 0x1FU, 1) + 65;
        if ((octet & 0x10) == 0)
            return ReadTail(octet & 0x0FU, 2) + 8257;
        FailIntegerForm("second");
    }
    std::uint32_t ReadInteger3(std::uint8_t octet) {
        if ((octet & 0x20) == 0)
            return (octet & 0x1FU) + 1;
        switch (octet & 0x18) {
        case 0x00:
            return ReadTail(octet & 0x07U, 1) + 33;
        case 0x08:
            return ReadTail(octet & 0x07U, 2) + 2081;
        case 0x10:
            return ReadLargest() + 526369;
        default:
            FailIntegerForm("third");
        }
    }
    std::uint32_t ReadInteger4(std::uint8_t octet) {
        if ((octet & 0x10) == 0)
            return (octet & 0x0FU) + 1;
        switch (octet & 0x0C) {
        case 0x00:
            return ReadTail(octet & 0x03U, 1) + 17;
        case 0x04:
            return ReadTail(octet & 0x03U, 2) + 1041;
        case 0x08:
            return ReadLargest() + 263185;
        default:
            FailIntegerForm("fourth");
        }
    }

    // Lengths of octet strings, on the second bit (C.22), the fifth (C.23) and the seventh (C.24): in 64
    // bits, since the largest numbers and what is added to them leave 32.
    std::uint64_t ReadLength2(std::uint8_t octet) {
        if ((octet & 0x40) == 0)
            return (octet & 0x3FU) + 1;
        switch (octet & 0x7F) {
        case 0x40:
            return std::uint64_t{Input().ReadOctet()} + 65;
        case 0x60:
            return ReadNumber32() + 321;
        default:
            FailLengthForm("second");
        }
    }
    std::uint64_t ReadLength5(std::uint8_t octet) {
        if ((octet & 0x08) == 0)
            return (octet & 0x07U) + 1;
        switch (octet & 0x0F) {
        case 0x08:
            return std::uint64_t{Input().ReadOctet()} + 9;
        case 0x0C:
            return ReadNumber32() + 265;
        default:
            FailLengthForm("fifth");
        }
    }
    std::uint64_t ReadLength7(std::uint8_t octet) {
        if ((octet & 0x02) == 0)
            return (octet & 0x01U) + 1;
        return (octet & 0x01) == 0 ? std::uint64_t{Input().ReadOctet()} + 3 : ReadNumber32() + 259;
    }

    // The number of items of a sequence (C.21), which begins an octet of its own.
    std::uint32_t ReadSequenceLength() {
        std::uint8_t const octet = Input().ReadOctet();
        return octet < 0x80 ? octet + 1U : ReadTail(octet & 0x0FU, 2) + 129;
    }

private:
    Derived& Input() noexcept { return static_cast<Derived&>(*this); }
    // `high` and so many octets behind it.
    std::uint32_t ReadTail(std::uint32_t high, unsigned octets) {
        for (; octets != 0; --octets)
            high = high << 8 | Input().ReadOctet();
        return high;
    }
    // 20 bits in three octets.
    std::uint32_t ReadLargest() { return ReadTail(0, 3) & 0xFFFFFU; }
    std::uint64_t ReadNumber32() { return ReadTail(0, 4); }
};

// Only this class reads the input, and it never goes beyond its end: each function throws CZvException there.
class OctetInput : public OctetNumbers<OctetInput> {
public:
    OctetInput() = default;
    OctetInput(unsigned char const* data, std::size_t length) noexcept : m_next(data), m_end(data + length) {}

    std::size_t GetLeft() const noexcept { return static_cast<std::size_t>(m_end - m_next); }

    std::uint8_t ReadOctet() {
        if (m_next == m_end)
            FailInputEnd();
        return *m_next++;
    }
    std::string_view ReadOctets(std::uint64_t length) {
        if (length > GetLeft())
            FailInputEnd();
        char const* const begin = reinterpret_cast<char const*>(m_next);
        m_next += length;
        return {begin, static_cast<std::size_t>(length)};
    }

private:
    unsigned char const* m_next = nullptr;
    unsigned char const* m_end = nullptr;
};

} // namespace ZvXmlLib16
