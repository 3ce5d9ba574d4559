// CTypedObject, an element that a schema describes: the base of generated classes, and an object by itself.
#pragma once

#include "zvxmllib/binding/XmlObjectBase.h"
#include "zvxmllib/document/TextPlace.h"
#include "zvxmllib/foundation/SmartPtr.h"
#include "zvxmllib/generated/BoundSchema.h"
#include "zvxmllib/generated/ValueText.h"
#include "zvxmllib/grammar/GrammarRows.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ZvXmlLib16::generated {

// Holds the attributes and the content of an element in document order, values as texts. It writes itself in
// all formats. A setter tests the value by its type; in a strict context writing tests the rest of the
// schema's rules first, but for those of the whole document (ID, key). What a setter adds is put where the
// schema wants it.
//
// Held by CSmartPtr; belongs to one thread at a time. Texts are in the local encoding.
class CTypedObject : public CXmlObjectBase {
public:
    // One child element: a value, or an object (CTypedObject, or CElement for what no schema describes).
    struct Node {
        grammar::Symbol symbol;           // the name in the content model; kNone for what a wildcard took
        std::uint32_t declaration;        // index of the element, kNone for none
        CSmartPtr<CXmlObjectBase> object; // null for a value
        ValueText text;                   // of a value
    };
    // One attribute.
    struct Attribute {
        grammar::AttributeRow const* row; // null for one that the schema does not declare
        std::string name;                 // of such a one
        std::string ns;                   // of such a one
        ValueText value;                  // as a text
    };

    // An empty element of this type. `declaration` is the index of its element, kNone for none.
    CTypedObject(BoundSchema const& schema, grammar::TypeId type, std::uint32_t declaration);

    using CXmlObjectBase::GetBase;
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() override;

    // The type of this object: that of its element, or one derived from it. DeclarationId is the index of the
    // element, kNone for none.
    grammar::TypeId CurrentType() const noexcept { return m_type; }
    std::uint32_t DeclarationId() const noexcept { return m_declaration; }
    // Whether it has xsi:nil.
    bool IsNil() const noexcept { return m_isNil; }
    // Throws CZvInvalidStateException for an element that is not nillable. A nil element is written without
    // content.
    void SetNil(bool isNil);

    // The children, in document order. Valid until the object changes.
    std::vector<Node> const& ContentNodes() const noexcept { return m_nodes; }
    // Of a node of ContentNodes: its object if that is one of a schema, null otherwise; its name.
    CTypedObject const* ChildAt(std::size_t index) const noexcept;
    std::string NameAt(std::size_t index) const;
    std::vector<Attribute> const& AllAttributes() const noexcept { return m_attributes; }
    // Of simple content; of mixed content all text.
    std::string const& ContentText() const noexcept { return m_text; }

    // A part of mixed content: a text, or one of ContentNodes.
    struct Piece {
        std::string_view text; // empty for a child
        Node const* node;      // null for a text
    };
    // In document order. Valid until the object changes.
    std::vector<Piece> ContentPieces() const;
    // A text behind all that is there. Throws CZvInvalidStateException where the type is not mixed.
    void AddMixedText(std::string_view text);

    // What a prefix in a value of this element (xs:QName, xs:NOTATION) stands for; empty for no namespace.
    // The empty prefix is that of names without one.
    std::string PrefixUri(std::string_view prefix) const;
    // Declares a prefix, or for the empty one the default namespace, for the values of this element and all
    // in it. Throws CZvInvalidParamException for what Namespaces in XML does not allow.
    void DeclarePrefix(std::string const& prefix, std::string const& uri);

    // Gives it the name of this global element. Throws CZvInvalidParamException if its type does not fit.
    void NameAs(std::uint32_t element) const;

    // Throws CZvInvalidStateException, with the path, for content that is not as the schema wants it.
    void CheckContent() const;

protected:
    ~CTypedObject() override;

