// Numbered code pages to and from UTF-16: ASCII and Latin-1 by our own code, the others by iconv.
#include "zvxmllib/platform/CodePage.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <new>
#include <utility>
#include <vector>

#include <iconv.h>
#include <langinfo.h>
#include <locale.h>

namespace ZvXmlLib16::platform {

namespace {

constexpr std::uint32_t kAsciiCodePage = 20127;
constexpr std::uint32_t kLatin1CodePage = 28591;

struct PageName {
    std::uint32_t codePage;
    char const* name;    // for iconv, and as a locale names it
    char const* synonym; // another name that a locale may use, or null
};

// Only supersets of ASCII whose text has no shift states.
constexpr PageName kPageNames[] = {
    {65001, "UTF-8", nullptr},       {20127, "US-ASCII", "ANSI_X3.4-1968"},
    {28591, "ISO-8859-1", nullptr},  {28592, "ISO-8859-2", nullptr},
    {28593, "ISO-8859-3", nullptr},  {28594, "ISO-8859-4", nullptr},
    {28595, "ISO-8859-5", nullptr},  {28596, "ISO-8859-6", nullptr},
    {28597, "ISO-8859-7", nullptr},  {28598, "ISO-8859-8", nullptr},
    {28599, "ISO-8859-9", nullptr},  {28603, "ISO-8859-13", nullptr},
    {28605, "ISO-8859-15", nullptr}, {1250, "CP1250", nullptr},
    {1251, "CP1251", nullptr},       {1252, "CP1252", nullptr},
    {1253, "CP1253", nullptr},       {1254, "CP1254", nullptr},
    {1255, "CP1255", nullptr},       {1256, "CP1256", nullptr},
    {1257, "CP1257", nullptr},       {1258, "CP1258", nullptr},
    {437, "CP437", nullptr},         {737, "CP737", nullptr},
    {775, "CP775", nullptr},         {850, "CP850", nullptr},
    {852, "CP852", nullptr},         {855, "CP855", nullptr},
    {857, "CP857", nullptr},         {858, "CP858", nullptr},
    {860, "CP860", nullptr},         {861, "CP861", nullptr},
    {862, "CP862", nullptr},         {863, "CP863", nullptr},
    {865, "CP865", nullptr},         {866, "CP866", nullptr},
    {869, "CP869", nullptr},         {874, "CP874", "TIS-620"},
    {932, "CP932", nullptr},         {936, "GBK", "GB2312"},
    {949, "CP949", nullptr},         {950, "BIG5", nullptr},
    {1361, "JOHAB", nullptr},        {20866, "KOI8-R", nullptr},
    {21866, "KOI8-U", nullptr},      {51932, "EUC-JP", nullptr},
    {51936, "EUC-CN", nullptr},      {51949, "EUC-KR", nullptr},
    {54936, "GB18030", nullptr},
};

PageName const* FindPage(std::uint32_t codePage) noexcept {
    for (PageName const& page : kPageNames) {
        if (page.codePage == codePage)
            return &page;
    }
    return nullptr;
}

// Compares letters and digits only, without case: "utf8" and "UTF-8" are one name.
bool IsSameName(char const* left, char const* right) noexcept {
    auto const next = [](char const*& p) {
        while (*p == '-' || *p == '_')
            ++p;
        char const c = *p;
        if (c != '\0')
            ++p;
        return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    };
    for (;;) {
        char const a = next(left);
        if (a != next(right))
            return false;
        if (a == '\0')
            return true;
    }
}

class Descriptor {
public:
    Descriptor(char const* to, char const* from) noexcept : m_handle(::iconv_open(to, from)) {}
    Descriptor(Descriptor&& other) noexcept : m_handle(std::exchange(other.m_handle, Invalid())) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(m_handle, other.m_handle);
        return *this;
    }
    ~Descriptor() {
        if (IsOpen())
            ::iconv_close(m_handle);
    }

    bool IsOpen() const noexcept { return m_handle != Invalid(); }
    iconv_t Get() const noexcept { return m_handle; }

private:
    // NOLINTNEXTLINE(performance-no-int-to-ptr): POSIX says so
    static iconv_t Invalid() noexcept { return reinterpret_cast<iconv_t>(-1); }

