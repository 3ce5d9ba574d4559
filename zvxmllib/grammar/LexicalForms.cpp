#include "zvxmllib/grammar/LexicalForms.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace ZvXmlLib16::grammar {

namespace {

enum CharacterClass : unsigned char {
    kNameStart = 1, // without the colon
    kNameRest = 2,  // what a name may have behind its start, likewise
    kHexDigit = 4,
    kBase64 = 8,
    kLetter = 16,
    kDigit = 32
};

constexpr bool IsBetween(int c, char first, char last) {
    return c >= first && c <= last;
}

constexpr std::array<unsigned char, 128> MakeClasses() {
    std::array<unsigned char, 128> classes{};
    for (int c = 0; c < 128; ++c) {
        bool const isLetter = IsBetween(c, 'A', 'Z') || IsBetween(c, 'a', 'z');
        bool const isDigit = IsBetween(c, '0', '9');
        unsigned bits = 0;
        if (isLetter || c == '_')
            bits |= kNameStart | kNameRest;
        if (isDigit || c == '-' || c == '.')
            bits |= kNameRest;
        if (isDigit || IsBetween(c, 'A', 'F') || IsBetween(c, 'a', 'f'))
            bits |= kHexDigit;
        if (isLetter || isDigit || c == '+' || c == '/')
            bits |= kBase64;
        if (isLetter)
            bits |= kLetter;
        if (isDigit)
            bits |= kDigit;
        classes[static_cast<std::size_t>(c)] = static_cast<unsigned char>(bits);
    }
    return classes;
}
constexpr std::array<unsigned char, 128> kClasses = MakeClasses();

constexpr bool IsOf(char c, unsigned classes) noexcept {
    auto const octet = static_cast<unsigned char>(c);
    return octet < 128 && (kClasses[octet] & classes) != 0;
}

struct CodeRange {
    std::uint32_t first;
    std::uint32_t last;
};
// Beyond ASCII: NameStartChar, and what NameChar has besides.
constexpr CodeRange kStartRanges[] = {{0xC0, 0xD6},     {0xD8, 0xF6},     {0xF8, 0x2FF},
                                      {0x370, 0x37D},   {0x37F, 0x1FFF},  {0x200C, 0x200D},
                                      {0x2070, 0x218F}, {0x2C00, 0x2FEF}, {0x3001, 0xD7FF},
                                      {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}, {0x10000, 0xEFFFF}};
constexpr CodeRange kRestRanges[] = {{0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040}};

template <std::size_t size>
bool IsIn(CodeRange const (&ranges)[size], std::uint32_t code) noexcept {
    return std::any_of(std::begin(ranges), std::end(ranges),
                       [code](CodeRange const& range) { return code >= range.first && code <= range.last; });
}

// The code point that begins at `at`, which moves behind it. 0, which is in no name, for what is no UTF-8.
std::uint32_t TakeCodePoint(std::string_view text, std::size_t& at) noexcept {
    auto const octet = [&](std::size_t index) {
        return static_cast<std::uint32_t>(static_cast<unsigned char>(text[index]));
    };
    std::uint32_t const lead = octet(at++);
    if (lead < 0x80)
        return lead;
    std::size_t const more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
    if (lead < 0xC0 || lead > 0xF7 || text.size() - at < more)
        return 0;
    std::uint32_t code = lead & (0x3FU >> more);
    for (std::size_t i = 0; i < more; ++i) {
        if ((octet(at) & 0xC0U) != 0x80U)
            return 0;
        code = code << 6U | (octet(at++) & 0x3FU);
    }
    return code;
}

// Whether each character may stand in a name, with or without colons.
bool HasNameCharacters(std::string_view text, bool allowsColon) noexcept {
    for (std::size_t at = 0; at < text.size();) {
        char const c = text[at];
        if (static_cast<unsigned char>(c) < 128) {
            if (!IsOf(c, kNameRest) && !(allowsColon && c == ':'))
                return false;
            ++at;
            continue;
        }
        std::uint32_t const code = TakeCodePoint(text, at);
        if (!IsIn(kStartRanges, code) && !IsIn(kRestRanges, code))
            return false;
    }
    return true;
}

bool BeginsName(std::string_view text) noexcept {
    if (text.empty())
        return false;
    std::size_t at = 0;
    return static_cast<unsigned char>(text[0]) < 128 ? IsOf(text[0], kNameStart)
                                                     : IsIn(kStartRanges, TakeCodePoint(text, at));
}

bool IsScheme(std::string_view text) noexcept {
    return !text.empty() && IsOf(text[0], kLetter) && std::all_of(text.begin(), text.end(), [](char c) {
        return IsOf(c, kLetter | kDigit) || c == '+' || c == '-' || c == '.';
    });
}

} // namespace

