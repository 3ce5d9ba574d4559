// Writes XML text.
#include "Sinks.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <vector>

using namespace ZvXmlLib16;

namespace zvxml {

namespace {

// What characters of a text become; null for those that stay.
using Escapes = std::array<char const*, 256>;

constexpr Escapes MakeEscapes(bool ofAttributes) {
    Escapes escapes{};
    escapes['&'] = "&amp;";
    escapes['<'] = "&lt;";
    escapes['>'] = "&gt;";
    escapes['\r'] = "&#xD;";
    if (ofAttributes) {
        escapes['"'] = "&quot;";
        escapes['\t'] = "&#x9;";
        escapes['\n'] = "&#xA;";
    }
    return escapes;
}
constexpr Escapes kTextEscapes = MakeEscapes(false);
constexpr Escapes kAttributeEscapes = MakeEscapes(true);

class XmlSink final : public Receiver {
public:
    XmlSink(ByteOutput& output, WriteOptions const& options, DeclarationMode declaration, Indent mode,
            std::string const& indent, Shape const& shape, Losses& losses)
        : m_output(output), m_options(options), m_declaration(declaration), m_mode(mode), m_indent(indent),
          m_shape(shape), m_losses(losses) {
        if (options.encoding == XmlEncoding_UTF16)
            m_output.Append("\xEF\xBB\xBF"); // the byte order mark, once it is converted
        if (declaration == DeclarationMode::kAlways)
            WriteDeclaration();
    }

    void XmlDeclaration() override {
        if (m_declaration == DeclarationMode::kAsRead)
            WriteDeclaration();
    }
    void Start(StartTag const& tag) override;
    void Text(std::string_view text) override;
    void End(std::string_view name) override;
    void Comment(std::string_view text) override {
        BeginItem();
        m_output.Append("<!--");
        m_output.Append(text);
        m_output.Append("-->");
        EndProlog();
    }
    void Instruction(std::string_view target, std::string_view data) override {
        BeginItem();
        m_output.Append("<?");
        m_output.Append(target);
        if (!data.empty()) {
            m_output.Append(' ');
            m_output.Append(data);
        }
        m_output.Append("?>");
        EndProlog();
    }
    // That of Fast Infoset has no text.
    void Type(DocumentType const& type) override {
        if (type.text.empty())
            return m_losses.Add(Loss::kType);
        BeginItem();
        m_output.Append(type.text);
        EndProlog();
    }
    void StartSection() override {
        HoldText();
        CloseTag();
        m_output.Append("<![CDATA[");
        m_isInSection = true;
    }
    void EndSection() override {
        m_output.Append("]]>");
        m_isInSection = false;
    }
    void Finish() override {
        if (IsPretty() && !m_isOnNewLine)
            m_output.Append('\n');
    }

private:
    enum class Content : char {
        kUnknown, // nothing so far but white space, which is in m_blank
        kIndented,
        kPlain
    };
    struct Level {
        Content content;
        bool hasElements;
    };

    bool IsPretty() const noexcept { return m_mode != Indent::kNone; }
    bool IsIndented() const noexcept {
        return IsPretty() && (m_levels.empty() || m_levels.back().content == Content::kIndented);
    }
    Content ContentOf(StartTag const& tag);
    void HoldText();

    void WriteDeclaration();
    void WriteEscaped(std::string_view text, Escapes const& escapes);
    void WriteAttribute(std::string_view name, std::string_view value);
    void CloseTag() {
        if (m_isTagOpen)
            m_output.Append('>');
        m_isTagOpen = false;
    }
    void BeginItem();
    void EndProlog();
    void StartLine(std::size_t depth);

