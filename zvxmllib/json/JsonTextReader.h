// CJsonTextReader, the JSON parser.
#pragma once

#include "zvxmllib/document/NodePositions.h"
#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/foundation/InstanceMonitor.h"
#include "zvxmllib/json/JsonReaderDefaultHandler.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace ZvXmlLib16::detail {
class XmlTree;
} // namespace ZvXmlLib16::detail

namespace ZvXmlLib16 {

struct JsonPlace;

// What a JSON text may be. The usual way takes comments, control characters in strings and halves of
// surrogates, drops line feeds wherever they stand, cuts strings at a NUL and looks at nothing behind the
// first value; strict is RFC 8259.
enum class JsonSyntax { kUsual, kStrict };

// Sends the events of a JSON text (RFC 8259) to a chain of handlers, without keeping any of it. Comments may
// stand between tokens, control characters are allowed in strings, line feeds are dropped everywhere, and
// anything after the first value is ignored. Throws CZvValidationException with the line and position of a
// syntax error and the path of the open members. Belongs to one thread.
class CJsonTextReader : public CInstanceMonitor, public IPositionSource {
public:
    // `text` is local text, borrowed, and outlives the reader.
    explicit CJsonTextReader(std::string_view text, JsonSyntax syntax = JsonSyntax::kUsual);
    CJsonTextReader(CJsonTextReader const&) = delete;
    CJsonTextReader& operator=(CJsonTextReader const&) = delete;
    ~CJsonTextReader() override;

    void SetHandler(std::unique_ptr<IJsonReaderHandler> handler) noexcept;
    // Owned by the reader.
    IErrorPathProvider const& GetErrorPathProvider() const noexcept { return m_handler; }
    // True at first.
    void SetAllowComments(bool allow) noexcept { m_allowComments = allow; }
    // The text is then the value of a member of this name. Empty at first, for a text that names its root.
    void SetRootElementName(std::string name) { m_rootElementName = std::move(name); }

    // Call it once for each reader. Exceptions of handlers pass through. False for a text without a value.
    bool Parse();
    // Where the reader stands.
    JsonPlace Place() const;

    // Converts the JSON text to an XML document by the context's JSON options: UTF-8, with a declaration. For
    // a strict context the JSON text is UTF-8, too.
    static CBinaryData ConvertToXml(std::string_view json, CSerializationContext const& ctx);
    // The same into a writer, from the root to its Close.
    static void Convert(std::string_view json, CSerializationContext const& ctx, CXmlWriter& writer);
    // The same; `tree`, which the writer fills, remembers the places of the values if the context wants that.
    static void Convert(std::string_view json, CSerializationContext const& ctx, CXmlWriter& writer,
                        detail::XmlTree* tree);

    // Of the value that is read: where it begins.
    detail::NodePosition GetPosition() const override;

private:
    // The next byte that is not a line feed becomes the current character. False at the end of the text.
    bool ReadByte() noexcept {
        while (m_next != m_end) {
            char const byte = *m_next++;
            if (byte == '\n') {
                CountLine();
                if (!m_isStrict)
                    continue;
            }
            m_current = byte;
            return true;
        }
        m_isAtEnd = true;
        return false;
    }
    // The same, skipping white space and comments.
    bool ReadSignificant() noexcept;
    bool SkipComment() noexcept;
    void SkipBlockComment() noexcept;
    // The next `count` bytes, line feeds included. False if there are fewer; these are read anyway.
    bool ReadBlock(std::size_t count, std::string_view& block) noexcept;
    void CountLine() noexcept {
        ++m_line;
        m_lineStart = m_next;
    }

    void ParseValue(std::int32_t depth);
    void ParseObject(std::int32_t depth);
    void ParseMember(std::int32_t depth);
    void ParseArray(std::int32_t depth);
    void ParseWord(std::string_view rest, char const* shownWord);
    // Both leave what they read in m_token.
    void ParseString();
    void ParseNumber();
    void ParseEscape();
    void ParseCharacterCode();
    void AppendCharacters();
    void ParseFraction();
    void ParseExponent();
    void TakeCurrent();
    void TakeDigits();

    CJsonReaderDefaultHandler m_handler;
    bool const m_isStrict;
    bool m_allowComments;
    std::string m_rootElementName;

    char const* m_next;
    char const* m_end;
    char const* m_lineStart; // the position on the line is counted from here
    std::int32_t m_line = 1;
    std::int32_t m_valueLine = 1; // where the value begins that is read
    std::ptrdiff_t m_valueColumn = 1;
    char m_current = '\0'; // the byte read last
    bool m_isAtEnd = false;

    std::string m_token;
    bool m_hasNul = false;       // in m_token, which ends there
    std::u16string m_characters; // of \u escapes that follow each other
};

} // namespace ZvXmlLib16
