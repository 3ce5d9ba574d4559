// CExactXmlWriter, XML text without loss.
#pragma once

#include "zvxmllib/writers/PrefixesInForce.h"
#include "zvxmllib/xml/XmlTextWriter.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace ZvXmlLib16 {

// As its base, but a reader finds again what was written: texts are always escaped, carriage returns
// included, URIs of declarations too; an element in no namespace takes the default namespace away; comments
// and instructions stand behind the start tag; nothing is added to mixed content; the declaration names the
// encoding of local text. Names and characters are looked at by StrictWriter.
class CExactXmlWriter : public CXmlTextWriter {
public:
    // `sink` is borrowed and outlives the writer. With `keepsSections`, the CDATA sections in texts are
    // written as such.
    CExactXmlWriter(CTextStream* sink, bool keepsSections);
    ~CExactXmlWriter() override;

    // Inside an element, an alias is declared on it; a default namespace is none then, and prefixes are used.
    void SetDefaultNamespace(std::string const& ns) override;
    void AddNamespaceAlias(std::string const& alias, std::string const& ns) override;
    void DeclareOnNextElement(std::string const& alias, std::string const& ns) override;
    void BeginMixedContent() override;
    void WriteComment(std::string const& text) override;
    void WriteProcessingInstruction(std::string const& text) override;
    void WriteElementStart(std::string const& name, std::string const& ns) override;
    void WriteElementEnd() override;
    bool TryWriteTextElement(std::string const& name, std::string const& ns, std::string const& text,
                             ItemType type) override;
    void WriteTypeAttribute(std::string const& ns, std::string const& typeName, ItemType type) override;

protected:
    void AppendDeclaration(std::string_view alias, std::string const& ns) override;
    bool IsKnownUndeclared(std::string const& ns) const override;
    void AppendText(std::string const& text) override;
    std::string GetEncodingName() const override;

private:
    void CloseOpenStartTag();

    bool const m_keepsSections;
    PrefixesInForce m_inForce;
    KeptDeclarations m_kept;
    static constexpr std::int32_t kNone = -1;
    std::int32_t m_mixedDepth = kNone; // of the outermost open element in which formatting adds nothing
};

} // namespace ZvXmlLib16