    iconv_t m_handle;
};

struct Converter {
    std::uint32_t codePage;
    Descriptor toUtf16;
    Descriptor fromUtf16;
};

Converter OpenConverter(PageName const& page) noexcept {
    return Converter{page.codePage, Descriptor("UTF-16LE", page.name), Descriptor(page.name, "UTF-16LE")};
}

// A descriptor carries state, so each thread has its own, closed when the thread ends.
Converter& ThreadConverter(std::uint32_t codePage) {
    thread_local std::vector<Converter> converters;
    for (Converter& converter : converters) {
        if (converter.codePage == codePage)
            return converter;
    }
    PageName const* const page = FindPage(codePage);
    converters.push_back(OpenConverter(page != nullptr ? *page : kPageNames[0]));
    converters.back().codePage = codePage;
    if (!converters.back().toUtf16.IsOpen() || !converters.back().fromUtf16.IsOpen()) {
        converters.pop_back(); // resolving has opened this page, so only memory or handles are short
        throw std::bad_alloc();
    }
    return converters.back();
}

std::uint32_t PageOfLocale() noexcept {
    std::uint32_t codePage = kUtf8CodePage;
    if (locale_t const locale = ::newlocale(LC_CTYPE_MASK, "", nullptr)) {
        char const* const codeset = ::nl_langinfo_l(CODESET, locale);
        for (PageName const& page : kPageNames) {
            if (IsSameName(codeset, page.name) ||
                (page.synonym != nullptr && IsSameName(codeset, page.synonym)))
                codePage = page.codePage;
        }
        ::freelocale(locale);
    }
    return codePage == kAsciiCodePage ? kUtf8CodePage : codePage; // UTF-8 contains ASCII: nothing is lost
}

bool IsHighSurrogate(char16_t unit) noexcept {
    return unit >= 0xD800 && unit < 0xDC00;
}
bool IsLowSurrogate(char16_t unit) noexcept {
    return unit >= 0xDC00 && unit < 0xE000;
}

// The units of the character at the start of the text.
std::size_t CharacterUnits(std::u16string_view text) noexcept {
    return text.size() > 1 && IsHighSurrogate(text[0]) && IsLowSurrogate(text[1]) ? 2 : 1;
}

std::u16string SingleByteToUtf16(std::string_view text, unsigned char greatest) {
    std::u16string result(text.size(), u'\0');
    for (std::size_t i = 0; i < text.size(); ++i) {
        auto const byte = static_cast<unsigned char>(text[i]);
        result[i] = byte <= greatest ? static_cast<char16_t>(byte) : u'\xFFFD';
    }
    return result;
}

std::string Utf16ToSingleByte(std::u16string_view text, unsigned char greatest) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        result.push_back(text[0] <= greatest ? static_cast<char>(text[0]) : '?');
        text.remove_prefix(CharacterUnits(text));
    }
    return result;
}

// Converts as much of the input as is well-formed and can be expressed; returns 0 or the error number of the
// character at which it stopped. `output` is called with each piece of the result. A null input flushes what
// the descriptor holds back in case an accent follows, and resets it.
template <class Output>
int ConvertPiece(iconv_t descriptor, char*& input, std::size_t& left, Output output) {
    char buffer[1024];
    for (;;) {
        char* end = buffer;
        std::size_t room = sizeof buffer;
        bool const done = ::iconv(descriptor, &input, &left, &end, &room) != static_cast<std::size_t>(-1);
        int const error = done ? 0 : errno;
        output(buffer, static_cast<std::size_t>(end - buffer));
        if (error != E2BIG)
            return error;
    }
}

