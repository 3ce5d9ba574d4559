// CElement and CElementCol, elements that no schema describes.
#pragma once

#include "zvxmllib/collections/Attribute.h"
#include "zvxmllib/document/TextPlace.h"
#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/foundation/InstanceMonitor.h"
#include "zvxmllib/foundation/SharedText.h"

#include <memory>
#include <string>
#include <vector>

namespace ZvXmlLib16 {

// A node of an editable tree of names, texts and namespaces: attributes, child elements, and one text, which
// is written after the children, or in a strict context where its parts stand between them. Held by
// CSmartPtr; belongs to one thread at a time. References to its strings are valid until they are set.
// Restrictions are lists as in CAttributeCol.
//
// Reading, writing and cloning throw CZvException for trees that are nested too deep; see kMaxNestingDepth.
class ZV_API CElement : public CXmlObjectBase, public CInstanceMonitor {
public:
    // Null arguments, and a namespace that does not fit the list, throw CZvInvalidNamespaceException.
    explicit CElement(char const* name);
    // `namespaceURI` is also the only namespace allowed, so it must not be a token such as "##any".
    CElement(char const* name, char const* namespaceURI);
    CElement(char const* name, char const* namespaceURI, char const* allowedNamespaces,
             char const* targetNamespace);
    // Turns the object's XML into a tree. With a non-empty default namespace, the element is later written as
    // a self-contained fragment with that default namespace.
    CElement(CXmlObjectBase* object, char const* defaultNamespace);
    // A copy is a clone.
    CElement(CElement const& other);
    CElement& operator=(CElement const& other);

    using CXmlObjectBase::GetBase;
    CXmlObjectBase* GetBase() override;
    std::string GetNamespace() override;

    // The local name, without a prefix.
    std::string const& GetName() const noexcept { return m_name.Get(); }
    // All text directly inside the element.
    std::string const& GetText() const noexcept { return m_text; }
    // The restrictions are not tested.
    void SetName(char const* name);
    // The places of its parts are forgotten.
    void SetText(char const* text);
    // Adds a part behind the text and the children that are there now.
    void AddText(char const* text);
    // Where the parts of the text stand, if not all behind the children; WalkContent reads both in order.
    // Reading in a strict context keeps them, writing in a strict context follows them, in XML and Fast
    // Infoset; JSON has no place for text other than white space ahead of a child. A part stays behind as
    // many children as it was, whatever becomes of them.
    std::vector<TextPlace> const& GetTextPlaces() const noexcept;
    void SetNamespace(char const* ns);

    // A prefix, or the default namespace, that names in texts and values of this element and its content
    // need. An empty URI takes the default namespace away.
    using Declaration = CAttributeCol::Declaration;
    // Reading in a strict context keeps the declarations made on the element, and those above it that stand
    // before a colon in its text and attributes or that xsi:type needs. Writing in a strict context declares
    // them there, unless they are in force.
    std::vector<Declaration> const& GetDeclarations() const noexcept;
    // In place of the one of this prefix.
    void DeclarePrefix(char const* prefix, char const* namespaceURI);

    // Never null. They are made at first use, so call the two below first where most elements have none.
    CSmartPtr<CAttributeCol> GetAttributes() const;
    CSmartPtr<CElementCol> GetChildElements() const;
    bool HasAttributes() const noexcept;
    bool HasChildElements() const noexcept;

    // Only tests this element, its attributes and everything below; does not store the restrictions. Throws
    // CZvInvalidNamespaceException.
    void SetNamespaceRestrictions(char const* allowedNamespaces, char const* targetNamespace);

    // Shares nothing with this element. The default namespace of a fragment is not copied. Throws
    // CZvInvalidNamespaceException if the namespace has been set to one that is not allowed.
    CSmartPtr<CElement> Clone() const;

    // The other forms read the first child of the document's root, as if the element were a member of a bound
    // object; in a strict context they read the root.
    using CXmlObjectBase::FromXml;
    // Reads the root of a document, with the default context.
    void FromXml(char const* xml);

protected:
    ~CElement() override;

    // What the constructors do.
    void Init(char const* name, char const* namespaceURI, char const* allowedNamespaces,
              char const* targetNamespace);
    // Replaces names, text, attributes and children by those of `element`.
    void CopyXmlElement(CXmlElement* element);

    std::string GetTargetNamespace() override;
    void ToXml_Int(CXmlWriter* writer, bool isRoot, char const* ns, CSerializationContext const& ctx,
                   bool optionalChoice) const override;
    // Reads `current` into this object and returns its next sibling; returns `current` if its namespace is
    // not allowed.
    CXmlElement* FromXml_Int(CXmlElement* parent, CXmlElement* current, CSerializationContext const& ctx,
                             bool optionalChoice) override;

    // Called before a change, with the new text.
    virtual void FireOnChangeName(char const* name);
    virtual void FireOnChangeNamespace(char const* ns);
    virtual void FireOnChangeText(char const* text);

private:
    friend class CElementCol;
    struct NamespaceIsTested {};
    CElement(NamespaceIsTested, detail::SharedText name, detail::SharedText ns, char const* allowed,
             char const* target);

