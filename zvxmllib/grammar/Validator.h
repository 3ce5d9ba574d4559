// Tests documents by a grammar (XML Schema 1.0 Part 1, second edition).
#pragma once

#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/document/XmlElement.h"
#include "zvxmllib/grammar/ContentOrder.h"
#include "zvxmllib/grammar/ContentWalk.h"
#include "zvxmllib/grammar/Grammar.h"
#include "zvxmllib/grammar/SymbolCache.h"

#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace ZvXmlLib16::grammar {

// What an element turned out to be.
struct Assessment {
    std::uint32_t declaration = kNone; // kNone for none
    TypeId type = kAnyType;
    bool isNil = false;
    // Where it stands in the content model: the declaration of the particle that took it, kNone for a
    // wildcard.
    std::uint32_t particleDeclaration = kNone;
};

// Told of a document as it is validated, in document order.
class IAssessmentReceiver {
public:
    virtual void OnElement(CXmlElement& element, Assessment const& assessment) = 0;
    // In place of OnElement, OnValue and OnElementEnd, where the element has a declaration, this value, and
    // nothing beside it. The white space rule leaves the value as it is.
    virtual void OnPlainValue(std::uint32_t declaration, std::uint32_t particleDeclaration,
                              std::string_view text) = 0;
    // `row` is null for an attribute without a declaration.
    virtual void OnAttribute(CXmlAttribute& attribute, AttributeRow const* row) = 0;
    // An attribute that is there by its default or fixed value.
    virtual void OnDefaultAttribute(AttributeRow const& row) = 0;
    // Simple content, with the default in place of nothing.
    virtual void OnValue(std::string_view text, std::uint32_t type) = 0;
    // The text of mixed content, behind all children.
    virtual void OnText(CXmlElement& element, std::string_view text) = 0;
    virtual void OnElementEnd() = 0;
    // In place of all these: an element that is passed over with its content.
    virtual void OnSkipped(CXmlElement& element) = 0;

protected:
    ~IAssessmentReceiver() = default;
};

// For one document. The document is to be loaded in a strict context: others lose what is tested here.
class Validator {
public:
    // All are borrowed. `receiver` may be null.
    Validator(Grammar const& grammar, CSerializationContext const& ctx,
              IAssessmentReceiver* receiver = nullptr);
    Validator(Validator const&) = delete;
    Validator& operator=(Validator const&) = delete;
    ~Validator();

    // For formats in which order means nothing: children that do not fit in their order are taken in that of
    // the schema. With `ignoresNamespaces` names without a namespace stand for those of the schema that have
    // one, too. `orders` is borrowed.
    void TakeAnyOrder(ContentOrders const& orders, bool ignoresNamespaces) noexcept {
        m_orders = &orders;
        m_ignoresNamespaces = ignoresNamespaces;
    }

    // The root must be a global element, or name its type by xsi:type. Throws CZvValidationException at the
    // first violation. With a failure limit in the context goes on and throws the first one at the end; the
    // context has the list. `isLax` passes over a root that is neither.
    void ValidateDocument(CXmlElement& root, bool isLax = false);

private:
    class ChildContent;
    struct Children {
        std::vector<CXmlElement*> elements;
        std::vector<ElementName> names;
        std::vector<std::uint32_t> room; // of the walk
    };
    class Scope;
    struct Target {
        std::uint32_t declaration; // kNone for none
        TypeId type;
        ProcessContents process; // of what has no declaration
        bool isNil;
        std::uint32_t particleDeclaration;
    };

    void ValidateElement(CXmlElement& element, std::uint32_t declaration, ProcessContents process,
                         std::uint32_t particleDeclaration);
    bool TakePlainValue(CXmlElement const& element, std::uint32_t declaration,
                        std::uint32_t particleDeclaration);
    bool FindType(CXmlElement& element, Target& target);
    bool FindNamedType(CXmlElement& element, std::string_view text, Target& target);
    bool ReadNil(CXmlElement& element, Target& target, std::string_view text);
    void ValidateContent(CXmlElement& element, Target const& target);
    void ValidateAttributes(CXmlElement& element, TypeId type);
    void ValidateAttribute(CXmlElement& element, CXmlAttribute& attribute, Range uses,
                           std::uint32_t wildcard);
    void ValidateAttributeValue(CXmlElement& element, CXmlAttribute& attribute, AttributeRow const& row);
    void AddDefaultAttributes(CXmlElement& element, Range uses);
    void ValidateSimpleContent(CXmlElement& element, Target const& target, std::uint32_t type);
    void ValidateComplexContent(CXmlElement& element, Target const& target, ComplexTypeRow const* type);
    void ValidateChildren(CXmlElement& element, TypeId type, std::uint32_t particle);
    void AddNamespaces(Children& children, TypeId type) const;
    void SortUnlessFit(Children& children, TypeId type, std::uint32_t particle) const;
    void ReceiveUndeclared(CXmlAttribute& attribute);
    void ValidateNilContent(CXmlElement& element, Target const& target);
    void CheckFixedText(CXmlElement& element, ElementRow const& row, std::string_view text);
    bool IsEqual(CXmlElement& element, std::uint32_t type, SimpleValue const& value, char const* fixed);
    void NoteIds(CXmlElement& element, SimpleValue const& value);
    void CheckReferences();
    // `hasSimpleType` is true, too, where that is not known for a failure.
    void LeaveElement(Target const& target, SimpleValue const* value, bool hasSimpleType = true,
                      std::string_view text = {});
    bool HasSimpleType(TypeId type) const noexcept;
    std::string_view TextOf(CXmlElement const& element);
    template <class Node>
    void Fail(Node const& node, std::string message);

    Grammar const& m_grammar;
    CSerializationContext const& m_ctx;
    IAssessmentReceiver* const m_receiver;
    ContentOrders const* m_orders = nullptr; // null to keep the order
    bool m_ignoresNamespaces = false;
    SymbolCache m_symbols;
    std::deque<Children> m_children; // by depth
    bool const m_hasIdentities;      // in the whole grammar
    IdentityWalk m_identities;
    std::unordered_map<std::string, CXmlElement const*> m_ids;
    std::vector<std::pair<std::string, CXmlElement*>> m_idReferences;
    std::string m_room;    // texts that are in pieces
    std::string m_message; // of simple types
    SimpleValue m_value;
    std::vector<bool> m_isSeen; // by attribute of the current element
    unsigned m_depth = 0;
    unsigned m_idAttributes = 0; // of the current element
};

} // namespace ZvXmlLib16::grammar
