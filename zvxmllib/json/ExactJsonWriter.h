// CExactJsonWriter, JSON that any program may read.
#pragma once

#include "zvxmllib/json/JsonContext.h"
#include "zvxmllib/json/JsonValue.h"
#include "zvxmllib/writers/PrefixesInForce.h"
#include "zvxmllib/writers/TextWriter.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace ZvXmlLib16 {

// Writes JSON by RFC 8259 that the library gives back without loss, or throws: each announced collection
// becomes an array, each name stands once in its object, nil is null, an empty element {}, and prefixes are
// declared where they are needed. The document is collected as a value, which Close prints. Names and texts
// are those of XML: see StrictWriter.
class CExactJsonWriter : public CTextWriter {
public:
    // `sink` is borrowed and outlives the writer.
    CExactJsonWriter(CTextStream* sink, JsonRoundTrip roundTrip);
    ~CExactJsonWriter() override;

    void Close() override;
    // Inside an element the first one does nothing, and the second one is declared on it.
    void SetDefaultNamespace(std::string const& ns) override;
    void AddNamespaceAlias(std::string const& alias, std::string const& ns) override;
    void DeclareOnNextElement(std::string const& alias, std::string const& ns) override;
    void WriteComment(std::string const& text) override;
    void WriteProcessingInstruction(std::string const& text) override;
    void WriteInlineSchema(std::string const& text) override;
    void WriteElementStart(std::string const& name, std::string const& ns) override;
    void WriteElementValue(std::string const& text, ItemType type, bool isDefault) override;
    void WriteElementEnd() override;
    static constexpr bool kWritesTextElements = true;
    bool TryWriteTextElement(std::string const& name, std::string const& ns, std::string const& text,
                             ItemType type) override;
    void WriteAttribute(std::string const& name, std::string const& ns, std::string const& value,
                        ItemType type) override;
    void WriteTypeAttribute(std::string const& ns, std::string const& typeName, ItemType type) override;
    void WriteNilAttribute() override;

protected:
    void RequireOpenStartTag() const override;
    std::string const& AliasForType(std::string const& ns) override { return AliasOf(ns); }
    void AppendDeclaration(std::string_view alias, std::string const& ns) override;
    bool IsKnownUndeclared(std::string const& ns) const override;

private:
    // An element that is open.
    struct Open {
        std::string member; // its name in the parent
        JsonValue object{JsonValue::kObject, {}, {}};
        std::size_t attributes = 0; // the first members
        std::string text;
        ItemType type{};
        bool hasText = false;
        bool isNil = false;
        std::unordered_set<std::string> names; // of all members where they are many, else empty

        bool HasMember(std::string const& name);
    };

    bool IsFull() const noexcept { return m_roundTrip == JsonRoundTrip_Full; }
    std::string MemberOf(std::string const& name, std::string const& ns);
    std::string AttributeMemberOf(std::string const& name, std::string const& ns);
    std::string const& AliasOf(std::string const& ns);
    void AddAttribute(std::string const& name, JsonValue value);
    void AddChild(std::string const& name, JsonValue value, bool isAnnounced);
    void ForgetBlankText(bool isAheadOfChild);
    JsonValue Finish(Open& element) const;
    void Print(JsonValue const& value, std::int32_t depth);
    void PrintMember(JsonMember const& member, std::int32_t depth, bool hasName);
    void PrintString(std::string const& text);

    JsonRoundTrip m_roundTrip;
    PrefixesInForce m_inForce;
    KeptDeclarations m_kept;
    std::vector<Open> m_open;
    JsonMember m_root;
    bool m_hasRoot = false;
};

} // namespace ZvXmlLib16
