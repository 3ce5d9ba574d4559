// CFastInfosetWriter, a Fast Infoset document (X.891).
#pragma once

#include "zvxmllib/fastinfoset/FastInfosetContext.h"
#include "zvxmllib/fastinfoset/IndexMap.h"
#include "zvxmllib/fastinfoset/NameText.h"
#include "zvxmllib/fastinfoset/OctetOutput.h"
#include "zvxmllib/foundation/Enumerations.h"
#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/writers/XmlWriter.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace ZvXmlLib16 {

// Names are written once and then as an index, values below the limits of the context likewise. Comments and
// instructions are not written. Prefixes come from the given aliases, which the root declares, or are
// generated where needed, without a declaration. Open, WriteDocumentHead, the root, WriteDocumentTerminator,
// Close.
class CFastInfosetWriter : public CXmlWriter {
public:
    // Both are borrowed and outlive the writer. What the document adds to the vocabulary stays with the
    // writer.
    CFastInfosetWriter(CFastInfosetContext& context, CBinaryStream& sink);
    ~CFastInfosetWriter() override;

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

    // Writes the declaration, the identification of the format, and the name of the vocabulary if one is
    // used.
    void WriteDocumentHead(FInfoDecl declaration);
    void WriteDocumentTerminator();

protected:
    using IndexMap = detail::IndexMap;
    // An encoded value: the octets, and what they mean.
    struct EncodedString {
        unsigned discriminant;
        std::uint32_t index; // of the alphabet or algorithm
        std::string_view octets;
    };

    // Whether an element has been started whose head is not yet written. It is the current one then.
    bool IsPending() const noexcept { return m_isPending; }
    // The two steps of WriteElementStart: the element is open, and it has its name.
    void BeginElement(std::string const& name, std::string const& ns);
    void NameElement(std::string const& name, std::string const& ns);
    // The head of the pending element: its first octet, which the caller ends with what they return, the
    // declarations, if there are any, and the name.
    unsigned BeginHead(bool hasAttributes);
    unsigned BeginDeclarations(unsigned current);
    void WriteDeclaration(std::string_view prefix, std::string_view ns);
    void EndDeclarations();
    void WriteElementQName(unsigned current);
    // Behind the head.
    void WriteNamedAttribute(std::string_view alias, std::string const& name, std::string const& ns,
                             std::string const& value, ItemType type);
    // Makes an alias where there is none. Valid until the context changes.
    std::string_view AliasOf(std::string const& ns);
    // Items of the document, or of the content of an element whose head is written.
    void WriteCommentItem(std::string_view text);
    void WriteInstructionItem(std::string_view target, std::string_view data);

    // `function` is the encoder that the string is for.
    virtual EncodedString Encode(std::string const& text, ItemType type, char const* function);
    EncodedString EncodeAsText(std::string const& text);
    CFastInfosetContext::EncodedCharacterString EncodingOf(ItemType type) const;

private:
    // The names of elements or of attributes, and which one is likely to come: documents repeat themselves.
    struct Names {
        explicit Names(IndexMap& names) noexcept : map(names) {}
        // 0 if it is missing.
        std::uint32_t Find(IndexMap::QName const& name) {
            std::uint32_t const likely = last < likelyNext.size() ? likelyNext[last] : 0;
            if (likely != 0 && detail::Equals(name, map.GetText(likely)))
                return last = likely;
            return LookUp(name);
        }
        std::uint32_t LookUp(IndexMap::QName const& name);
        void Add(IndexMap::QName const& name);
        void NoteNext(std::uint32_t index);

        IndexMap& map;
        std::vector<std::uint32_t> likelyNext; // by index: the one that followed it last time, 0 for none
        std::uint32_t last = 0;                // 0 for none
    };

    // The same steps, in line where they are the usual ones.
    inline void BeginHere(std::string const& name, std::string const& ns);
    inline void NameHere(std::string const& name, std::string const& ns);

    void TraceStart(std::string const& name, std::string const& ns);
    void TraceEnd();
    void WritePendingElement(bool hasAttributes);
    void WriteGivenDeclarations();
    void WritePendingTerminator();
    void RequireOpenStartTag();
    void CloseStartTag();
    void BeginItem();

    void WriteAttributeQName(unsigned current, IndexMap::QName const& name);
    void WriteLiteralQName(unsigned current, IndexMap::QName const& name, Names& names);
    void WriteIdentifyingString(std::string_view text, IndexMap& table);
    void WriteNonIdentifyingString(std::string_view text);
    void WriteAttributeValue(std::string const& value, std::uint32_t maxLength, ItemType type);
    void WriteCharacterChunk(std::string const& text, std::uint32_t maxLength, ItemType type);
    void EncodedCharacterStringBit5(unsigned current, EncodedString const& string);
    void EncodedCharacterStringBit7(unsigned current, EncodedString const& string);

    CFastInfosetContext& m_context;
    OctetOutput m_out;
    detail::IndexMaps m_vocabulary;
    IndexMap m_otherNames; // targets of instructions
    Names m_elementNames{m_vocabulary.elementNames};
    Names m_attributeNames{m_vocabulary.attributeNames};
    bool m_isTraced;
    bool m_bTerminatorPending = false;

    // The element that has been started and whose head is not yet written, which is the current one.
    bool m_isPending = false;
    std::uint32_t m_pendingIndex = 0; // 0 for a new name, which is in the next three
    std::string m_pendingName;
    std::string m_pendingNamespace;
    std::string m_pendingPrefix;

    std::string m_octets;                                           // of one value
    std::vector<std::pair<std::string, std::string>> m_tracedNames; // of the open elements
};

} // namespace ZvXmlLib16
