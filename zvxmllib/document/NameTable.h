// The names of a document, each kept once.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace ZvXmlLib16 {

class XmlTree;

// A name of elements and attributes, in the local encoding. Lives as long as its tree's content.
struct XmlName {
    XmlTree* tree;
    std::string localName;
    std::string const* namespaceUri; // shared by the names of one namespace

    // What the parser calls it: the URI, '|' and the local name in UTF-8, or the local name alone.
    std::string parserName;
    std::uint64_t hash;
    XmlName* nextInBucket;
    XmlName* likelyNext; // the element name that followed this one last time, null at first
};

// Finds the names of one document by what the parser calls them.
class NameTable {
public:
    explicit NameTable(XmlTree& tree);

    // With `splitNamespace` the local text of the name is split at its first '|'.
    XmlName* Find(std::string_view parserName, bool splitNamespace) {
        std::uint64_t const hash = Hash(parserName);
        for (XmlName* name = m_buckets[hash & (m_buckets.size() - 1)]; name != nullptr;
             name = name->nextInBucket) {
            if (name->hash == hash && name->parserName == parserName)
                return name;
        }
        return Add(parserName, hash, splitNamespace);
    }

    // The name of an element, with the one before it in the document as a hint: documents repeat themselves.
    XmlName* FindElementName(char const* parserName, bool splitNamespace);

    void Clear();

private:
    static std::uint64_t Hash(std::string_view text) noexcept;
    XmlName* Add(std::string_view parserName, std::uint64_t hash, bool splitNamespace);
    void Grow();

    XmlTree& m_tree;
    std::deque<XmlName> m_names;
    std::vector<XmlName*> m_buckets; // a power of two of them
    std::unordered_set<std::string> m_namespaceUris;
    XmlName* m_lastElementName = nullptr;
};

} // namespace ZvXmlLib16
