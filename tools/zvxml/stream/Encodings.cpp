// Encodings of XML text that the parser does not know.
#include "Encodings.h"

#include "zvxmllib/platform/CodePage.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

using namespace ZvXmlLib16;

namespace zvxml {

namespace {

constexpr char16_t kMalformed = 0xFFFD;
constexpr int kTwoBytes = -2;
constexpr std::uint32_t kEucJp = 51932;
constexpr unsigned char kThreeBytes = 0x8F; // in EUC-JP, ahead of two more

struct Page {
    std::string_view name; // in lower case
    std::uint32_t number;
};
constexpr std::array kPages = {Page{"koi8-r", 20866}, Page{"koi8-u", 21866}, Page{"shift_jis", 932},
                               Page{"gbk", 936},      Page{"gb2312", 936},   Page{"euc-kr", 949},
                               Page{"big5", 950},     Page{"euc-jp", kEucJp}};

// "windows-1252" and "ISO-8859-15" say their number.
std::uint32_t PageOf(std::string name) {
    for (char& c : name)
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    for (Page const& page : kPages)
        if (name == page.name)
            return page.number;
    for (Page const& family : {Page{"windows-125", 1250}, Page{"iso-8859-", 28590}}) {
        std::string const digits = name.substr(0, family.name.size()) == family.name
                                       ? name.substr(family.name.size())
                                       : std::string();
        if (!digits.empty() && digits.size() <= 2 &&
            digits.find_first_not_of("0123456789") == std::string::npos)
            return family.number + static_cast<std::uint32_t>(std::stoul(digits));
    }
    return 0;
}

// -1 for bytes that are no character.
int CharacterOf(std::uint32_t page, std::string_view bytes) {
    std::u16string const units = platform::CodePageToUtf16(page, bytes);
    return units.size() == 1 && units[0] != kMalformed ? units[0] : -1;
}

int XMLCALL Convert(void* data, char const* bytes) {
    std::uint32_t const page = *static_cast<std::uint32_t*>(data);
    bool const isThree = page == kEucJp && static_cast<unsigned char>(*bytes) == kThreeBytes;
    return CharacterOf(page, {bytes, isThree ? 3U : 2U});
}

void XMLCALL Release(void* data) {
    delete static_cast<std::uint32_t*>(data);
}

} // namespace

bool FillEncoding(char const* name, XML_Encoding& encoding) {
    std::uint32_t const page = PageOf(name);
    if (page == 0 || platform::ResolveCodePage(page) != page)
        return false;
    bool const hasPairs = page < 1000 || page == kEucJp;
    for (int byte = 0; byte < 256; ++byte) {
        char const text = static_cast<char>(byte);
        int const character = byte < 128 ? byte : CharacterOf(page, {&text, 1});
        encoding.map[byte] = character == -1 && hasPairs ? kTwoBytes : character;
    }
    if (page == kEucJp)
        encoding.map[kThreeBytes] = -3;
    encoding.data = new std::uint32_t(page);
    encoding.convert = hasPairs ? &Convert : nullptr;
    encoding.release = &Release;
    return true;
}

} // namespace zvxml