// Converts all of the input. `replace(left)` emits the replacement for the character `left` bytes before the
// end and returns that character's size in bytes.
template <class Output, class Replace>
void ConvertAll(iconv_t descriptor, char* input, std::size_t left, Output output, Replace replace) {
    auto const flush = [&] {
        char* none = nullptr;
        std::size_t nothing = 0;
        ConvertPiece(descriptor, none, nothing, output);
    };
    ::iconv(descriptor, nullptr, nullptr, nullptr, nullptr);
    while (int const error = ConvertPiece(descriptor, input, left, output)) {
        flush();
        std::size_t const size = replace(left);
        if (error == EINVAL) // cut off: there is no character behind it
            return;
        input += size;
        left -= size;
    }
    flush();
}

} // namespace

std::uint32_t ResolveCodePage(std::uint32_t codePage) noexcept {
    static std::uint32_t const ofLocale = PageOfLocale();
    switch (codePage) {
    case kDefaultCodePage:
    case kThreadCodePage:
        break;
    case kUtf8CodePage:
    case kAsciiCodePage:
    case kLatin1CodePage:
        return codePage;
    default:
        if (PageName const* const page = FindPage(codePage)) {
            Converter const converter = OpenConverter(*page);
            if (converter.toUtf16.IsOpen() && converter.fromUtf16.IsOpen())
                return codePage;
        }
    }
    return ofLocale;
}

// iconv's names are IANA's, but for the pages of personal computers.
std::string GetCodePageName(std::uint32_t codePage) {
    constexpr std::uint32_t kFirstOfWindows = 874;
    constexpr std::uint32_t kShiftJis = 932;
    PageName const* const page = FindPage(codePage);
    std::string const name = page == nullptr ? "UTF-8" : page->name;
    if (name.compare(0, 2, "CP") != 0)
        return name;
    if (codePage == kShiftJis)
        return "Windows-31J";
    return (codePage < kFirstOfWindows ? "IBM" : "windows-") + name.substr(2);
}

std::u16string CodePageToUtf16(std::uint32_t codePage, std::string_view text) {
    if (codePage == kAsciiCodePage || codePage == kLatin1CodePage)
        return SingleByteToUtf16(text, codePage == kAsciiCodePage ? 0x7F : 0xFF);
    std::u16string result;
    result.reserve(text.size());
    ConvertAll(
        ThreadConverter(codePage).toUtf16.Get(), const_cast<char*>(text.data()), text.size(), // only read
        [&](char const* bytes, std::size_t size) {
            for (std::size_t i = 0; i + 1 < size; i += 2)
                result.push_back(static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                                       static_cast<unsigned char>(bytes[i + 1]) << 8));
        },
        [&](std::size_t) {
            result.push_back(u'\xFFFD');
            return std::size_t{1};
        });
    return result;
}

std::string Utf16ToCodePage(std::uint32_t codePage, std::u16string_view text) {
    if (codePage == kAsciiCodePage || codePage == kLatin1CodePage)
        return Utf16ToSingleByte(text, codePage == kAsciiCodePage ? 0x7F : 0xFF);
    std::string bytes; // the units, low byte first
    bytes.reserve(text.size() * 2);
    for (char16_t const unit : text) {
        bytes.push_back(static_cast<char>(unit & 0xFF));
        bytes.push_back(static_cast<char>(unit >> 8));
    }
    std::string result;
    result.reserve(text.size());
    ConvertAll(
        ThreadConverter(codePage).fromUtf16.Get(), bytes.data(), bytes.size(),
        [&](char const* piece, std::size_t size) { result.append(piece, size); },
        [&](std::size_t left) {
            result.push_back('?');
            return 2 * CharacterUnits(text.substr(text.size() - left / 2));
        });
    return result;
}

// Where as many question marks come out as go in, all is there.
std::size_t FindNotInCodePage(std::uint32_t codePage, std::u16string_view text) {
    std::string const all = Utf16ToCodePage(codePage, text);
    if (std::count(all.begin(), all.end(), '?') == std::count(text.begin(), text.end(), u'?'))
        return text.size();
    for (std::size_t at = 0; at < text.size();) {
        std::u16string_view const character = text.substr(at, CharacterUnits(text.substr(at)));
        if (character[0] > 127 && Utf16ToCodePage(codePage, character) == "?")
            return at;
        at += character.size();
    }
    return text.size();
}

} // namespace ZvXmlLib16::platform
