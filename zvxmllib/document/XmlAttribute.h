// CXmlAttribute, an attribute of the parsed tree.
#pragma once

#include "zvxmllib/document/NodeText.h"
#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/foundation/InstanceMonitor.h"
#include "zvxmllib/foundation/SharedText.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace ZvXmlLib16::detail {
class XmlTree;
struct NodePosition;
struct XmlName;
} // namespace ZvXmlLib16::detail

namespace ZvXmlLib16 {

// Made, kept and ended by its document; read-only for everybody but the readers. Strings are in the local
// encoding, references to them are valid as long as the document's content. Values are as the parser
// normalised them.
class ZV_API CXmlAttribute : public CInstanceMonitor {
public:
    CXmlAttribute(CXmlAttribute const&) = delete;
    CXmlAttribute& operator=(CXmlAttribute const&) = delete;

    // The name without its prefix.
    std::string const& GetLocalName() const noexcept;
    // The same as texts that outlive the document, shared by all nodes that have them.
    detail::SharedText ShareLocalName() const noexcept;
    detail::SharedText ShareNamespaceURI() const noexcept;
    std::string const& GetValue() const;
    // Empty for no namespace, and for an attribute without a prefix.
    std::string const& GetNamespaceURI() const noexcept;
    // For messages: the path of the element, "/", the prefix and ":" if there is one, "@" and the local name.
    std::string GetXPath() const;
    // As those of CXmlElement.
    std::uint64_t GetLine() const noexcept;
    std::uint64_t GetColumn() const noexcept;

    // One of xmlns, type, schemaLocation and noNamespaceSchemaLocation in the XML Schema instance namespace
    // or the namespace of xmlns: not data of the schema.
    bool IsNamespaceAttribute() const noexcept;
    // nil in one of these namespaces.
    bool IsNilAttribute() const noexcept;

    // The value without keeping a string of it.
    std::string_view GetValueView() const noexcept { return m_value.View(); }

protected:
    ~CXmlAttribute() override;

private:
    friend class detail::XmlTree;

    detail::NodePosition GetPosition() const noexcept;

    CXmlAttribute(CXmlElement const* element, detail::XmlName const* name) noexcept
        : CInstanceMonitor(CountedByOwner{name}), m_element(element) {}

    detail::XmlName const& GetName() const noexcept {
        return *static_cast<detail::XmlName const*>(GetKept());
    }

    CXmlElement const* m_element;
    detail::NodeText m_value; // one run or a string
};

} // namespace ZvXmlLib16
