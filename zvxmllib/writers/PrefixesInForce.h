// What the prefixes of an output stand for, and the declarations that untyped content brings along.
#pragma once

#include "zvxmllib/writers/XmlWriter.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace ZvXmlLib16 {

// The declarations that have been written, as far as they hold in the open elements.
class PrefixesInForce {
public:
    struct Binding {
        std::string ns;             // empty for none
        std::uint64_t neededBy = 0; // for the writer: the last element that could not do without it
    };

    PrefixesInForce();

    Binding& At(std::string_view prefix) { return Entry(prefix).second; }
    // On the element of this depth, the innermost one. Returns the binding, which is in force from now on.
    Binding& Declare(std::string_view prefix, std::string const& ns, std::int32_t depth);
    // Whether an alias that is given inside an element has to be declared there. Throws
    // CZvInvalidParamException if it stands for another namespace: names that are written already may have
    // it.
    bool IsNew(std::string const& alias, std::string const& ns);
    // What the element of this depth declared is no longer in force.
    void EndElement(std::int32_t depth);

private:
    using Bindings = std::map<std::string, Binding, std::less<>>;
    struct Hidden {
        std::int32_t depth; // of the element whose declaration hides it
        std::string prefix;
        std::string ns;
    };

    Bindings::value_type& Entry(std::string_view prefix);

    Bindings m_bindings;
    std::vector<Hidden> m_hidden; // innermost last
};

// Declarations on their way to the element that is started next.
class KeptDeclarations {
public:
    struct Declaration {
        std::string alias; // empty for the default namespace
        std::string ns;
    };

    void Add(std::string const& alias, std::string const& ns) {
        if (alias != "xml") // known anyway
            m_next.push_back({alias, ns});
    }
    void Clear() noexcept { m_next.clear(); }
    bool IsEmpty() const noexcept { return m_next.empty(); }
    // Before the root: they go before what is given for the document.
    void ReplaceGiven(CXmlWriter::NamespaceMap& aliases, std::string& defaultNamespace);
    // Enters them in the scope of an element of `elementNs` that has just been opened. Returns those that are
    // to be written, valid until the next call. An element in no namespace takes no default one. Throws
    // CZvInvalidParamException for a prefix of two namespaces.
    std::vector<Declaration> const& Enter(CXmlWriter::CXmlWriterContext& context,
                                          std::string const& elementNs, PrefixesInForce& inForce);

private:
    void DropRepeated();

    std::vector<Declaration> m_next;
    std::vector<Declaration> m_entered;
};

} // namespace ZvXmlLib16