    ByteOutput& m_output;
    WriteOptions const m_options;
    DeclarationMode const m_declaration;
    Indent const m_mode;
    std::string const m_indent;
    Shape const& m_shape;
    Losses& m_losses;
    std::uint64_t m_elements = 0;
    std::vector<Level> m_levels; // for each open element, if documents are indented
    std::string m_blank;
    std::size_t m_depth = 0;
    bool m_isTagOpen = false;
    bool m_isInSection = false;
    bool m_isOnNewLine = true;
    bool m_isBehindRoot = false;
};

void XmlSink::WriteDeclaration() {
    m_output.Append("<?xml version=\"1.0\" encoding=\"");
    m_output.Append(m_options.encoding == XmlEncoding_UTF16 ? "UTF-16" : "UTF-8");
    m_output.Append("\"?>\n");
}

void XmlSink::WriteEscaped(std::string_view text, Escapes const& escapes) {
    std::size_t run = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char const* const escape = escapes[static_cast<unsigned char>(text[i])];
        if (escape == nullptr)
            continue;
        m_output.Append(text.substr(run, i - run));
        m_output.Append(escape);
        run = i + 1;
    }
    m_output.Append(text.substr(run));
}

void XmlSink::WriteAttribute(std::string_view name, std::string_view value) {
    m_output.Append(name);
    m_output.Append("=\"");
    WriteEscaped(value, kAttributeEscapes);
    m_output.Append('"');
}

void XmlSink::StartLine(std::size_t depth) {
    if (!m_isOnNewLine)
        m_output.Append('\n');
    for (depth = std::min(depth, kDeepestIndent); depth != 0; --depth)
        m_output.Append(m_indent);
    m_isOnNewLine = false;
}

// Before an element, a comment and the like.
void XmlSink::BeginItem() {
    CloseTag();
    if (IsPretty() && !m_levels.empty() && m_levels.back().content == Content::kUnknown) {
        m_levels.back().content = Content::kIndented;
        m_blank.clear();
    }
    if (IsIndented())
        StartLine(m_depth);
    else if (m_isBehindRoot && m_depth == 0)
        m_output.Append('\n');
}

// Items ahead of the root stand on lines of their own in any case.
void XmlSink::EndProlog() {
    if (m_depth == 0 && !m_isBehindRoot) {
        m_output.Append('\n');
        m_isOnNewLine = true;
    }
}

// Text besides white space stands in the innermost element.
void XmlSink::HoldText() {
    if (!IsPretty() || m_levels.back().content == Content::kPlain)
        return;
    if (m_levels.back().content == Content::kIndented)
        throw WrongGuess();
    m_levels.back().content = Content::kPlain;
    CloseTag();
    WriteEscaped(m_blank, kTextEscapes);
    m_blank.clear();
}

XmlSink::Content XmlSink::ContentOf(StartTag const& tag) {
    if (m_mode == Indent::kShape) {
        bool const isMarked = m_shape.IsMarked(m_elements++);
        return isMarked && IsIndented() ? Content::kIndented : Content::kPlain;
    }
    return IsIndented() && !KeepsSpace(tag, false) ? Content::kUnknown : Content::kPlain;
}

void XmlSink::Start(StartTag const& tag) {
    BeginItem();
    m_output.Append('<');
    m_output.Append(tag.name.qualified);
    for (Declaration const& declaration : tag.declarations) {
        m_output.Append(declaration.prefix.empty() ? " xmlns" : " xmlns:");
        WriteAttribute(declaration.prefix, declaration.uri);
    }
    for (Attribute const& attribute : tag.attributes) {
        m_output.Append(' ');
        WriteAttribute(attribute.name.qualified, attribute.value);
    }
    m_isTagOpen = true;
    ++m_depth;
    if (IsPretty()) {
        Content const content = ContentOf(tag);
        if (!m_levels.empty())
            m_levels.back().hasElements = true;
        m_levels.push_back({content, false});
    }
}

void XmlSink::Text(std::string_view text) {
    if (text.empty())
        return;
    if (IsPretty() && m_levels.back().content != Content::kPlain) {
        if (IsBlank(text)) { // between elements, the indent replaces it
            if (m_levels.back().content == Content::kUnknown)
                m_blank += text;
            return;
        }
        HoldText();
    }
    CloseTag();
    if (m_isInSection)
        m_output.Append(text);
    else
        WriteEscaped(text, kTextEscapes);
}

void XmlSink::End(std::string_view name) {
    if (IsPretty() && m_levels.back().content == Content::kUnknown && !m_blank.empty())
        HoldText();
    if (IsIndented() && !m_levels.back().hasElements)
        throw WrongGuess();
    --m_depth;
    if (m_isTagOpen) {
        m_output.Append("/>");
        m_isTagOpen = false;
    } else {
        if (IsIndented())
            StartLine(m_depth);
        m_output.Append("</");
        m_output.Append(name);
        m_output.Append('>');
    }
    if (IsPretty())
        m_levels.pop_back();
    m_isBehindRoot = m_depth == 0;
}

} // namespace

std::unique_ptr<Receiver> MakeXmlSink(ByteOutput& output, WriteOptions const& options,
                                      DeclarationMode declaration, Indent mode, std::string const& indent,
                                      Shape const& shape, Losses& losses) {
    return std::make_unique<XmlSink>(output, options, declaration, mode, indent, shape, losses);
}

} // namespace zvxml
