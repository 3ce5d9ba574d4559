// Tests texts against simple types.
#pragma once

#include "zvxmllib/grammar/SimpleTypes.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace ZvXmlLib16::grammar {

struct SimpleType;

// What is asked for besides the verdict; null for what is not.
struct TestOutput {
    std::string* key = nullptr;     // that of the value is appended
    SimpleValue* value = nullptr;   // gets ids and idrefs, nothing else
    std::string* message = nullptr; // says what is wrong
};

// Borrows its arguments; one is made for each text. A value that is refused leaves nothing in the outputs but
// the message.
class SimpleTypeTest {
public:
    // Without a scope any prefix is taken, and {namespace}name too. `notations` is sorted.
    SimpleTypeTest(INamespaceScope const* scope, std::vector<std::string_view> const& notations) noexcept
        : m_scope(scope), m_notations(notations) {}

    // The type that accepts the text: `type`, or a member of the union that it is. Null if none does.
    SimpleType const* Accept(SimpleType const& type, std::string_view text, TestOutput const& output) const;
    // The key of a value by its form alone, without the facets of the type itself.
    bool ReadKey(SimpleType const& type, std::string_view text, std::string& key) const;

private:
    SimpleType const* AcceptAtomic(SimpleType const& type, std::string_view text,
                                   TestOutput const& output) const;
    SimpleType const* AcceptList(SimpleType const& type, std::string_view text,
                                 TestOutput const& output) const;
    SimpleType const* AcceptUnion(SimpleType const& type, std::string_view text,
                                  TestOutput const& output) const;
    SimpleType const* FindMember(SimpleType const& type, std::string_view text,
                                 TestOutput const& output) const;
    // A value of a schema, for which there is no scope, may be {namespace}prefix:name; members of other types
    // see prefix:name.
    std::string_view WithoutNamespace(SimpleType const& type, std::string_view text) const noexcept;
    // Appends the keys of the items.
    bool ReadItems(SimpleType const& type, std::string_view text, TestOutput const& output,
                   std::size_t& count) const;
    // The form alone, of a text after the white space rule.
    bool ReadForm(SimpleType const& type, std::string_view text, struct AtomicForm& form,
                  TestOutput const& output) const;
    bool ReadQName(SimpleType const& type, std::string_view text, TestOutput const& output) const;

    INamespaceScope const* m_scope;
    std::vector<std::string_view> const& m_notations;
};

} // namespace ZvXmlLib16::grammar
