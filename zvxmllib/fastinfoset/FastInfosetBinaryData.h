// CFastInfosetBinaryData, the octets of a value under an encoding algorithm (X.891, clause 10).
#pragma once

#include "zvxmllib/values/binary/BinaryData.h"

#include <cstdint>
#include <string>

namespace ZvXmlLib16 {

// Algorithms by their numbers: 1 hexadecimal, 2 base64, 3 short, 4 int, 5 long, 6 boolean, 7 float, 8 double,
// 9 uuid (32 hexadecimal digits), 10 cdata.
class CFastInfosetBinaryData : public CBinaryData {
public:
    CFastInfosetBinaryData() noexcept = default;
    explicit CFastInfosetBinaryData(CBinaryData const& data) noexcept : CBinaryData(data) {}
    CFastInfosetBinaryData(unsigned char* const data, std::uint32_t length, bool takeOwnership)
        : CBinaryData(data, length, takeOwnership) {}
    explicit CFastInfosetBinaryData(char const* text) : CBinaryData(text) {}
    CFastInfosetBinaryData(CFastInfosetBinaryData const& other) noexcept = default;
    CFastInfosetBinaryData& operator=(CFastInfosetBinaryData const& other) noexcept = default;
    ~CFastInfosetBinaryData() override;

    // The octets of one value. Throws CZvException for an unknown algorithm, and what the conversion of the
    // type throws; the data is empty then.
    void SetAsEncodedString(std::uint32_t algorithm, char const* text);
    // The values with a blank between two of them; empty for no data. Throws CZvException for octets that are
    // not values of the algorithm, for an unknown one, and for cdata, which is plain text.
    std::string GetAsString(std::uint32_t algorithm) const;
};

} // namespace ZvXmlLib16