    void SetRestrictions(char const* allowed, char const* target);
    void PromiseCollections();
    void AdoptCollections(CSmartPtr<CAttributeCol> attributes, CSmartPtr<CElementCol> elements);
    void CopyContent(CElement const& other);
    void ClearCollections();
    void ChangeNamespace(detail::SharedText ns);
    void KeepDeclarations(CXmlElement const& element);
    void KeepTextPlaces(CXmlElement const& element);
    void WriteMixedContent(CXmlWriter& writer, char const* ns, CSerializationContext const& ctx) const;
    void WriteDeclarations(CXmlWriter& writer) const;
    void WriteFragment(CXmlTextWriter& writer, CSerializationContext const& ctx, bool optionalChoice) const;
    detail::SharedText CollectionNamespace() const noexcept {
        return m_collectionsHaveNoNamespace ? detail::SharedText() : m_namespace;
    }

    // What few elements have: a restriction, a target namespace, the default namespace of a fragment,
    // declarations, places of texts.
    struct Rules {
        std::string allowedNamespaces{"##any"};
        std::string targetNamespace;
        std::string defaultNamespace;
        std::vector<Declaration> declarations;
        std::vector<TextPlace> textPlaces;
    };
    Rules& OwnRules();
    char const* AllowedNamespaces() const noexcept;
    char const* TargetNamespace() const noexcept;

    detail::SharedText m_name;
    detail::SharedText m_namespace;
    std::string m_text;
    std::unique_ptr<Rules> m_rules; // null for the defaults

    // Most elements of a document have no attributes or no children. A collection is made at first use, but
    // counted from the start in the record of its class, which is kept here until then.
    mutable CSmartPtr<CAttributeCol> m_attributes;
    mutable CSmartPtr<CElementCol> m_elements;
    mutable ClassType* m_attributesPromised = nullptr;
    mutable ClassType* m_elementsPromised = nullptr;
    // The collections have the namespace that this element was made with: m_namespace, or none.
    bool m_collectionsHaveNoNamespace = false;
};

// The children of an element, or what a wildcard takes. Elements of any namespace can be added or read; the
// list given to the constructor only applies to its own namespace. There are no
// bounds. Only a strict context applies list and bounds when it reads.
class ZV_API CElementCol : public CXmlCollection, public CInstanceMonitor {
public:
    // `namespaceURI` is for elements added by name alone; if it is empty and the list is a token such as
    // "##any", that token is used.
    CElementCol(char const* namespaceURI, char const* allowedNamespaces, char const* targetNamespace,
                int minOccurs, int maxOccurs);

    using CXmlObjectBase::GetBase;
    CXmlObjectBase* GetBase() override;
    std::string GetNamespace() override;

    // Throws CZvInvalidStateException if the collection has no namespace.
    CSmartPtr<CElement> Add(char const* name);
    CSmartPtr<CElement> Add(char const* name, char const* namespaceURI);
    CSmartPtr<CElement> Add(CElement* element);
    // Untested; null `after` puts it first, null `before` last.
    void AddAfter(CElement const* after, CElement* element);
    void AddBefore(CElement const* before, CElement* element);
    // Throws CZvInvalidParamException for an index out of range.
    CSmartPtr<CElement> Item(int index) const;

    // The elements in order.
    CZvIterator<CElement> begin() const { return CZvIterator<CElement>(m_pHead); }
    CZvIterator<CElement> end() const { return CZvIterator<CElement>(nullptr); }

    // A new collection with clones of the items.
    CSmartPtr<CElementCol> Clone() const;

    void ValidateCount(CSerializationContext const& ctx) const override;
    bool IsValidCount(CSerializationContext const& ctx) const override;

protected:
    ~CElementCol() override;

    std::string GetTargetNamespace() override;
    void ToXml_Int(CXmlWriter* writer, bool isRoot, char const* ns, CSerializationContext const& ctx,
                   bool optionalChoice) const override;
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* current, CSerializationContext const& ctx,
                             bool optionalChoice) override;
    // Reads as long as elements have this name and namespace.
    virtual CXmlElement* FromXmlLockElementName_Int(std::string localName, std::string namespaceURI,
                                                    CXmlElement* element, CXmlElement* current,
                                                    CSerializationContext const& ctx);

    // Whether what the schema says of a wildcard lets it have elements of this namespace.
    bool AllowsStrictly(std::string const& ns) const noexcept;

private:
    friend class CElement;
    friend class ZvXmlLib16Data::CElementInfo;
    static Registration s_registration;

    bool TakesStrictly(CXmlElement const& element, CSerializationContext const& ctx) const;
    bool ReadOne(CXmlElement* element, CXmlElement*& current, CSerializationContext const& ctx);

    // What a wildcard of a schema says, for a strict context.
    struct Limits {
        std::string allowedNamespaces;
        int minOccurs;
        int maxOccurs; // -1 for unbounded
    };

    detail::SharedText m_itemNamespace;
    std::string m_targetNamespace;
    std::unique_ptr<Limits const> m_limits; // null for any element, in any number
};

} // namespace ZvXmlLib16
