// CExactFastInfosetWriter, Fast Infoset documents that stand for themselves.
#pragma once

#include "zvxmllib/fastinfoset/FastInfosetWriter.h"
#include "zvxmllib/writers/PrefixesInForce.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ZvXmlLib16 {

// As its base, but for what a decoder of another maker, or of no knowledge, would miss: each prefix is
// declared where it is needed, and the default namespace taken away where it is not meant; a value is written
// as text where its encoding would not give it back as it is; comments and instructions are written. The head
// of an element is held back, with all of its attributes, until its content shows.
class CExactFastInfosetWriter : public CFastInfosetWriter {
public:
    // As those of the base.
    CExactFastInfosetWriter(CFastInfosetContext& context, CBinaryStream& sink);
    ~CExactFastInfosetWriter() override;

    // Between the start of an element and its content, an alias is declared on the element.
    void AddNamespaceAlias(std::string const& alias, std::string const& ns) override;
    void DeclareOnNextElement(std::string const& alias, std::string const& ns) override;
    void WriteComment(std::string const& text) override;
    void WriteProcessingInstruction(std::string const& text) override;
    void WriteElementStart(std::string const& name, std::string const& ns) override;
    void WriteElementValue(std::string const& text, ItemType type, bool isDefault) override;
    void WriteElementEnd() override;
    void WriteAttribute(std::string const& name, std::string const& ns, std::string const& value,
                        ItemType type) override;
    void WriteTypeAttribute(std::string const& ns, std::string const& typeName, ItemType type) override;
    void WriteNilAttribute() override;

protected:
    EncodedString Encode(std::string const& text, ItemType type, char const* function) override;

private:
    struct Attribute {
        std::string alias;
        std::string name;
        std::string ns;
        std::string value;
        ItemType type = ItemType_string;
    };
    struct Declaration {
        std::string prefix;
        std::string ns;
    };

    void WriteHead();
    void RequirePending() const;
    void DeclareGiven(bool rootHasNamespace);
    void Require(std::string_view prefix, std::string const& ns);
    bool ComesBack(EncodedString const& encoded, std::string const& text);

    PrefixesInForce m_inForce;
    KeptDeclarations m_kept;
    std::uint64_t m_element = 0; // the number of the one started last
    // Of the element whose head is held back.
    std::vector<Declaration> m_declarations;
    std::vector<Attribute> m_attributes; // the first m_attributeCount, which keep the memory of their strings
    std::size_t m_attributeCount = 0;
    std::string m_decoded; // one value
};

} // namespace ZvXmlLib16
