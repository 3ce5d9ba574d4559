// CXmlWriter, the output contract of a serialisation, with the stack of open elements and their
// namespace scopes.
#pragma once

#include "zvxmllib/foundation/Enumerations.h"
#include "zvxmllib/foundation/InstanceMonitor.h"
#include "zvxmllib/values/variant/ZvVariant.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace ZvXmlLib16 {

// How far the writing of a collection of child elements has come in an element.
enum CollectionState : std::int32_t {
    CollectionState_None = 0,
    CollectionState_Announced = 1, // its items follow; nothing of it is written yet
    CollectionState_ArrayOpen = 2, // formats with arrays: its "[" is written, and more items may follow
    CollectionState_Ended = 3,     // all items are written; an open array still needs its "]"
};

// Drivers, metadata and collections call these operations in document order, and a derived class turns them
// into a format: options, Open, anything before the root, then for each element its start, attributes,
// content and end, then Close. A writer writes one document and belongs to one thread. The order of the
// virtual operations is a contract. Strings are in the local encoding.
class ZV_API CXmlWriter : public CInstanceMonitor {
public:
    // Namespace URI to alias, ordered by the URI.
    using NamespaceMap = std::map<std::string, std::string>;

    // One open element and its scope of aliases.
    class CXmlWriterContext;

    CXmlWriter(CXmlWriter const&) = delete;
    CXmlWriter& operator=(CXmlWriter const&) = delete;
    ~CXmlWriter() override;

    // Begins the document; called once, first.
    virtual void Open();
    // Throws CZvException if an element is still open.
    virtual void Close();
    // Inside an element these two apply to its attributes and content, but not to its own name, which is
    // already written. Before the root they apply to the document.
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
    // Attributes directly follow the start of their element; anywhere else throws CZvException.
    virtual void WriteAttribute(std::string const& name, std::string const& ns, std::string const& value,
                                ItemType type) = 0;
    // xsi:type
    virtual void WriteTypeAttribute(std::string const& ns, std::string const& typeName, ItemType type) = 0;
    // xsi:nil="true"
    virtual void WriteNilAttribute() = 0;

protected:
    // Called when a collection begins inside an element whose last collection is still open in the output.
    // Only formats with arrays do anything here.
    virtual void CloseOpenArray();

public:
    // Declares an alias, or for an empty one the default namespace, on the element that is started next: for
    // names in its texts. Writers that keep no such names, the usual ones, do nothing.
    virtual void DeclareOnNextElement(std::string const& alias, std::string const& ns);
    // Call it behind the attributes of an element that has text beside its children: the white space in it
    // means something, and formatting adds none. Usual writers, and formats where it means nothing, do
    // nothing.
    virtual void BeginMixedContent();
    // For StrictWriter, which takes the next operation over where it does something.
    static constexpr bool kWritesTextElements = false;
    // Writes an element that has a text and nothing else in one step, if the format has one and this element
    // needs no more. Returns false with nothing done otherwise: then the three operations above are called.
    // `type` is that of the value, as WriteElementValue takes it.
    virtual bool TryWriteTextElement(std::string const& name, std::string const& ns, std::string const& text,
                                     ItemType type);

    // Room for a value on its way from a property to the output, reused so that its strings keep their
    // memory. Writing another element overwrites it.
    struct ValueRoom {
        ZvVariant value;  // of the property
        std::string text; // its text
    };
    // The room of this writer.
    ValueRoom& GetValueRoom() noexcept { return m_valueRoom; }

    // Call with CollectionState_Announced just before the items of a collection are written and with
    // CollectionState_Ended just after. No effect without an open element.
    void SetCollectionState(int state);

    // Whether elements that are started directly inside the open one say their type, although they have its
    // name; and whether the open element is one of them.
    void SetChildrenSayType(bool sayType) noexcept;
    bool SaysType() const noexcept;

protected:
    // Derived classes are counted under their own names.
    explicit CXmlWriter(char const* className);
    explicit CXmlWriter(Registration& registration);

