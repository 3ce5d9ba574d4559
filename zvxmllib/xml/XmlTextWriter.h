// CXmlTextWriter, XML text.
#pragma once

#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/writers/TextWriter.h"

#include <string>
#include <string_view>
#include <vector>

namespace ZvXmlLib16 {

// Writes XML 1.0 with namespaces into a text sink. Prefixes come from the given aliases, or are generated
// where needed.
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
    static constexpr bool kWritesTextElements = true;
    bool TryWriteTextElement(std::string const& name, std::string const& ns, std::string const& text,
                             ItemType type) override;

    // Set it before the root element. False at first.
    bool GetWriteDefaultElementValues() const noexcept { return m_writeDefaultElementValues; }
    void SetWriteDefaultElementValues(bool write) noexcept { m_writeDefaultElementValues = write; }

    // Call it before the root element.
    void WriteDeclaration();
    // Writes a line before the root element.
    void WriteDirective(std::string const& text);
    // The first step of WriteElementStart: counts a child and closes an open start tag.
    void BeginChild();
    // Writes the text unchanged, and a line end if formatted.
    void WriteRawLine(std::string const& text);

protected:
    // How texts and values of attributes are escaped.
    struct Escapes {
        EscapeTable const& text;
        EscapeTable const& attribute;
    };
    // Carriage returns, and tabs in attributes, are kept as references.
    static Escapes ExactEscapes() noexcept;
    CXmlTextWriter(Registration& registration, CTextStream* sink, Escapes escapes);

    void RequireOpenStartTag() const override;
    std::string const& AliasForType(std::string const& ns) override;
    // Writes a blank and xmlns:alias="ns", or xmlns="ns" for an empty alias.
    void AppendDeclaration(std::string_view alias, std::string const& ns) override;
    // The text of an element, as it is to be read again. What begins as a CDATA section is markup already.
    virtual void AppendText(std::string const& text);
    // What the declaration says; empty for nothing.
    virtual std::string GetEncodingName() const;
    void AppendEscapedText(std::string const& text) { AppendEscaped(text, m_escapes.text, m_eol); }
    void AppendEscapedAttribute(std::string const& text);
    void CloseStartTag();
    // The second step of WriteElementStart, in the context that has just been pushed.
    void AppendElementStart(std::string const& name, std::string const& ns, bool isRoot);

private:
    // The alias for an element of this namespace, empty for no prefix; null where one has to be declared.
    static std::string const* FindElementAlias(CXmlWriterContext const& context, std::string const& ns);
    char* EscapeText(char* out, std::string const& text) const noexcept;
    void AppendStartTag(std::int32_t depth, std::string const& name, std::string_view alias);
    void AppendEscaped(std::string const& text, EscapeTable const& table, std::string_view lineFeed);
    // Generates an alias for `ns` and declares it.
    std::string const& DeclareNamespace(std::string const& ns);

    Escapes const m_escapes;
    bool m_writeDefaultElementValues = false;
    std::vector<std::string> m_endTags; // by depth, of the open elements and those closed last there
};

} // namespace ZvXmlLib16
