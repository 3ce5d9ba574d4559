#include "zvxmllib/document/NameTable.h"

#include "zvxmllib/values/binary/Encoder.h"

#include <cstring>
#include <utility>

namespace ZvXmlLib16::detail {

namespace {
constexpr std::size_t kFirstBuckets = 64;

// A name has one kind of separator: the bar can stand in a URI before the other one.
constexpr bool IsSeparator(char c) noexcept {
    return c == kNamespaceSeparator || c == kStrictNamespaceSeparator;
}

std::size_t FindSeparator(std::string_view parserName) noexcept {
    std::size_t const strict = parserName.find(kStrictNamespaceSeparator);
    return strict != std::string_view::npos ? strict : parserName.find(kNamespaceSeparator);
}

} // namespace

NameTable::NameTable(XmlTree& tree) : m_tree(tree), m_buckets(kFirstBuckets) {}

bool XmlName::IsCalled(char const* parserName) const noexcept {
    std::size_t const uriLength = parserUri->size();
    if (uriLength != 0) {
        if (std::strncmp(parserName, parserUri->c_str(), uriLength) != 0 ||
            !IsSeparator(parserName[uriLength]))
            return false;
        parserName += uriLength + 1;
    }
    return std::strcmp(parserName, parserLocalName->c_str()) == 0;
}

// Eight bytes at a time: names with a namespace are long and share their beginning. Differs between processes
// if addresses do, so that nobody can prepare a document whose names share a bucket.
std::uint64_t NameTable::Hash(std::string_view text) noexcept {
    static constexpr std::uint64_t kMultiplier = 0x9E3779B97F4A7C15u;
    std::uint64_t hash = reinterpret_cast<std::uintptr_t>(&kMultiplier) + text.size() * kMultiplier;
    char const* p = text.data();
    std::size_t left = text.size();
    for (; left >= 8; p += 8, left -= 8) {
        std::uint64_t word;
        std::memcpy(&word, p, 8);
        hash = (hash ^ word) * kMultiplier;
        hash ^= hash >> 32;
    }
    if (left != 0) {
        std::uint64_t word = 0;
        std::memcpy(&word, p, left);
        hash = (hash ^ word) * kMultiplier;
        hash ^= hash >> 32;
    }
    return hash ^ (hash >> 29);
}

XmlName* NameTable::Find(char const* parserName, bool splitNamespace) {
    std::string_view const text(parserName);
    std::uint64_t const hash = Hash(text);
    for (XmlName* name = m_buckets[hash & (m_buckets.size() - 1)]; name != nullptr;
         name = name->nextInBucket) {
        if (name->hash == hash && name->IsCalled(parserName))
            return name;
    }
    return Add(text, hash, splitNamespace);
}

XmlName* NameTable::FindElementName(char const* parserName, bool splitNamespace) {
    if (m_lastElementName != nullptr) {
        XmlName* const likely = m_lastElementName->likelyNext;
        if (likely != nullptr && likely->IsCalled(parserName))
            return m_lastElementName = likely;
    }
    XmlName* const name = Find(parserName, splitNamespace);
    if (m_lastElementName != nullptr)
        m_lastElementName->likelyNext = name;
    return m_lastElementName = name;
}

std::string const* NameTable::Keep(std::string_view text) {
    auto const found = m_strings.find(text);
    if (found != m_strings.end())
        return &found->second.Get();
    SharedText shared(text);
    std::string const& kept = shared.Get();
    m_strings.emplace(kept, std::move(shared));
    return &kept;
}

XmlName* NameTable::Add(std::string_view parserName, std::uint64_t hash, bool splitNamespace) {
    // Converts first, then splits the local text.
    std::string const text = Utf8ToLocal(parserName.data(), parserName.size());
    auto const split = [splitNamespace](std::string_view name) {
        std::size_t const separator = splitNamespace ? FindSeparator(name) : std::string_view::npos;
        return separator == std::string_view::npos
                   ? std::pair(std::string_view(), name)
                   : std::pair(name.substr(0, separator), name.substr(separator + 1));
    };
    auto const [uri, localName] = split(text);
    XmlName& name = Insert(Keep(uri), Keep(localName), hash);
    if (text != parserName) {
        auto const [parserUri, parserLocalName] = split(parserName);
        name.parserUri = Keep(parserUri);
        name.parserLocalName = Keep(parserLocalName);
    }
    return &name;
}

XmlName& NameTable::Insert(std::string const* uri, std::string const* localName, std::uint64_t hash) {
    if (m_names.size() >= m_buckets.size())
        Grow();
    XmlName*& bucket = m_buckets[hash & (m_buckets.size() - 1)];
    XmlName& name =
        m_names.emplace_back(XmlName{&m_tree, localName, uri, uri, localName, hash, bucket, nullptr});
    bucket = &name;
    return name;
}

XmlName* NameTable::FindByParts(std::string const* uri, std::string const* localName) {
    std::string const* const parts[] = {uri, localName};
    std::uint64_t const hash = Hash({reinterpret_cast<char const*>(parts), sizeof parts});
    for (XmlName* name = m_buckets[hash & (m_buckets.size() - 1)]; name != nullptr;
         name = name->nextInBucket) {
        if (name->localName == localName && name->namespaceUri == uri)
            return name;
    }
    return &Insert(uri, localName, hash);
}

void NameTable::Grow() {
    std::vector<XmlName*> buckets(m_buckets.size() * 4);
    for (XmlName& name : m_names) {
        XmlName*& bucket = buckets[name.hash & (buckets.size() - 1)];
        name.nextInBucket = bucket;
        bucket = &name;
    }
    m_buckets = std::move(buckets);
}

} // namespace ZvXmlLib16::detail
