// CAttribute and CAttributeCol, attributes that no schema describes.
#pragma once

#include "zvxmllib/collections/ZvIterator.h"
#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/foundation/InstanceMonitor.h"
#include "zvxmllib/foundation/SharedText.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace ZvXmlLib16 {

// Made by a CAttributeCol, held by CSmartPtr. References to its strings are valid until they are set.
class ZV_API CAttribute : public CXmlObjectBase, public CInstanceMonitor {
public:
    using CXmlObjectBase::GetBase;
    CXmlObjectBase* GetBase() override;
    std::string GetNamespace() override;

    // The local name, without a prefix.
    std::string const& GetName() const noexcept { return m_name.Get(); }
    // The value as a text.
    std::string const& GetValue() const noexcept { return m_value; }
    // The restrictions of the collection are not tested.
    void SetName(char const* name);
    void SetValue(char const* value);
    void SetNamespace(char const* ns);

    // A new attribute with the same name, namespace and value.
    CSmartPtr<CAttribute> Clone() const;

protected:
    // By local name, value and namespace; null counts as empty.
    CAttribute(char const* name, char const* value, char const* namespaceURI);
    ~CAttribute() override;

    std::string GetTargetNamespace() override;
    void ToXml_Int(CXmlWriter* writer, bool isRoot, char const* ns, CSerializationContext const& ctx,
                   bool optionalChoice) const override;
    // Throws: the collection does the reading.
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* current, CSerializationContext const& ctx,
                             bool optionalChoice) override;

    // Called before a change, with the new text.
    virtual void FireOnChangeName(char const* name);
    virtual void FireOnChangeNamespace(char const* ns);

private:
    friend class CAttributeCol;
    friend class CElement;
    CAttribute(detail::SharedText name, std::string_view value, detail::SharedText ns);

    detail::SharedText m_name;
    detail::SharedText m_namespace;
    std::string m_value;
};

// The attributes of an element, or those that a wildcard takes. `allowedNamespaces` is the list of an XML
// Schema wildcard: "##any", "##other", "##local", "##targetNamespace" or URIs, separated by blanks. What is
// added by strings and what is read must fit it, or CZvInvalidNamespaceException is thrown.
class ZV_API CAttributeCol : public CXmlCollection, public CInstanceMonitor {
public:
    // `namespaceURI` is for attributes added without one; if it is empty and the list begins with a URI, that
    // URI is.
    CAttributeCol(char const* namespaceURI, char const* allowedNamespaces, char const* targetNamespace);

    using CXmlObjectBase::GetBase;
    CXmlObjectBase* GetBase() override;

    // Add a new one at the end and return it: without a value an empty one, without a namespace in that of
    // the collection. A null name or value counts as empty.
    CSmartPtr<CAttribute> Add(char const* name);
    CSmartPtr<CAttribute> Add(char const* name, char const* value);
    CSmartPtr<CAttribute> Add(char const* name, char const* value, char const* namespaceURI);
    // Added unchanged and untested.
    CSmartPtr<CAttribute> Add(CAttribute* attribute);
    // Untested; null `after` puts it first, null `before` last.
    void AddAfter(CAttribute const* after, CAttribute* attribute);
    void AddBefore(CAttribute const* before, CAttribute* attribute);
    // Throws CZvInvalidParamException for an index out of range.
    CSmartPtr<CAttribute> Item(int index) const;

    // The attributes in order.
    CZvIterator<CAttribute> begin() const { return CZvIterator<CAttribute>(m_pHead); }
    CZvIterator<CAttribute> end() const { return CZvIterator<CAttribute>(nullptr); }

    // A new collection with clones of the items, and the declarations.
    CSmartPtr<CAttributeCol> Clone() const;

    // The declaration of a prefix.
    struct Declaration {
        detail::SharedText prefix;       // empty for the default namespace
        detail::SharedText namespaceURI; // empty takes the default namespace away
    };
    // A prefix that names in the values need; in place of the one of this prefix. Writing in a strict context
    // declares it on the element of the class that has this collection for its wildcard, unless it is in
    // force. Untyped elements have declarations of their own.
    void DeclarePrefix(char const* prefix, char const* namespaceURI);
    // Those in force at the element of a document of a strict context that stand before a colon in the
    // values.
    void KeepDeclarations(CXmlElement const& element);
    // Ahead of the element.
    void WriteDeclarations(CXmlWriter& writer) const;

protected:
    ~CAttributeCol() override;

    std::string GetTargetNamespace() override;
    void ToXml_Int(CXmlWriter* writer, bool isRoot, char const* ns, CSerializationContext const& ctx,
                   bool optionalChoice) const override;
    // Reads all attributes of `element` and returns `current`.
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* current, CSerializationContext const& ctx,
                             bool optionalChoice) override;

private:
    friend class CElement;
    static Registration s_registration;

    std::string m_allowedNamespaces;
    std::string m_targetNamespace;
    std::unique_ptr<std::vector<Declaration>> m_declarations; // null for none
};

} // namespace ZvXmlLib16
