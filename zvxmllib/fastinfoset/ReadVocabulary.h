// ReadVocabulary, the tables through which a document that is being read refers to earlier content.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ZvXmlLib16::detail {
class XmlTree;
struct XmlName;
} // namespace ZvXmlLib16::detail

namespace ZvXmlLib16 {

class CFastInfosetContext;

// The part of a text that an element keeps: up to the first zero, without carriage returns.
std::string ElementText(std::string_view text);

// Entry n of a table stands at place n - 1. The texts are local text and lie in the tree that is being built.
struct ReadVocabulary {
    // A qualified name by the entries of its parts, 0 for none.
    struct QName {
        std::uint32_t prefix;
        std::uint32_t namespaceName;
        std::uint32_t localName;
        detail::XmlName const* name; // null until it is used
    };
    template <class Entry>
    struct Table {
        std::vector<Entry> entries;
        char const* content; // for messages
    };
    // A part of names, with the string that the names of the tree share, null until one of them needs it.
    struct NamePart {
        std::string_view text;
        std::string const* shared = nullptr;
    };
    using Strings = Table<std::string_view>;
    using NameParts = Table<NamePart>;
    using QNames = Table<QName>;

    // What X.891 gives every document.
    ReadVocabulary();
    // The same, or, where the context says so, the vocabulary in the context.
    ReadVocabulary(CFastInfosetContext const& context, detail::XmlTree& tree);

    NameParts prefixNames{{}, "prefixes"};
    NameParts namespaceNames{{}, "namespace names"};
    NameParts localNames{{}, "local names"};
    QNames elementNames{{}, "element names"};
    QNames attributeNames{{}, "attribute names"};
    Strings attributeValues{{}, "attribute values"};
    Strings characterChunks{{}, "character chunks"};
};

} // namespace ZvXmlLib16
