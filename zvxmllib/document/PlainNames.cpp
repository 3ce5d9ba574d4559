#include "zvxmllib/document/PlainNames.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace ZvXmlLib16::detail {

namespace {

constexpr std::string_view kDeclaration = "xmlns";
constexpr std::size_t kMostBindings = 32; // each is compared with all others

enum NameByte : unsigned char { kNone, kFollowing, kLeading };

constexpr std::array<NameByte, 256> MakeNameBytes() {
    std::array<NameByte, 256> bytes{};
    for (char c = 'a'; c <= 'z'; ++c)
        bytes[static_cast<unsigned char>(c)] = bytes[static_cast<unsigned char>(c - 'a' + 'A')] = kLeading;
    for (char c = '0'; c <= '9'; ++c)
        bytes[static_cast<unsigned char>(c)] = kFollowing;
    bytes['_'] = kLeading;
    bytes['-'] = bytes['.'] = kFollowing;
    return bytes;
}

constexpr std::array<NameByte, 256> kNameBytes = MakeNameBytes();

NameByte KindOf(char c) noexcept {
    return kNameBytes[static_cast<unsigned char>(c)];
}

// Behind the part of a name that begins at `at`; `at` itself if none does.
char const* FindPartEnd(char const* at, char const* end) noexcept {
    if (at == end || KindOf(*at) != kLeading)
        return at;
    do
        ++at;
    while (at != end && KindOf(*at) != kNone);
    return at;
}

// A letter beyond ASCII would go on with the name, a colon would begin another part.
bool EndsName(char const* at, char const* end) noexcept {
    return at != end && KindOf(*at) == kNone && *at != ':' && static_cast<unsigned char>(*at) < 0x80;
}

} // namespace

bool PlainName::Begins(char const* at, char const* end) const noexcept {
    std::size_t const length = text.size();
    std::size_t const left = static_cast<std::size_t>(end - at);
    if (left < sizeof head)
        return length <= left && std::memcmp(at, text.data(), length) == 0;
    std::uint64_t word;
    std::memcpy(&word, at, sizeof word);
    if ((word & headMask) != head)
        return false;
    return length <= sizeof head ||
           (length <= left &&
            std::memcmp(at + sizeof head, text.data() + sizeof head, length - sizeof head) == 0);
}

bool IsPlainNamePart(std::string_view text) noexcept {
    char const* const end = text.data() + text.size();
    return !text.empty() && FindPartEnd(text.data(), end) == end;
}

PlainName* PlainNameList::Read(char const*& at, char const* end) {
    PlainName* const likely = m_last == nullptr ? nullptr : m_last->likelyNext;
    if (likely != nullptr && likely->Begins(at, end) && EndsName(at + likely->text.size(), end)) {
        at += likely->text.size();
        return m_last = likely;
    }
    return ReadUnexpected(at, end);
}

PlainName* PlainNameList::ReadUnexpected(char const*& at, char const* end) {
    char const* const begin = at;
    char const* behind = FindPartEnd(begin, end);
    std::size_t prefixLength = 0;
    if (behind != begin && behind != end && *behind == ':') {
        prefixLength = static_cast<std::size_t>(behind - begin);
        char const* const local = behind + 1;
        behind = FindPartEnd(local, end);
        if (behind == local)
            return nullptr;
    }
    if (behind == begin || !EndsName(behind, end))
        return nullptr;
    at = behind;
    PlainName& name = Keep({begin, static_cast<std::size_t>(behind - begin)}, prefixLength);
    if (m_last != nullptr)
        m_last->likelyNext = &name;
    return m_last = &name;
}

PlainName& PlainNameList::Keep(std::string_view text, std::size_t prefixLength) {
    auto const [found, isNew] = m_names.try_emplace(text);
    PlainName& name = found->second;
    if (isNew) {
        name.text = text;
        name.prefixLength = prefixLength;
        name.isDeclaration = (prefixLength == 0 ? text : name.GetPrefix()) == kDeclaration;
        std::size_t const headLength = std::min(text.size(), sizeof name.head);
        std::memcpy(&name.head, text.data(), headLength);
        std::memset(&name.headMask, 0xFF, headLength);
    }
    return name;
}

PlainScopes::PlainScopes(NameTable& names) : m_names(names) {
    m_bindings.push_back({names.Keep("xml"), names.Keep("http://www.w3.org/XML/1998/namespace")});
}

bool PlainScopes::Declare(Place const& place, std::string const* prefix, std::string const* uri) {
    if (m_bindings.size() == kMostBindings)
        return false;
    for (std::size_t i = place.bindings; i != m_bindings.size(); ++i) {
        if (m_bindings[i].prefix == prefix)
            return false;
    }
    if (m_bindings.size() == place.bindings)
        m_scope = ++m_lastScope;
    m_bindings.push_back({prefix, uri});
    return true;
}

XmlName const* PlainScopes::Find(PlainName& name, bool hasPrefix, bool isElement) {
    std::string_view const prefix = name.GetPrefix();
    std::string const* uri = nullptr;
    if (hasPrefix || isElement) {
        auto const binding = std::find_if(m_bindings.rbegin(), m_bindings.rend(),
                                          [prefix](Binding const& b) { return *b.prefix == prefix; });
        if (binding != m_bindings.rend())
            uri = binding->uri;
        else if (hasPrefix)
            return nullptr;
    }
    if (uri == nullptr)
        uri = m_names.Keep("");
    name.scope = m_scope;
    return name.name = m_names.FindByParts(uri, m_names.Keep(name.GetLocalName()));
}

} // namespace ZvXmlLib16::detail
