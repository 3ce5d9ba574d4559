// The names in plain XML text: as they are written, and what they mean where they stand.
#pragma once

#include "zvxmllib/document/NameTable.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace ZvXmlLib16::detail {

// A name of ASCII letters as it is written, with or without a prefix. Names are slices of the input.
struct PlainName {
    std::string_view text;
    std::size_t prefixLength = 0;
    bool isDeclaration = false;    // xmlns, or with it as a prefix
    XmlName const* name = nullptr; // what it means in `scope`
    std::uint32_t scope = 0;       // 0 for none
    std::uint64_t object = 0;      // the innermost open JSON object that has it, for UniqueNames
    PlainName* likelyNext = nullptr;
    // The first bytes, as many as there are of eight, and ones where they are.
    std::uint64_t head = 0;
    std::uint64_t headMask = 0;

    std::string_view GetPrefix() const noexcept { return text.substr(0, prefixLength); }
    std::string_view GetLocalName() const noexcept {
        return prefixLength == 0 ? text : text.substr(prefixLength + 1);
    }
    // Whether the text from `at` on begins with it.
    bool Begins(char const* at, char const* end) const noexcept;
};

// Whether it is a whole name of ASCII letters without a colon.
bool IsPlainNamePart(std::string_view text) noexcept;

// Those of elements or those of attributes, each kept once. The one that followed last time is tried first,
// since documents repeat themselves.
class PlainNameList {
public:
    // The name at `at`, which moves behind it. Null if there is none of this kind; what follows is no
    // character of a name and not the end of the input.
    PlainName* Read(char const*& at, char const* end);

private:
    PlainName* ReadUnexpected(char const*& at, char const* end);
    PlainName& Keep(std::string_view text, std::size_t prefixLength);

    std::unordered_map<std::string_view, PlainName, NameTable::TextHash> m_names;
    PlainName* m_last = nullptr;
};

// The namespaces of the prefixes that are declared where the reader is.
class PlainScopes {
public:
    explicit PlainScopes(NameTable& names);

    // Where it was before an element began.
    struct Place {
        std::uint32_t scope;
        std::uint32_t bindings;
    };
    Place GetPlace() const noexcept { return {m_scope, static_cast<std::uint32_t>(m_bindings.size())}; }
    void Return(Place const& place) noexcept {
        m_scope = place.scope;
        m_bindings.resize(place.bindings);
    }

    // A declaration of the element that began at `place`; both strings are the name table's. False for one
    // more than are kept, and for the prefix that it declares already.
    bool Declare(Place const& place, std::string const* prefix, std::string const* uri);
    // What the name means here, null for a prefix that is not declared. An attribute without a prefix is in
    // no namespace.
    XmlName const* FindElementName(PlainName& name) {
        return name.scope == m_scope ? name.name : Find(name, name.prefixLength != 0, true);
    }
    XmlName const* FindAttributeName(PlainName& name) {
        return name.scope == m_scope ? name.name : Find(name, name.prefixLength != 0, false);
    }

private:
    struct Binding {
        std::string const* prefix;
        std::string const* uri;
    };

    XmlName const* Find(PlainName& name, bool hasPrefix, bool isElement);

    NameTable& m_names;
    std::vector<Binding> m_bindings; // the innermost last
    std::uint32_t m_scope = 1;       // a number for each element with declarations
    std::uint32_t m_lastScope = 1;
};

} // namespace ZvXmlLib16::detail