std::string_view Trim(std::string_view text) noexcept {
    while (!text.empty() && IsSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

std::string Quote(std::string_view name) {
    return "[" + std::string(name) + "]";
}

std::string_view ApplyWhiteSpace(WhiteSpace rule, std::string_view text, std::string& room) {
    if (rule == WhiteSpace::kPreserve)
        return text;
    if (rule == WhiteSpace::kReplace) {
        if (text.find_first_of("\t\n\r") == std::string_view::npos)
            return text;
        room.assign(text);
        std::replace_if(room.begin(), room.end(), IsSpace, ' ');
        return room;
    }
    text = Trim(text);
    auto const isChanged = [](char c, char next) { return IsSpace(c) && (c != ' ' || IsSpace(next)); };
    if (std::adjacent_find(text.begin(), text.end(), isChanged) == text.end())
        return text;
    room.clear();
    for (std::string_view item; TakeListItem(text, item);) {
        if (!room.empty())
            room += ' ';
        room.append(item);
    }
    return room;
}

bool TakeListItem(std::string_view& list, std::string_view& item) noexcept {
    std::size_t begin = 0;
    while (begin < list.size() && IsSpace(list[begin]))
        ++begin;
    std::size_t end = begin;
    while (end < list.size() && !IsSpace(list[end]))
        ++end;
    item = list.substr(begin, end - begin);
    list.remove_prefix(end);
    return !item.empty();
}

std::size_t CountCharacters(std::string_view text) noexcept {
    return static_cast<std::size_t>(std::count_if(
        text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

bool IsAsciiText(std::string_view text) noexcept {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 128; });
}

bool IsXmlName(std::string_view text) noexcept {
    return (BeginsName(text) || (!text.empty() && text[0] == ':')) && HasNameCharacters(text, true);
}

bool IsNCName(std::string_view text) noexcept {
    return BeginsName(text) && HasNameCharacters(text, false);
}

bool IsNmToken(std::string_view text) noexcept {
    return !text.empty() && HasNameCharacters(text, true);
}

bool SplitQName(std::string_view text, std::string_view& prefix, std::string_view& local) noexcept {
    std::size_t const colon = text.find(':');
    if (colon == std::string_view::npos) {
        prefix = std::string_view();
        local = text;
        return IsNCName(local);
    }
    prefix = text.substr(0, colon);
    local = text.substr(colon + 1);
    return IsNCName(prefix) && IsNCName(local);
}

bool IsLanguage(std::string_view text) noexcept {
    constexpr std::size_t kMost = 8;
    std::size_t length = 0; // of the part so far
    unsigned allowed = kLetter;
    for (char const c : text) {
        if (c == '-' && length != 0) {
            length = 0;
            allowed = kLetter | kDigit;
        } else if (!IsOf(c, allowed) || ++length > kMost) {
            return false;
        }
    }
    return length != 0;
}

int ReadBoolean(std::string_view text) noexcept {
    if (text == "true" || text == "1")
        return 1;
    return text == "false" || text == "0" ? 0 : -1;
}

std::size_t CountHexOctets(std::string_view text) noexcept {
    bool const isHex = text.size() % 2 == 0 &&
                       std::all_of(text.begin(), text.end(), [](char c) { return IsOf(c, kHexDigit); });
    return isHex ? text.size() / 2 : kNoOctets;
}

std::size_t CountBase64Octets(std::string_view text) noexcept {
    std::size_t digits = 0;
    std::size_t pads = 0;
    char last = 'A';
    for (char const c : text) {
        if (c == ' ')
            continue;
        if (c == '=')
            ++pads;
        else if (!IsOf(c, kBase64) || pads != 0)
            return kNoOctets;
        else
            ++digits, last = c;
    }
    // The bits of the last digit that belong to no octet are 0.
    constexpr std::string_view kTwoBits = "AQgw";
    constexpr std::string_view kFourBits = "AEIMQUYcgkosw048";
    if ((digits + pads) % 4 != 0 || pads > 2 ||
        (pads == 2 && kTwoBits.find(last) == std::string_view::npos) ||
        (pads == 1 && kFourBits.find(last) == std::string_view::npos))
        return kNoOctets;
    return (digits + pads) / 4 * 3 - pads;
}

bool IsAnyUri(std::string_view text) noexcept {
    bool hasFragment = false;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] == '%' &&
            !(text.size() - at > 2 && IsOf(text[at + 1], kHexDigit) && IsOf(text[at + 2], kHexDigit)))
            return false;
        if (text[at] == '#' && hasFragment)
            return false;
        hasFragment = hasFragment || text[at] == '#';
    }
    std::size_t const sign = text.find_first_of(":/?#");
    return sign == std::string_view::npos || text[sign] != ':' || IsScheme(text.substr(0, sign));
}

} // namespace ZvXmlLib16::grammar
