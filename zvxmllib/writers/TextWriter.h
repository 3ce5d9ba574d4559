// CTextWriter, the common base of the writers of text formats.
#pragma once

#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/streams/TextStream.h"
#include "zvxmllib/writers/XmlWriter.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace ZvXmlLib16 {

// Writes into a text sink: line ends, indentation, escapes, and the attributes xsi:type and xsi:nil. The
// formats decide how an element looks.
class CTextWriter : public CXmlWriter {
public:
    // What a byte needs in escaped text; each format adds values above these. The end of the text is treated
    // like a byte.
    enum : unsigned char { kPlain, kEndOfText, kLineFeed, kDropped, kFirstOfFormat };
    using EscapeTable = std::array<unsigned char, 256>;

    ~CTextWriter() override;

    void Open() override;
    void Close() override;
    void WriteTypeAttribute(std::string const& ns, std::string const& typeName, ItemType type) override;
    void WriteNilAttribute() override;

    // Opens the writer with the options of an entry point, which are those below.
    void Begin(bool formatted, EOLType eol, CSerializationContext const& ctx);

    // Set it before the root element. True at first.
    bool GetFormatted() const noexcept { return m_formatted; }
    void SetFormatted(bool formatted) noexcept { m_formatted = formatted; }
    // EOLType_LF at first. Throws CZvException for a value out of range.
    EOLType GetEOLType() const noexcept { return m_eolType; }
    void SetEOLType(EOLType eol);
    // One tab at first; null for none.
    std::string GetIndentChars() const { return m_indent; }
    void SetIndentChars(char const* indent);

protected:
    // `sink` is borrowed and outlives the writer.
    CTextWriter(Registration& registration, CTextStream* sink);

    // Throws if the current element can take no attribute, or none is open.
    virtual void RequireOpenStartTag() const = 0;
    // The alias by which xsi:type may name a type of `ns`. Valid until the context changes.
    virtual std::string const& AliasForType(std::string const& ns) = 0;
    // Declares an alias as part of the start of an element; an empty alias declares the default namespace.
    virtual void AppendDeclaration(std::string_view alias, std::string const& ns) = 0;
    // Whether an alias that is known before the root needs no declaration.
    virtual bool IsKnownUndeclared(std::string const& ns) const;

    // The aliases known before the root. One generated for the root is in the root's scope only.
    void AppendRootDeclarations();
    void AppendEndOfLine() { m_sink->Append(m_eol.data(), m_eol.size()); }
    // If formatted: the indent of this depth, and a line end followed by that indent.
    void AppendIndent(std::int32_t depth) {
        if (m_formatted && depth != 0) {
            std::size_t const eolLength = m_eol.size();
            std::string_view const lineBreak = LineBreak(depth);
            m_sink->Append(lineBreak.data() + eolLength, lineBreak.size() - eolLength);
        }
    }
    void AppendLineBreak(std::int32_t depth) {
        if (m_formatted) {
            std::string_view const lineBreak = LineBreak(depth);
            m_sink->Append(lineBreak.data(), lineBreak.size());
        }
    }
    // Appends runs of plain bytes at once, `lineFeed` for a line feed, and calls `appendOther(byte, escape)`
    // with the position of a byte for which the format has an escape. Bytes can be examined one by one, since
    // every byte of a multi-byte character is above 127.
    template <class AppendOther>
    void AppendEscaped(char const* text, EscapeTable const& table, std::string_view lineFeed,
                       AppendOther appendOther);
    void FlushIfLarge() {
        if (m_sink->NeedsFlush() && m_sink->GetLength() >= kFlushLength)
            m_sink->Flush();
    }
    // Room for `length` bytes behind which no flush is due; null if there is none.
    char* GetRoomWithoutFlush(std::size_t length) noexcept {
        return m_sink->NeedsFlush() && m_sink->GetLength() + length >= kFlushLength ? nullptr
                                                                                    : m_sink->GetRoom(length);
    }

    CTextStream* const m_sink;
    std::string m_eol{"\n"};
    bool m_formatted = true;

    // A line end and the indent of this depth. Valid until the next call.
    std::string_view LineBreak(std::int32_t depth) {
        std::size_t const length = m_eol.size() + static_cast<std::size_t>(depth) * m_indent.size();
        if (m_lineBreak.size() < length)
            LengthenLineBreak(length);
        return std::string_view(m_lineBreak.data(), length);
    }

private:
    static constexpr std::size_t kFlushLength = 4096; // characters

    void LengthenLineBreak(std::size_t length);

    EOLType m_eolType = EOLType_LF;
    std::string m_indent{"\t"};
    std::string m_lineBreak; // m_eol, then one m_indent for each level of the greatest depth so far
};

template <class AppendOther>
void CTextWriter::AppendEscaped(char const* text, EscapeTable const& table, std::string_view lineFeed,
                                AppendOther appendOther) {
    for (char const* run = text;;) {
        char const* end = run;
        while (table[static_cast<unsigned char>(*end)] == kPlain)
            ++end;
        if (end != run)
            m_sink->Append(run, static_cast<std::size_t>(end - run));
        unsigned char const escape = table[static_cast<unsigned char>(*end)];
        if (escape == kEndOfText)
            return;
        if (escape == kLineFeed)
            m_sink->Append(lineFeed.data(), lineFeed.size());
        else if (escape != kDropped)
            appendOther(end, escape);
        run = end + 1;
    }
}

} // namespace ZvXmlLib16
