// The names of a document, each kept once.
#pragma once

#include "zvxmllib/foundation/SharedText.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace ZvXmlLib16::detail {

class XmlTree;

// What the XML parser puts between URI and local name. No document can have the second one, so that URIs with
// a bar are read; it is that of strict contexts.
inline constexpr char kNamespaceSeparator = '|';
inline constexpr char kStrictNamespaceSeparator = '\x01';

// The name of elements and attributes, in the local encoding. Lives as long as the content of its tree.
struct XmlName {
    XmlTree* tree;
    std::string const* localName; // of a SharedText, as the next three: names have their parts in common
    std::string const* namespaceUri;

    // The XML parser's form, in UTF-8: the URI, a separator and the local name, or the local name alone. The
    // same strings as above where local text is UTF-8, and in trees that no parser fills.
    std::string const* parserUri;
    std::string const* parserLocalName;
    std::uint64_t hash;
    XmlName* nextInBucket;
    XmlName* likelyNext; // the element name that followed this one last time, null at first

    bool IsCalled(char const* parserName) const noexcept;
};

// Finds the names of one document, either by the XML parser's form or by their parts in the local encoding. A
// document uses one of the two.
class NameTable {
public:
    // For tables of names: nobody can prepare texts that share a bucket.
    struct TextHash {
        std::size_t operator()(std::string_view text) const noexcept { return Hash(text); }
    };

    explicit NameTable(XmlTree& tree);

    // With `splitNamespace` the local text of the name is split at its separator.
    XmlName* Find(char const* parserName, bool splitNamespace);

    // The name of an element, with the previous one in the document as a hint, since documents repeat
    // themselves.
    XmlName* FindElementName(char const* parserName, bool splitNamespace);

    // The one string with this text, which lives as long as the table. For parts of names.
    std::string const* Keep(std::string_view text);
    // By the namespace URI, empty for none, and the local name, both from Keep: what this costs does not grow
    // with their length.
    XmlName* FindByParts(std::string const* uri, std::string const* localName);

private:
    static std::uint64_t Hash(std::string_view text) noexcept;
    XmlName& Insert(std::string const* uri, std::string const* localName, std::uint64_t hash);
    XmlName* Add(std::string_view parserName, std::uint64_t hash, bool splitNamespace);
    void Grow();

    XmlTree& m_tree;
    std::deque<XmlName> m_names;
    std::vector<XmlName*> m_buckets;                                      // a power of two of them
    std::unordered_map<std::string_view, SharedText, TextHash> m_strings; // by their own text
    XmlName* m_lastElementName = nullptr;
};

} // namespace ZvXmlLib16::detail
