// CJsonTextWriter, JSON text.
#pragma once

#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/json/JsonContext.h"
#include "zvxmllib/writers/TextWriter.h"

#include <string>
#include <string_view>

namespace ZvXmlLib16 {

// Writes one JSON object with the root element as its member into a text sink. An element is a member of its
// parent: a scalar if it holds only text, null if it is empty, else an object of its attributes, child
// elements and text. Prefixes come from the given aliases; only the root may get a generated one.
class CJsonTextWriter : public CTextWriter {
public:
    // `sink` is borrowed and outlives the writer.
    explicit CJsonTextWriter(CTextStream* sink);
    ~CJsonTextWriter() override;

    void WriteComment(std::string const& text) override;
    void WriteProcessingInstruction(std::string const& text) override;
    void WriteInlineSchema(std::string const& text) override;
    void WriteElementStart(std::string const& name, std::string const& ns) override;
    void WriteElementValue(std::string const& text, ItemType type, bool isDefault) override;
    void WriteElementEnd() override;
    void WriteAttribute(std::string const& name, std::string const& ns, std::string const& value,
                        ItemType type) override;
    void WriteTypeAttribute(std::string const& ns, std::string const& typeName, ItemType type) override;
    void WriteNilAttribute() override;

    // Write the braces around the root: after Open and the options, and before Close.
    void WriteDocumentStart();
    void WriteDocumentEnd();

    // Set it before the root element. JsonRoundTrip_Full at first.
    JsonRoundTrip GetRoundTrip() const noexcept { return m_roundTrip; }
    void SetRoundTrip(JsonRoundTrip roundTrip) noexcept { m_roundTrip = roundTrip; }

protected:
    void CloseOpenArray() override;
    void RequireOpenStartTag() const override;
    std::string const& AliasForType(std::string const& ns) override { return AliasOf(ns); }
    void AppendDeclaration(std::string_view alias, std::string const& ns) override;

private:
    bool IsFull() const noexcept { return m_roundTrip == JsonRoundTrip_Full; }
    void BeginRoot();
    void BeginMember();
    void OpenArrayIfDue();
    void CloseAnyArray();
    void AppendBreak(std::int32_t depth) { AppendLineBreak(depth + m_openArrays); }
    void AppendName(std::string_view name);
    void AppendMarkedName(std::string_view mark, std::string_view alias, std::string_view name);
    void AppendPrefixedName(std::string const& name, std::string const& ns);
    void AppendScalar(std::string const& text, ItemType type);
    void AppendEscaped(std::string const& text);
    std::string const& AliasOf(std::string const& ns) const;

    JsonRoundTrip m_roundTrip = JsonRoundTrip_Full;
    // The name of the current element is written, but no brace yet: nothing has shown that it is an object.
    bool m_bObjectPending = false;
    bool m_hasScalar = false; // in that state: its text is written
    bool m_hasRoot = false;   // a root element was begun

    std::int32_t m_openArrays = 0; // each adds one indent to everything open
};

} // namespace ZvXmlLib16