    std::string GetTargetNamespace() override { return GetNamespace(); }
    void ToXml_Int(CXmlWriter* writer, bool isRoot, char const* ns, CSerializationContext const& ctx,
                   bool optionalChoice) const override;
    void AttributesToXml_Int(CXmlWriter* writer, CSerializationContext const& ctx) const override;
    // Replaces what it holds. Throws CZvValidationException for an element that is not valid by the schema.
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* current, CSerializationContext const& ctx,
                             bool optionalChoice) override;

    // For generated classes. Child elements are named by the index of a declaration of theirs in the content
    // model.
    std::size_t Count(std::uint32_t declaration) const noexcept;
    // Null, or end, if there is none.
    Node const* Find(std::uint32_t declaration) const noexcept;
    std::size_t NextIndex(std::uint32_t declaration, std::size_t from) const noexcept;
    // In place of all of that name; an added one goes behind them. Throw CZvInvalidValueException for a value
    // that the type does not allow, CZvInvalidParamException for an object of another type, or null.
    void PutText(std::uint32_t declaration, std::string text);
    void AppendText(std::uint32_t declaration, std::string text);
    void PutObject(std::uint32_t declaration, CTypedObject* object);
    void AppendObject(std::uint32_t declaration, CTypedObject* object);
    // Throws CZvInvalidParamException for an object that may not stand there.
    void DropAll(std::uint32_t declaration);
    // The object of that name; made if there is none.
    CTypedObject& Obtain(std::uint32_t declaration);
    // Null if it is not there and has no default.
    ValueText const* FindAttribute(std::uint32_t attribute) const noexcept;
    void PutAttribute(std::uint32_t attribute, std::string text);
    void DropAttribute(std::uint32_t attribute);
    // Of simple content.
    void PutContentText(std::string text);

    // Of a generated class's own accessors. TextOf is empty where there is nothing.
    std::string TextOf(std::uint32_t declaration) const;
    // Of an absent attribute its default.
    std::string AttributeOf(std::uint32_t attribute) const;
    bool IsNilAt(std::uint32_t declaration) const noexcept;
    void PutNil(std::uint32_t declaration);
    // Throws CZvInvalidStateException if there is none.
    CTypedObject const& Require(std::uint32_t declaration) const;
    CTypedObject* FindObject(std::uint32_t declaration) const noexcept;
    // By the index in ContentNodes, or the number among those of one name.
    std::size_t IndexOf(std::uint32_t declaration, std::size_t number) const;
    std::string TextAt(std::size_t index) const;
    CTypedObject& ObjectAt(std::size_t index) const;
    CTypedObject& AppendNew(std::uint32_t declaration);

    template <class Derived>
    friend class ListBase;
    template <class Codec>
    friend class ValueList;
    template <class Object>
    friend class ObjectList;

private:
    friend class ObjectBuilder;

    grammar::GrammarRows const& Rows() const noexcept { return m_schema->GetGrammar().GetRows(); }
    std::uint32_t SimpleTypeId() const noexcept;
    void TestValue(std::uint32_t type, std::string_view text, char const* name) const;
    std::size_t PlaceFor(grammar::Symbol symbol) const;
    bool IsMixed() const noexcept;
    void Insert(std::uint32_t declaration, CSmartPtr<CXmlObjectBase> object, std::string_view text);
    std::string const& Namespace() const noexcept;
    void BecomeEmpty() noexcept;
    void BeginDocument(CXmlWriter& writer, CSerializationContext const& ctx) const;
    void WriteTypeName(CXmlWriter& writer) const;
    void WriteNodes(CXmlWriter& writer, std::size_t first, std::size_t end,
                    CSerializationContext const& ctx) const;
    void WriteMixedContent(CXmlWriter& writer, CSerializationContext const& ctx) const;
    void WriteNode(CXmlWriter& writer, Node const& node, CSerializationContext const& ctx) const;
    class ContentCheck;

    BoundSchema const* m_schema;
    grammar::TypeId m_type;
    std::uint32_t m_declaration;
    bool m_isNil = false;
    std::vector<Attribute> m_attributes;
    std::vector<Node> m_nodes;
    std::string m_text;
    // What few have.
    struct Rare {
        std::string ns;                                            // of an element without a declaration
        std::vector<std::pair<std::string, std::string>> prefixes; // that names in its values need
        std::vector<TextPlace> textPlaces; // of mixed content, if not behind all nodes
    };
    std::vector<TextPlace> const& TextPlaces() const noexcept;
    Rare& OwnRare();
    std::unique_ptr<Rare> m_rare;
};

} // namespace ZvXmlLib16::generated
