// A grammar with the classes of its types.
#pragma once

#include "zvxmllib/foundation/SmartPtr.h"
#include "zvxmllib/grammar/ContentOrder.h"
#include "zvxmllib/grammar/Grammar.h"

#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace ZvXmlLib16 {
class CSerializationContext;
class CXmlDocument;
class CXmlElement;
} // namespace ZvXmlLib16

namespace ZvXmlLib16::generated {

class CTypedObject;

// Makes an object for an element of this type. `declaration` is kNone for none.
using ObjectMaker = CTypedObject* (*)(grammar::TypeId type, std::uint32_t declaration);

// What the order of child elements says, and their names: in JSON nothing, and often without their
// namespaces.
enum class InputOrder { kAsWritten, kAny, kAnyWithoutNamespaces };

// The names of a declaration as writers want them.
struct DeclaredName {
    std::string name;      // local
    std::string const* ns; // shared by all of the namespace
};

// Made once for a schema; any number of threads may then use it.
class BoundSchema {
public:
    // `rows` are borrowed. `maker` null makes plain objects. `base` is a schema whose rows these begin with,
    // so that objects of both can be put together; null for none.
    explicit BoundSchema(grammar::GrammarRows const& rows, ObjectMaker maker = nullptr,
                         BoundSchema const* base = nullptr);
    BoundSchema(BoundSchema const&) = delete;
    BoundSchema& operator=(BoundSchema const&) = delete;
    ~BoundSchema();

    // What the rows say, ready for the validator.
    grammar::Grammar const& GetGrammar() const noexcept { return m_grammar; }
    grammar::ContentOrders const& GetContentOrders() const noexcept { return m_orders; }
    // Whether it is `other`, or begins with its rows.
    bool Extends(BoundSchema const& other) const noexcept;
    // Whether all elements are in some namespace, so that one of these can be the default.
    bool IsQualified() const noexcept { return m_isQualified; }
    DeclaredName const& NameOfElement(std::uint32_t element) const noexcept {
        return m_elementNames[element];
    }
    // Null for a row of another schema, such as one that this extends.
    DeclaredName const* FindNameOfAttribute(grammar::AttributeRow const& row) const noexcept;
    CSmartPtr<CTypedObject> MakeObject(grammar::TypeId type, std::uint32_t declaration) const;

    // The document's root as an object. Its name has to be that of a global element, or `element` if that is
    // not kNone. Throws CZvValidationException for a document that is not valid by the schema. Contexts that
    // are not strict read like strict ones.
    CSmartPtr<CTypedObject> Read(CXmlElement& root, CSerializationContext const& ctx,
                                 std::uint32_t element = grammar::kNone,
                                 InputOrder order = InputOrder::kAsWritten) const;

private:
    grammar::Grammar const m_grammar;
    grammar::ContentOrders const m_orders;
    ObjectMaker const m_maker;
    BoundSchema const* const m_base;
    std::set<std::string> m_namespaces;
    std::vector<DeclaredName> m_elementNames;   // by row
    std::vector<DeclaredName> m_attributeNames; // by row
    bool m_isQualified = true;
};

} // namespace ZvXmlLib16::generated
