// Writes JSON text by RFC 8259.
#include "Sinks.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

using namespace ZvXmlLib16;

namespace zvxml {

namespace {

// An element without attributes and children is a string, and any other one an object: the attributes first,
// then the children, and "#text" behind them. White space beside children is left out.
class JsonSink final : public Receiver {
public:
    JsonSink(ByteOutput& output, WriteOptions const& options, JsonRoundTrip mode, std::string const& indent,
             Shape const& shape)
        : m_output(output), m_isPretty(options.isPretty), m_mode(mode), m_indent(indent), m_shape(shape) {
        m_output.Append('{');
        Line(1);
    }

    void Start(StartTag const& tag) override;
    void Text(std::string_view text) override;
    void End(std::string_view name) override;
    void Finish() override {
        Line(0);
        m_output.Append('}');
        if (m_isPretty)
            m_output.Append('\n');
    }

private:
    enum class State {
        kMembers, // perhaps none so far
        kText,    // an open string
        kNil
    };
    struct Level {
        State state = State::kMembers;
        bool hasMembers = false;
        bool isArrayOpen = false; // of the last child's name
        std::string last;         // the last child's name
        std::string blank;        // white space that may turn out to be a part of the value
    };

    void Line(std::size_t depth) {
        if (!m_isPretty)
            return;
        m_output.Append('\n');
        for (depth = std::min(depth, kDeepestIndent); depth != 0; --depth)
            m_output.Append(m_indent);
    }
    void BeginMember(Level& level) {
        m_output.Append(level.hasMembers ? ',' : '{');
        level.hasMembers = true;
        Line(m_depth);
    }
    void WriteName(std::string_view mark, std::string_view name) {
        m_output.Append('"');
        m_output.Append(mark);
        m_output.Append(name); // of XML, so nothing is escaped
        m_output.Append("\": ");
    }
    void WriteAttribute(Level& level, std::string_view prefix, std::string_view name, std::string_view value);
    void WriteAttributes(Level& level, StartTag const& tag);
    void BeginChild(std::string_view name);
    void CloseArray(Level& level);
    void StartText(Level& level);
    void WriteString(std::string_view text);

    ByteOutput& m_output;
    bool const m_isPretty;
    JsonRoundTrip const m_mode;
    std::string const m_indent;
    Shape const& m_shape;
    std::uint64_t m_elements = 0;
    std::vector<Level> m_levels; // some behind the open ones, for their room
    std::size_t m_open = 0;
    std::size_t m_depth = 1; // of members, in brackets
};

void JsonSink::CloseArray(Level& level) {
    if (!level.isArrayOpen)
        return;
    Line(--m_depth);
    m_output.Append(']');
    level.isArrayOpen = false;
}

void JsonSink::BeginChild(std::string_view name) {
    bool const isFirstOfArray = m_shape.IsMarked(m_elements++);
    if (m_open == 0)
        return WriteName({}, name);
    Level& parent = m_levels[m_open - 1];
    parent.blank.clear();
    if (parent.isArrayOpen && parent.last == name) {
        m_output.Append(',');
        return Line(m_depth);
    }
    CloseArray(parent);
    BeginMember(parent);
    WriteName({}, name);
    parent.last = name;
    if (!isFirstOfArray)
        return;
    parent.isArrayOpen = true;
    m_output.Append('[');
    Line(++m_depth);
}

void JsonSink::Start(StartTag const& tag) {
    BeginChild(JsonName(tag.name, m_mode));
    if (m_open == m_levels.size())
        m_levels.emplace_back();
    Level& level = m_levels[m_open++];
    level.state = State::kMembers;
    level.hasMembers = level.isArrayOpen = false;
    level.last.clear();
    level.blank.clear();
    ++m_depth;
    if (IsNil(tag)) {
        std::string_view const prefix = tag.attributes[0].name.prefix;
        bool const isDeclaredHere = tag.declarations.size() == 1 && tag.declarations[0].prefix == prefix;
        if (tag.declarations.empty() || isDeclaredHere || m_mode != JsonRoundTrip_Full) {
            m_output.Append("null");
            level.state = State::kNil;
            return;
        }
    }
    WriteAttributes(level, tag);
}

void JsonSink::WriteAttributes(Level& level, StartTag const& tag) {
    if (m_mode == JsonRoundTrip_Full) {
        for (Declaration const& declaration : tag.declarations)
            WriteAttribute(level, declaration.prefix.empty() ? "xmlns" : "xmlns:", declaration.prefix,
                           declaration.uri);
    }
    for (Attribute const& attribute : tag.attributes)
        WriteAttribute(level, {}, JsonName(attribute.name, m_mode), attribute.value);
}

void JsonSink::WriteAttribute(Level& level, std::string_view prefix, std::string_view name,
                              std::string_view value) {
    BeginMember(level);
    m_output.Append(m_mode == JsonRoundTrip_None ? "\"" : "\"@");
    m_output.Append(prefix);
    m_output.Append(name);
    m_output.Append("\": \"");
    WriteString(value);
    m_output.Append('"');
}

// A text behind children begins with the white space after the last one.
void JsonSink::StartText(Level& level) {
    if (level.hasMembers) {
        CloseArray(level);
        BeginMember(level);
        WriteName({}, m_mode == JsonRoundTrip_None ? "" : "#text");
    }
    level.state = State::kText;
    m_output.Append('"');
    WriteString(level.blank);
}

void JsonSink::Text(std::string_view text) {
    Level& level = m_levels[m_open - 1];
    if (level.state == State::kMembers) {
        if (IsBlank(text)) {
            level.blank += text;
            return;
        }
        StartText(level);
    }
    if (level.state == State::kText)
        WriteString(text);
}

void JsonSink::End(std::string_view) {
    Level& level = m_levels[m_open - 1];
    bool const isBlankValue = level.last.empty() && !level.blank.empty();
    if (level.state == State::kMembers && (!level.hasMembers || isBlankValue))
        StartText(level);
    if (level.state == State::kText)
        m_output.Append('"');
    CloseArray(level);
    --m_depth;
    if (level.hasMembers) {
        Line(m_depth);
        m_output.Append('}');
    }
    --m_open;
}

// Of the characters of XML only three below a blank occur.
void JsonSink::WriteString(std::string_view text) {
    std::size_t run = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char const c = text[i];
        bool const isControl = static_cast<unsigned char>(c) < 0x20;
        if (!isControl && c != '"' && c != '\\')
            continue;
        m_output.Append(text.substr(run, i - run));
        m_output.Append('\\');
        m_output.Append(c == '\n' ? 'n' : c == '\r' ? 'r' : c == '\t' ? 't' : c);
        run = i + 1;
    }
    m_output.Append(text.substr(run));
}

} // namespace

std::unique_ptr<Receiver> MakeJsonSink(ByteOutput& output, WriteOptions const& options, JsonRoundTrip mode,
                                       std::string const& indent, Shape const& shape) {
    return std::make_unique<JsonSink>(output, options, mode, indent, shape);
}

} // namespace zvxml
