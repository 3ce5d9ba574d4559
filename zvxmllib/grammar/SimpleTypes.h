// The simple types of a grammar, ready to test texts.
#pragma once

#include "zvxmllib/grammar/GrammarRows.h"
#include "zvxmllib/grammar/QuickTest.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace ZvXmlLib16::grammar {

// The namespaces in scope where a text stands, for values that are qualified names.
class INamespaceScope {
public:
    // False if the prefix is not declared. The empty prefix is the default namespace, which may be none.
    virtual bool FindNamespace(std::string_view prefix, std::string& ns) const = 0;

protected:
    ~INamespaceScope() = default;
};

// A value, so that two are equal (XML Schema Part 2, 2.2.1) if their keys are. Of a union it is that of the
// member type that accepted the text.
struct SimpleValue {
    std::string key;
    std::uint32_t type = 0;          // id of the type that accepted the text
    std::vector<std::string> ids;    // the values that are of type ID
    std::vector<std::string> idrefs; // of type IDREF
};

struct SimpleType;

// Made once of rows that a schema processor has accepted; any number of threads may then use it.
class SimpleTypes {
public:
    // `rows` is borrowed. Throws CZvInvalidParamException for a facet that cannot be used.
    explicit SimpleTypes(GrammarRows const& rows);
    SimpleTypes(SimpleTypes const&) = delete;
    SimpleTypes& operator=(SimpleTypes const&) = delete;
    ~SimpleTypes();

    // Tests a text as it stands in a document: applies the white space rule of the type, then tests the
    // lexical form and all facets. Throws CZvInvalidValueException. `scope` may be null where no prefix can
    // be looked up: then any is taken, and what rows write for a QName too. Fills `value` unless it is null.
    // Whether an ENTITY is declared is not tested.
    void Check(std::uint32_t type, std::string_view text, INamespaceScope const* scope,
               SimpleValue* value) const;
    // Without the exception: the message, or null for a text that fits. `room` keeps it.
    char const* FindFault(std::uint32_t type, std::string_view text, INamespaceScope const* scope,
                          SimpleValue* value, std::string& room) const;

    // Whether it can be told at a glance that a text fits, and that the white space rule leaves it as it is.
    // False says nothing.
    bool FitsAtAGlance(std::uint32_t type, std::string_view text) const noexcept {
        return m_quickTests[type].Accepts(text);
    }

    // The nearest built-in type: of a list or union anySimpleType (but NMTOKENS, IDREFS, ENTITIES).
    BuiltIn GetBuiltIn(std::uint32_t type) const noexcept;
    Variety GetVariety(std::uint32_t type) const noexcept;
    // Whether it is `base`, or made from it by restriction, or is (made from) a member of that union.
    bool IsDerivedFrom(std::uint32_t type, std::uint32_t base) const noexcept;
    // Whether a value can hold, or be, one of type ID, IDREF, QName or NOTATION.
    bool HasIds(std::uint32_t type) const noexcept;
    bool HasQNames(std::uint32_t type) const noexcept;
    // The text with the white space rule of the type applied, in `room` if it changes. That of a union is the
    // rule of the member that accepts the text.
    std::string_view Normalize(std::uint32_t type, std::string_view text, std::string& room) const;

private:
    std::vector<std::string_view> m_notations; // sorted
    std::vector<std::unique_ptr<SimpleType>> m_types;
    std::vector<QuickTest> m_quickTests; // by type
};

} // namespace ZvXmlLib16::grammar
