// OctetOutput, the numbers of X.891 Annex C on their way out. Header only.
#pragma once

#include "zvxmllib/streams/BinaryStream.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <new>
#include <string_view>

namespace ZvXmlLib16 {

// Numbers begin in an octet whose first bits are given as `current`. Bits are counted from 1, the highest. A
// sink takes an octet, or an address and a length.
template <class Sink>
class BasicOctetOutput {
public:
    // `sink` is borrowed and outlives the output.
    explicit BasicOctetOutput(Sink& sink) noexcept : m_sink(sink) {}

    void WriteOctet(unsigned octet) { m_sink.Append(static_cast<unsigned char>(octet)); }

    void WriteOctets(std::string_view octets) {
        if (octets.size() > std::numeric_limits<std::uint32_t>::max())
            throw std::bad_alloc(); // more than the sink takes
        m_sink.Append(reinterpret_cast<unsigned char const*>(octets.data()),
                      static_cast<std::uint32_t>(octets.size()));
    }

    // Integers from 1 to 2^20 on the second bit (C.25), the third (C.27) and the fourth (C.28).
    void WriteIntegerBit2(unsigned current, std::uint32_t value) {
        if (value <= 64)
            return WriteOctet(current | (value - 1));
        if (value <= 8256)
            return WriteTail<1>(current | 0x40U, value - 65);
        WriteTail<2>(current | 0x60U, value - 8257);
    }
    void WriteIntegerBit3(unsigned current, std::uint32_t value) {
        if (value <= 32)
            return WriteOctet(current | (value - 1));
        if (value <= 2080)
            return WriteTail<1>(current | 0x20U, value - 33);
        if (value <= 526368)
            return WriteTail<2>(current | 0x28U, value - 2081);
        WriteTail<3>(current | 0x30U, value - 526369);
    }
    void WriteIntegerBit4(unsigned current, std::uint32_t value) {
        if (value <= 16)
            return WriteOctet(current | (value - 1));
        if (value <= 1040)
            return WriteTail<1>(current | 0x10U, value - 17);
        if (value <= 263184)
            return WriteTail<2>(current | 0x14U, value - 1041);
        WriteTail<3>(current | 0x18U, value - 263185);
    }

    // The length of an octet string that is not empty, on the second bit (C.22).
    void WriteLengthBit2(unsigned current, std::size_t length) {
        if (length <= 64)
            return WriteOctet(current | (static_cast<unsigned>(length) - 1));
        if (length <= 320)
            return WriteTail<1>(current | 0x40U, static_cast<std::uint32_t>(length) - 65);
        WriteLargeLength(current | 0x60U, length, 321);
    }
    // The same with the octets, on the fifth bit (C.23) and the seventh (C.24).
    void WriteOctetsBit5(unsigned current, std::string_view octets) {
        std::size_t const length = octets.size();
        if (length <= 8)
            WriteOctet(current | (static_cast<unsigned>(length) - 1));
        else if (length <= 264)
            WriteTail<1>(current | 0x08U, static_cast<std::uint32_t>(length) - 9);
        else
            WriteLargeLength(current | 0x0CU, length, 265);
        WriteOctets(octets);
    }
    void WriteOctetsBit7(unsigned current, std::string_view octets) {
        std::size_t const length = octets.size();
        if (length <= 2)
            WriteOctet(current | (static_cast<unsigned>(length) - 1));
        else if (length <= 258)
            WriteTail<1>(current | 0x02U, static_cast<std::uint32_t>(length) - 3);
        else
            WriteLargeLength(current | 0x03U, length, 259);
        WriteOctets(octets);
    }

private:
    // The number has so many whole octets, and what is more goes to the lowest bits of the first one.
    template <unsigned octets>
    void WriteTail(unsigned first, std::uint32_t number) {
        WriteOctet(octets == 4 ? first : first | number >> (8 * octets % 32));
        for (unsigned left = octets; left != 0; --left)
            WriteOctet(number >> 8 * (left - 1) & 0xFF);
    }

    // What does not fit a length of 32 bits does not fit the sink.
    void WriteLargeLength(unsigned current, std::size_t length, std::uint32_t least) {
        if (length - least > std::numeric_limits<std::uint32_t>::max())
            throw std::bad_alloc();
        WriteTail<4>(current, static_cast<std::uint32_t>(length - least));
    }

    Sink& m_sink;
};

using OctetOutput = BasicOctetOutput<CBinaryStream>;

} // namespace ZvXmlLib16
