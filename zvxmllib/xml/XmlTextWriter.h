// CXmlTextWriter, XML text.
#pragma once

#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/writers/XmlWriter.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace ZvXmlLib16 {

// Writes XML 1.0 with namespaces into a text sink. Prefixes come from the aliases given, or are made
// up where they are needed.
class CXmlTextWriter : public CXmlWriter {
public:
    // `sink` is borrowed and outlives the writer.
    explicit CXmlTextWriter(CTextStream* sink);
    ~CXmlTextWriter() override;

    void Open() override;
    void Close() override;
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

    // To be set before the root element. True at first.
    bool GetFormatted() const noexcept { return m_formatted; }
    void SetFormatted(bool formatted) noexcept { m_formatted = formatted; }
    // EOLType_LF at first. Throws CZvException for a value out of range.
    EOLType GetEOLType() const noexcept { return m_eolType; }
    void SetEOLType(EOLType eol);
    // One tab at first; null for none.
    std::string GetIndentChars() const { return m_indent; }
    void SetIndentChars(char const* indent);
    // False at first.
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

private:
    void RequireOpenStartTag() const;
    void CloseStartTag();
    void AppendEndOfLine();
    void AppendIndent(std::int32_t depth);
    void AppendStartTag(std::int32_t depth, std::string const& name, std::string_view alias);
    void AppendEscapedText(std::string const& text);
    void AppendEscapedAttribute(std::string const& text);
    // xmlns:alias="ns", for an empty alias xmlns="ns".
    void AppendDeclaration(std::string_view alias, std::string const& ns);
    void AppendRootDeclarations();
    void FlushIfLarge();

    bool m_writeDefaultElementValues = false;
    std::string m_indent{"\t"};
    std::string m_eol{"\n"};
    EOLType m_eolType = EOLType_LF;
    bool m_formatted = true;
    CTextStream* m_sink;

    std::vector<std::string> m_endTags; // by depth, of the open elements and those closed last there
    std::string m_indents;              // m_indent as many times as the greatest depth so far
};

} // namespace ZvXmlLib16
