// CXmlTextWriter, XML text.
#pragma once

#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/writers/TextWriter.h"

#include <string>
#include <string_view>
#include <vector>

namespace ZvXmlLib16 {

// Writes XML 1.0 with namespaces into a text sink. Prefixes come from the aliases given, or are made
// up where they are needed.
class CXmlTextWriter : public CTextWriter {
public:
    // `sink` is borrowed and outlives the writer.
    explicit CXmlTextWriter(CTextStream* sink);
    ~CXmlTextWriter() override;

    void WriteComment(std::string const& text) override;
    void WriteProcessingInstruction(std::string const& text) override;
    void WriteInlineSchema(std::string const& text) override;
    void WriteElementStart(std::string const& name, std::string const& ns) override;
    void WriteElementValue(std::string const& text, ItemType type, bool isDefault) override;
    void WriteElementEnd() override;
    void WriteAttribute(std::string const& name, std::string const& ns, std::string const& value,
                        ItemType type) override;

    // To be set before the root element. False at first.
    bool GetWriteDefaultElementValues() const noexcept { return m_writeDefaultElementValues; }
    void SetWriteDefaultElementValues(bool write) noexcept { m_writeDefaultElementValues = write; }

    // To be called before the root element.
    void WriteDeclaration();
    // A line before the root element.
    void WriteDirective(std::string const& text);
    // The first step of WriteElementStart by itself: counts a child and closes an open start tag.
    void BeginChild();
    // The text as it is, and the end of line if formatted.
    void WriteRawLine(std::string const& text);

protected:
    void RequireOpenStartTag() const override;
    std::string const& AliasForType(std::string const& ns) override;
    // With a blank ahead of it: xmlns:alias="ns", for an empty alias xmlns="ns".
    void AppendDeclaration(std::string_view alias, std::string const& ns) override;

private:
    void CloseStartTag();
    void AppendStartTag(std::int32_t depth, std::string const& name, std::string_view alias);
    void AppendEscaped(std::string const& text, EscapeTable const& table, std::string_view lineFeed);
    // The alias that is generated for `ns`, declared.
    std::string const& DeclareNamespace(std::string const& ns);

    bool m_writeDefaultElementValues = false;
    std::vector<std::string> m_endTags; // by depth, of the open elements and those closed last there
};

} // namespace ZvXmlLib16
