// CXmlElement, an element of the parsed tree.
#pragma once

#include "zvxmllib/document/NodeText.h"
#include "zvxmllib/document/TextPlace.h"
#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/foundation/InstanceMonitor.h"
#include "zvxmllib/foundation/SharedText.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ZvXmlLib16::detail {
class PrefixScopes;
class XmlTree;
struct XmlName;
} // namespace ZvXmlLib16::detail

namespace ZvXmlLib16 {

// A local name, a namespace URI, one text, attributes and child elements. Made, kept and ended by its
// document; read-only for everybody but the readers. Pointers and references to its parts are valid as long
// as the document's content, or, where a callback takes elements out, until that callback has returned true.
// Strings are in the local encoding.
class ZV_API CXmlElement : public CInstanceMonitor {
public:
    CXmlElement(CXmlElement const&) = delete;
    CXmlElement& operator=(CXmlElement const&) = delete;

    // The document that owns it.
    CXmlDocument const* GetDocument() const noexcept;
    // Null for the root.
    CXmlElement const* GetParentElm() const noexcept { return m_parent; }
    // The first child, null if there is none; continue with GetNextSiblingElement until null.
    CXmlElement* GetFirstElement() const noexcept {
        return m_text.IsElsewhere() ? GetContent().firstChild : nullptr;
    }
    CXmlElement* GetNextSiblingElement() const noexcept { return m_nextSibling; }

    // All character data directly inside this element, in document order, without carriage returns.
    std::string const& GetText() const;
    std::string const& GetLocalName() const noexcept;
    // The same as texts that outlive the document, shared by all nodes that have them.
    detail::SharedText ShareLocalName() const noexcept;
    detail::SharedText ShareNamespaceURI() const noexcept;
    // Empty for no namespace.
    std::string const& GetNamespaceURI() const noexcept;

    // In document order.
    std::vector<CXmlAttribute*> const& GetAttributes() const;
    // The value of the attribute with this name and namespace; an empty string if there is none.
    std::string const& GetAttribute(std::string const& localName, std::string const& namespaceURI) const;

    // For messages: /order/item[2]/price. A position is given where the parent has several children of that
    // name.
    std::string GetXPath() const;
    // Whether text other than white space stands ahead of a child. Known in the documents of strict contexts
    // alone.
    bool HasTextAheadOfChild() const;
    // Where its text stands between its children; empty if all of it stands behind them. Known in the
    // documents of strict contexts alone. WalkContent reads text and children in order.
    std::vector<TextPlace> GetTextPlaces() const;
    // The element of such a path, from this one on, which begins it. Null if there is none.
    CXmlElement const* FindByPath(std::string_view path) const;
    // The namespace that a prefix stands for at this element, empty if there is none; the empty prefix is the
    // default namespace. Scopes are known in the documents of strict contexts alone; others answer as
    // CXmlDocument does.
    std::string LookupNamespaceFromAlias(char const* alias) const;
    // Of the whole document, null where it knows none.
    detail::PrefixScopes const* GetScopes() const noexcept;
    // Where its start tag stands, as CZvException tells it. 0 unless the context of the document keeps
    // positions.
    std::uint64_t GetLine() const noexcept;
    std::uint64_t GetColumn() const noexcept;

    // The attributes one by one, without making a vector of them.
    std::size_t GetAttributeCount() const noexcept {
        return m_text.HasMark() ? GetAttributeBlock().count : 0;
    }
    CXmlAttribute* GetAttributeAt(std::size_t index) const noexcept;
    // The text if it is kept in one piece; otherwise empty, and GetText gives it.
    detail::NodeText const& GetNodeText() const noexcept {
        return m_text.IsElsewhere() ? GetContent().text : m_text;
    }

protected:
    ~CXmlElement() override;

private:
    friend class detail::XmlTree;
    friend class HiddenChildren;

    // What an element has that is more than a text: most have no child.
    struct Content {
        CXmlElement* firstChild; // null while all children are taken out
        detail::NodeText text;
    };
    // Stands right behind an element with attributes, which follow it in storage.
    struct AttributeBlock {
        std::uint32_t count;
        bool hasMoved; // only `moved` is valid then
        union {
            std::vector<CXmlAttribute*>* faces; // the result of GetAttributes, null until it is asked for
            AttributeBlock* moved;
        };
    };

    CXmlElement(CXmlElement const* parent, detail::XmlName const* name) noexcept
        : CInstanceMonitor(CountedByOwner{name}), m_parent(parent) {}

    detail::XmlName const& GetName() const noexcept {
        return *static_cast<detail::XmlName const*>(GetKept());
    }
    // Only for an element that has ever had a child.
    Content& GetContent() const noexcept { return *static_cast<Content*>(m_text.Elsewhere()); }
    // Only for an element with attributes.
    AttributeBlock& GetAttributeBlock() const noexcept {
        AttributeBlock* const block = reinterpret_cast<AttributeBlock*>(const_cast<CXmlElement*>(this) + 1);
        return block->hasMoved ? *block->moved : *block;
    }

    std::string GetQName() const;
    std::string GetNameWithPredicate() const;

    CXmlElement const* m_parent;
    CXmlElement* m_nextSibling = nullptr;
    detail::NodeText m_text; // or the place of the content; has its mark if there are attributes
};

} // namespace ZvXmlLib16
