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

    // What the XML parser calls it, in UTF-8: the URI, '|' and the local name, or the local name alone. The
    // same strings as above where local text is UTF-8, and in trees that no parser fills.
    std::string const* parserUri;
    std::string const* parserLocalName;
    std::uint64_t hash;
    XmlName* nextInBucket;
    XmlName* likelyNext; // the element name that followed this one last time, null at first

    bool IsCalled(char const* parserName) const noexcept;
};

// Finds the names of one document: by what the XML parser calls them, or by their parts in the local
// encoding. A document is read in one of these two ways.
class NameTable {
public:
    explicit NameTable(XmlTree& tree);

    // With `splitNamespace` the local text of the name is split at its first '|'.
    XmlName* Find(char const* parserName, bool splitNamespace);

    // The name of an element, with the one before it in the document as a hint: documents repeat themselves.
    XmlName* FindElementName(char const* parserName, bool splitNamespace);

    // By the namespace URI, empty for none, and the local name.
    XmlName* FindByParts(std::string_view uri, std::string_view localName);

private:
    static std::uint64_t Hash(std::string_view text) noexcept;
    XmlName& Insert(std::string uri, std::string localName, std::uint64_t hash);
    XmlName* Add(std::string_view parserName, std::uint64_t hash, bool splitNamespace);
    std::string const* KeepParserString(std::string_view text, std::string const& local);
    void Grow();

    XmlTree& m_tree;
    std::deque<XmlName> m_names;
    std::vector<XmlName*> m_buckets; // a power of two of them
    std::unordered_set<std::string> m_namespaceUris;
    std::unordered_set<std::string> m_parserStrings; // where they differ from local text
    XmlName* m_lastElementName = nullptr;
};

} // namespace ZvXmlLib16