    // Gives `ns` the first alias of AA, AB, ... ZZ, AAA, AAB, ... that is free in the scope of the context.
    // Valid until the context is used again.
    static std::string const& GenerateAlias(CXmlWriterContext& context, std::string const& ns);

    // Opens an element inside the current one, or the root. Closed contexts are reused.
    CXmlWriterContext& PushContext();
    // Closes the innermost element; its context stays valid until the next PushContext.
    void PopContext() noexcept;
    // An element inside the open one that needed no context of its own: counted all the same.
    void CountContext() noexcept { ++m_contextsNotCounted; }

    std::string m_defaultNamespace;          // of the root element's context
    CXmlWriterContext* m_pContext = nullptr; // innermost open element, null outside the root
    NamespaceMap m_namespaceMap;             // known before the root element

private:
    void SettleContextCounts(std::int32_t ended) noexcept;

    ValueRoom m_valueRoom;
    std::vector<std::unique_ptr<CXmlWriterContext>> m_contexts; // from the root inwards, then closed ones
    std::size_t m_openContexts = 0;
    ClassType* m_contextRecord = nullptr;  // of the root that is open
    std::int32_t m_contextsNotCounted = 0; // made inside that root
};

// A context gets a scope of its own only when it needs one, and uses its parent's until then. A scope holds
// only what is new in it, so neither deep documents nor many namespaces cause aliases to be copied.
class ZV_API CXmlWriter::CXmlWriterContext {
public:
    CXmlWriterContext(CXmlWriterContext const&) = delete;
    CXmlWriterContext& operator=(CXmlWriterContext const&) = delete;
    ~CXmlWriterContext();

    // The default namespace in force.
    std::string const& GetDefaultNamespace() const noexcept { return m_scope->m_ownDefaultNamespace; }
    // The alias of `ns` in this scope, null if there is none. An empty alias counts as none. Valid until
    // the scope changes.
    std::string const* FindAlias(std::string const& ns) const {
        NamespaceMap::value_type const* const last = m_scope->m_lastAlias;
        return last != nullptr && last->first == ns ? &last->second : m_scope->LookUpAlias(ns);
    }
    void SetNamespaceMapValue(std::string const& ns, std::string const& alias);
    void SetDefaultNamespace(std::string const& ns);

    std::int32_t m_childCount = 0;                         // elements written inside this one
    bool m_startTagOpen = true;                            // not yet closed by a ">"
    std::int32_t m_depth = 0;                              // 0 for the root
    CXmlWriterContext* m_parent = nullptr;                 // null for the root
    bool m_hasAttributes = false;                          // of the Fast Infoset writer
    bool m_arrayOpen = false;                              // "[" written, "]" not yet
    std::int32_t m_collectionState = CollectionState_None; // a CollectionState
    bool m_childrenSayType = false;                        // see SetChildrenSayType

private:
    friend class CXmlWriter;
    CXmlWriterContext();

    // Prepares the context for another element.
    void Reset(CXmlWriterContext* parent);
    void MakeOwnScope();
    void EnterGiven(std::string const& ns, std::string const& alias);
    void Enter(std::string const& ns, std::string const& alias);
    std::string const* LookUpAlias(std::string const& ns) const;
    bool IsGivenAlias(std::uint64_t number) const;

    CXmlWriterContext* m_scope = this; // the context that holds the scope in force

    // Of a context with a scope of its own:
    CXmlWriterContext* m_outerScope = nullptr; // where a namespace not found here is looked up
    std::string m_ownDefaultNamespace;
    NamespaceMap m_ownMap;
    mutable NamespaceMap::value_type const* m_lastAlias = nullptr; // the last answer, null for none
    // Aliases are numbered in the order in which they are generated. All below the next one are taken. Some
    // above it may be taken too: those that this scope was given. An alias stays taken when its namespace
    // gets another one.
    std::uint64_t m_nextAlias = 0;
    std::set<std::uint64_t> m_givenAliases;

    std::vector<NamespaceMap::node_type> m_spareEntries; // reused with the capacity of their strings
};

} // namespace ZvXmlLib16
