#include "zvxmllib/fastinfoset/FastInfosetBinaryData.h"

#include "zvxmllib/fastinfoset/EncodedValues.h"

namespace ZvXmlLib16 {

CFastInfosetBinaryData::~CFastInfosetBinaryData() = default;

void CFastInfosetBinaryData::SetAsEncodedString(std::uint32_t algorithm, char const* text) {
    Clear();
    std::string octets;
    AppendEncodedOctets(algorithm, text == nullptr ? "" : text, octets);
    Append(reinterpret_cast<unsigned char const*>(octets.data()), static_cast<std::uint32_t>(octets.size()));
}

std::string CFastInfosetBinaryData::GetAsString(std::uint32_t algorithm) const {
    std::string text;
    if (GetLength() != 0)
        AppendEncodedValues(algorithm, {reinterpret_cast<char const*>(GetData()), GetLength()}, text);
    return text;
}

} // namespace ZvXmlLib16
