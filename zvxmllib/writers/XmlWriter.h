// CXmlWriter, the output contract of a serialisation, with the stack of open elements and their
// namespace scopes.
#pragma once

#include "zvxmllib/foundation/Enumerations.h"
#include "zvxmllib/foundation/MemoryLeakHelp.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>

namespace ZvXmlLib16 {

// Drivers, metadata and collections call these operations in document order, and a derived class turns them
// into a format: options, Open, what stands before the root, then for each element its start, attributes,
// content and end, then Close. A writer writes one document and belongs to one thread. The order of the
// virtual operations is a contract. Strings are in the local encoding.
class ZV_API CXmlWriter : public CInstanceMonitor {
public:
    // Namespace URI to alias, ordered by the URI.
    using NamespaceMap = std::map<std::string, std::string>;

    ~CXmlWriter() override;

    virtual void Open();
    // Throws CZvException if an element is still open.
    virtual void Close();
    // Inside an element these two hold for it and what is nested in it, before the root for the document.
    virtual void SetDefaultNamespace(std::string const& ns);
    virtual void AddNamespaceAlias(std::string const& alias, std::string const& ns);
    virtual void WriteComment(std::string const& text) = 0;
    // `text` is a whole instruction.
    virtual void WriteProcessingInstruction(std::string const& text) = 0;
    virtual void WriteInlineSchema(std::string const& text) = 0;
    virtual void WriteElementStart(std::string const& name, std::string const& ns) = 0;
    // `isDefault`: the text equals the default value of the element.
    virtual void WriteElementValue(std::string const& text, ItemType type, bool isDefault) = 0;
    virtual void WriteElementEnd() = 0;
    // Attributes stand directly behind the start of their element, or CZvException is thrown.
    virtual void WriteAttribute(std::string const& name, std::string const& ns, std::string const& value,
                                ItemType type) = 0;
    // xsi:type
    virtual void WriteTypeAttribute(std::string const& ns, std::string const& typeName, ItemType type) = 0;
    // xsi:nil="true"
    virtual void WriteNilAttribute() = 0;

protected:
    // Called when a collection begins inside an element whose last collection has ended but is still
    // open in the output. Only formats with arrays have something to do.
    virtual void CloseOpenArray();

public:
    // 1 just before the items of a collection are written, 3 just after; nothing without an open element.
    void SetCollectionState(int state);

    // Where a collection of the current element stands: what SetCollectionState stored.
    class CXmlWriterContext;

protected:
    explicit CXmlWriter(char const* className);
    explicit CXmlWriter(Registration& registration);

    // The first alias of AA, AB, ... ZZ, AAA, ... that the map does not hold.
    static std::string GenerateAlias(NamespaceMap const& map);

    // Opens an element inside the current one, or the root. Contexts that have been closed are used again.
    CXmlWriterContext& PushContext(std::string const& name, std::string const& ns);
    // Closes the innermost element; its context stays valid until the next PushContext.
    void PopContext();

    std::string m_defaultNamespace;        // of the root element's context
    CXmlWriterContext* m_pContext = nullptr; // innermost open element, null outside the root
    NamespaceMap m_namespaceMap;           // known before the root element

private:
    std::unique_ptr<CXmlWriterContext> m_root;  // the outermost context; each owns the next inner one
    std::int32_t m_contextsCreated = 0;
};

// One open element and its scope of aliases. A scope of its own is made only when it is needed; otherwise
// default namespace and map are those of the parent.
class ZV_API CXmlWriter::CXmlWriterContext {
public:
    CXmlWriterContext(CXmlWriterContext const&) = delete;
    CXmlWriterContext& operator=(CXmlWriterContext const&) = delete;

    std::string const& GetDefaultNamespace() const noexcept { return m_scope->m_ownDefaultNamespace; }
    NamespaceMap const& GetNamespaceMap() const noexcept { return m_scope->m_ownMap; }
    // The alias of `ns` in this scope, null if there is none. An empty alias counts as none.
    std::string const* FindAlias(std::string const& ns) const;
    void SetNamespaceMapValue(std::string const& ns, std::string const& alias);
    void SetDefaultNamespace(std::string const& ns);

    std::int32_t m_childCount = 0;   // elements written inside this one
    bool m_startTagOpen = true;      // not yet closed by a ">"
    std::int32_t m_depth = 0;        // 0 for the root
    std::string m_namespace;
    std::string m_name;
    std::string m_qualifiedName;     // as written at the start tag, repeated at the end tag
    CXmlWriterContext* m_parent = nullptr;
    bool m_doubleTerminator = false; // of the Fast Infoset writer
    bool m_arrayOpen = false;        // "[" written, "]" not yet
    std::int32_t m_collectionState = 0;

private:
    friend class CXmlWriter;
    CXmlWriterContext() = default;

    void Reset(CXmlWriterContext* parent, std::string const& name, std::string const& ns);
    void MakeOwnScope();

    CXmlWriterContext* m_scope = this; // the context that holds the scope in force
    std::string m_ownDefaultNamespace;
    NamespaceMap m_ownMap;
    std::unique_ptr<CXmlWriterContext> m_inner; // used again for the next element at this depth
    // The last answer of FindAlias in this scope; points into m_ownMap, null when nothing is kept.
    mutable NamespaceMap::value_type const* m_lastAlias = nullptr;
};

} // namespace ZvXmlLib16
