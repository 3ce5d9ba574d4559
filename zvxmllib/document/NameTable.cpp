#include "zvxmllib/document/NameTable.h"

#include "zvxmllib/foundation/Encoder.h"

#include <cstring>

namespace ZvXmlLib16 {

namespace {
constexpr std::size_t kFirstBuckets = 128;
constexpr char kNamespaceSeparator = '|';
} // namespace

NameTable::NameTable(XmlTree& tree) : m_tree(tree), m_buckets(kFirstBuckets) {}

void NameTable::Clear() {
    m_names.clear();
    m_buckets.assign(kFirstBuckets, nullptr);
    m_namespaceUris.clear();
    m_lastElementName = nullptr;
}

// Eight bytes at a time: names with a namespace are long and share their beginning.
std::uint64_t NameTable::Hash(std::string_view text) noexcept {
    constexpr std::uint64_t kMultiplier = 0x9E3779B97F4A7C15u;
    std::uint64_t hash = text.size() * kMultiplier;
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

XmlName* NameTable::FindElementName(char const* parserName, bool splitNamespace) {
    if (m_lastElementName != nullptr) {
        XmlName* const likely = m_lastElementName->likelyNext;
        if (likely != nullptr && std::strcmp(likely->parserName.c_str(), parserName) == 0)
            return m_lastElementName = likely;
    }
    XmlName* const name = Find(parserName, splitNamespace);
    if (m_lastElementName != nullptr)
        m_lastElementName->likelyNext = name;
    return m_lastElementName = name;
}

XmlName* NameTable::Add(std::string_view parserName, std::uint64_t hash, bool splitNamespace) {
    if (m_names.size() >= m_buckets.size())
        Grow();
    // The conversion comes first, the split is done on local text.
    std::string local = Utf8ToLocal(parserName.data(), parserName.size());
    std::string uri;
    std::size_t const separator = splitNamespace ? local.find(kNamespaceSeparator) : std::string::npos;
    if (separator != std::string::npos) {
        uri = local.substr(0, separator);
        local.erase(0, separator + 1);
    }
    std::string const* const sharedUri = &*m_namespaceUris.insert(std::move(uri)).first;
    XmlName*& bucket = m_buckets[hash & (m_buckets.size() - 1)];
    m_names.push_back({&m_tree, std::move(local), sharedUri, std::string(parserName), hash, bucket, nullptr});
    return bucket = &m_names.back();
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

} // namespace ZvXmlLib16
