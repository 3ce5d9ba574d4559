// Conversions between UTF-8, UTF-16 and the local character encoding.
#include "zvxmllib/values/binary/Encoder.h"

#include "zvxmllib/foundation/Assert.h"
#include "zvxmllib/foundation/Utf16.h"
#include "zvxmllib/platform/CodePage.h"
#include "zvxmllib/values/binary/BinaryData.h"
#include "zvxmllib/values/binary/CheckedSize.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <limits>
#include <memory>
#include <new>

namespace ZvXmlLib16 {

namespace {

constexpr std::uint32_t kUnresolved = 0; // no page resolves to 0

std::atomic<std::uint32_t> chosenPage{platform::kThreadCodePage};
std::atomic<std::uint32_t> resolvedPage{kUnresolved};
std::atomic<bool> asciiOnlySwitch{false};

std::uint32_t LocalPage() noexcept {
    std::uint32_t page = resolvedPage.load(std::memory_order_relaxed);
    if (page == kUnresolved) {
        page = platform::ResolveCodePage(chosenPage.load(std::memory_order_relaxed));
        resolvedPage.store(page, std::memory_order_relaxed);
    }
    return page;
}

bool IsLocalPageUtf8() noexcept {
    return LocalPage() == platform::kUtf8CodePage;
}

// Data of exactly this size, filled by `fill(unsigned char*)`.
template <class Fill>
CBinaryData MakeData(std::size_t size, Fill fill) {
    std::uint32_t const length = detail::CheckedLength(size);
    if (length == 0)
        return CBinaryData();
    std::unique_ptr<unsigned char[]> bytes(new unsigned char[size]);
    fill(bytes.get());
    return CBinaryData(bytes.release(), length, true);
}

CBinaryData CopyToData(std::string_view bytes) {
    return MakeData(bytes.size(),
                    [&](unsigned char* output) { std::memcpy(output, bytes.data(), bytes.size()); });
}

// The units low byte first, whatever the order of the machine.
CBinaryData UnitsToData(std::u16string_view units) {
    return MakeData(units.size() * 2, [&](unsigned char* bytes) {
        for (char16_t const unit : units) {
            *bytes++ = static_cast<unsigned char>(unit & 0xFF);
            *bytes++ = static_cast<unsigned char>(unit >> 8);
        }
    });
}

// The count of units without the NUL.
std::size_t CountUnits(char16_t const* text) noexcept {
    return std::u16string_view(text).size();
}

std::string UnitsToLocal(std::u16string_view units) {
    if (IsLocalPageUtf8())
        return ConvertUtf16ToUtf8(units);
    return platform::Utf16ToCodePage(LocalPage(), units);
}

} // namespace

void SetLocalCharEncoding(unsigned int codePage) {
    chosenPage.store(codePage, std::memory_order_relaxed);
    resolvedPage.store(kUnresolved, std::memory_order_relaxed);
}

void ASCIIOnly(bool asciiOnly) {
    asciiOnlySwitch.store(asciiOnly, std::memory_order_relaxed);
}

bool IsASCIIOnly() noexcept {
    return asciiOnlySwitch.load(std::memory_order_relaxed);
}

bool IsLocalTextUtf8() noexcept {
    return IsASCIIOnly() || IsLocalPageUtf8();
}

CBinaryData Utf16ToUtf8(char16_t const* text) {
    std::size_t const units = text != nullptr ? CountUnits(text) : 0;
    bool const isAscii = std::none_of(text, text + units, [](char16_t unit) { return unit >= 128; });
    std::size_t const dwUtf8Len = isAscii ? units : ConvertUtf16ToUtf8(text, units, nullptr, 0);
    return MakeData(dwUtf8Len, [&](unsigned char* bytes) {
        [[maybe_unused]] std::size_t const dwActualLen =
            ConvertUtf16ToUtf8(text, units, reinterpret_cast<char*>(bytes), dwUtf8Len);
        ZV_ASSERT(dwActualLen != 0);
        ZV_ASSERT(dwActualLen == dwUtf8Len);
    });
}

std::string Utf8ToLocal(char const* utf8, std::size_t length, char16_t* wideBuffer, std::size_t wideCapacity,
                        char* /*localBuffer*/, std::size_t /*localCapacity*/) {
    if (length == 0)
        return std::string();
    if (IsASCIIOnly())
        return std::string(utf8, length);
    std::string_view text(utf8, length);
    text = text.substr(0, text.find('\0'));
    if (IsLocalPageUtf8())
        return IsValidUtf8(text) ? std::string(text) : RepairUtf8(text);
    if (IsAscii(text))
        return std::string(text);
    if (wideBuffer != nullptr && wideCapacity > text.size())
        return UnitsToLocal(std::u16string_view(wideBuffer, ConvertUtf8ToUtf16(text, wideBuffer)));
    return UnitsToLocal(ConvertUtf8ToUtf16(text));
}

std::string Utf8ToLocal(char const* utf8, std::size_t length) {
    return Utf8ToLocal(utf8, length, nullptr, 0, nullptr, 0);
}

std::string Utf8ToLocal(char const* utf8) {
    return Utf8ToLocal(utf8, utf8 != nullptr ? std::strlen(utf8) : 0);
}

std::string GetLocalEncodingName() {
    return IsLocalTextUtf8() ? std::string() : platform::GetCodePageName(LocalPage());
}

char32_t FindCharacterNotLocal(std::string_view utf8) {
    if (IsAscii(utf8) || (IsLocalPageUtf8() && !IsASCIIOnly()))
        return 0;
    std::u16string const units = ConvertUtf8ToUtf16(utf8);
    std::size_t const at =
        IsASCIIOnly() ? static_cast<std::size_t>(std::find_if(units.begin(), units.end(),
                                                              [](char16_t unit) { return unit > 127; }) -
                                                 units.begin())
                      : platform::FindNotInCodePage(LocalPage(), units);
    if (at >= units.size())
        return 0;
    bool const isPair = units[at] >= 0xD800 && units[at] < 0xDC00 && at + 1 != units.size();
    return isPair ? 0x10000 + ((units[at] - char32_t{0xD800}) << 10U) + (units[at + 1] - char32_t{0xDC00})
                  : units[at];
}

CBinaryData LocalToUtf8(char const* text) {
    std::string_view const local(text != nullptr ? text : "");
    if (IsASCIIOnly() || (IsLocalPageUtf8() ? IsValidUtf8(local) : IsAscii(local)))
        return CopyToData(local);
    if (IsLocalPageUtf8())
        return CopyToData(RepairUtf8(local));
    return Utf16ToUtf8(platform::CodePageToUtf16(LocalPage(), local).c_str());
}

CBinaryData LocalToUtf16(char const* text) {
    std::string_view const local(text != nullptr ? text : "");
    if (!IsLocalPageUtf8() && !IsAscii(local))
        return UnitsToData(platform::CodePageToUtf16(LocalPage(), local));
    std::size_t const units = CountUtf16Units(local);
    return MakeData(units * 2, [&](unsigned char* bytes) { ConvertUtf8ToUtf16Bytes(local, bytes); });
}

std::string Utf16ToLocal(char16_t const* text, std::size_t count) {
    return count == 0 ? std::string() : UnitsToLocal(std::u16string_view(text, count));
}

} // namespace ZvXmlLib16
