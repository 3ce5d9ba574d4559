#include "zvxmllib/document/PlainXmlReader.h"

#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/PlainCharacters.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/document/XmlTree.h"
#include "zvxmllib/values/binary/Encoder.h"

#include <algorithm>

namespace ZvXmlLib16 {

using detail::PlainName;

namespace {

constexpr std::size_t kLongestInput = std::size_t{1} << 31U; // places in it fit 32 bits

bool IsSpace(char c) noexcept {
    return c == ' ' || c == '\n' || c == '\t' || c == '\r';
}

// Moves `at` behind the text if it is there.
bool Pass(char const*& at, char const* end, std::string_view text) noexcept {
    if (static_cast<std::size_t>(end - at) < text.size() || !std::equal(text.begin(), text.end(), at))
        return false;
    at += text.size();
    return true;
}

std::string_view Between(char const* begin, char const* end) noexcept {
    return {begin, static_cast<std::size_t>(end - begin)};
}

constexpr char LowerCase(char c) noexcept {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool IsInAnyCase(std::string_view text, std::string_view lowerCase) noexcept {
    return std::equal(text.begin(), text.end(), lowerCase.begin(), lowerCase.end(),
                      [](char a, char b) { return LowerCase(a) == b; });
}

} // namespace

bool PlainXmlReader::IsFor(CXmlDocument const& document, std::string_view xml) {
    CSerializationContext const& ctx = *document.m_pContext;
    return document.m_pfnElementCallback == nullptr && xml.size() < kLongestInput &&
           !ctx.GetKeepPositions() && document.m_schemaType != SchemaType_NoNamespaces && IsLocalTextUtf8() &&
           !IsASCIIOnly();
}

bool PlainXmlReader::Fill(CXmlDocument& document, std::string_view xml, bool borrows) {
    if (!IsFor(document, xml))
        return false;
    document.MakeTree();
    bool const isRead = PlainXmlReader(document, xml, borrows).Read();
    return document.EndPlainReading(isRead);
}

PlainXmlReader::PlainXmlReader(CXmlDocument& document, std::string_view xml, bool borrows)
    : m_doc(document), m_tree(*document.m_tree), m_begin(xml.data()), m_end(xml.data() + xml.size()),
      m_isStrict(document.m_pContext->GetStrict()), m_isBorrowing(borrows),
      m_elements(document, m_isStrict,
                 m_isBorrowing ? detail::PlainElements::Values::kBorrowed
                               : detail::PlainElements::Values::kCopied) {
    if (m_isStrict)
        m_tree.KeepTextPlaces();
}

bool PlainXmlReader::Read() {
    char const* at = m_begin;
    Pass(at, m_end, "\xEF\xBB\xBF"); // the byte order mark
    at = ReadDeclaration(at);
    if (at != nullptr)
        at = ReadSurroundings(at);
    if (at == nullptr || !Pass(at, m_end, "<"))
        return false;
    at = ReadStartTag(at);
    return at != nullptr && ReadContent(at);
}

// It comes first or not at all.
char const* PlainXmlReader::ReadDeclaration(char const* at) const {
    char const* const begin = at;
    if (!Pass(at, m_end, "<?xml") || at == m_end || !IsSpace(*at))
        return begin;
    // The value of the next part, if it has this name.
    auto const read = [this, &at](std::string_view name, std::string_view& value) {
        char const* behind = SkipSpace(at);
        if (behind == at || !Pass(behind, m_end, name))
            return false;
        behind = SkipSpace(behind);
        if (!Pass(behind, m_end, "="))
            return false;
        behind = SkipSpace(behind);
        if (behind == m_end || (*behind != '"' && *behind != '\''))
            return false;
        char const* const end = std::find(behind + 1, m_end, *behind);
        if (end == m_end)
            return false;
        value = Between(behind + 1, end);
        at = end + 1;
        return true;
    };
    std::string_view value;
    if (!read("version", value) || value != "1.0" ||
        (read("encoding", value) && !IsInAnyCase(value, "utf-8")) ||
        (read("standalone", value) && value != "yes" && value != "no"))
        return nullptr;
    at = SkipSpace(at);
    return Pass(at, m_end, "?>") ? at : nullptr;
}

char const* PlainXmlReader::SkipSpace(char const* at) const noexcept {
    while (at != m_end && IsSpace(*at))
        ++at;
    return at;
}

char const* PlainXmlReader::ReadSurroundings(char const* at) const {
    while (at != nullptr) {
        at = SkipSpace(at);
        char const* const markup = at;
        if (Pass(at, m_end, "<!--"))
            at = ReadComment(at);
        else if (Pass(at, m_end, "<?"))
            at = ReadInstruction(at);
        else
            return markup;
    }
    return nullptr;
}

bool PlainXmlReader::ReadContent(char const* at) {
    while (!m_elements.IsEmpty()) {
        at = ReadText(at);
        if (at == nullptr)
            return false;
        at = ReadMarkup(at + 1);
        if (at == nullptr)
            return false;
    }
    return ReadSurroundings(at) == m_end;
}

// Behind "<".
char const* PlainXmlReader::ReadMarkup(char const* at) {
    if (at == m_end)
        return nullptr;
    switch (*at) {
    case '/':
        return ReadEndTag(at + 1);
    case '?':
        return ReadInstruction(at + 1);
    case '!':
        ++at;
        if (Pass(at, m_end, "--"))
            return ReadComment(at);
        return Pass(at, m_end, "[CDATA[") ? ReadCData(at) : nullptr;
    default:
        return ReadStartTag(at);
    }
}

char const* PlainXmlReader::ReadStartTag(char const* at) {
    PlainName* const name = m_elementNames.Read(at, m_end);
    if (name == nullptr)
        return nullptr;
    m_elements.Begin();
    if (*at != '>') {
        at = ReadAttributes(at);
        if (at == nullptr)
            return nullptr;
    }
    bool const isEmpty = *at == '/';
    if (isEmpty && (++at == m_end || *at != '>'))
        return nullptr;
    if (!m_elements.Start(*name))
        return nullptr;
    if (isEmpty)
        m_elements.End();
    return at + 1;
}

// Up to the end of the tag.
char const* PlainXmlReader::ReadAttributes(char const* at) {
    for (;;) {
        char const* const begin = SkipSpace(at);
        if (begin == m_end)
            return nullptr;
        if (*begin == '>' || *begin == '/')
            return begin;
        if (begin == at || m_elements.IsFull())
            return nullptr;
        at = begin;
        Attribute attribute{m_attributeNames.Read(at, m_end), {}};
        if (attribute.name == nullptr)
            return nullptr;
        at = SkipSpace(at);
        if (!Pass(at, m_end, "="))
            return nullptr;
        at = SkipSpace(at);
        if (at == m_end || (*at != '"' && *at != '\''))
            return nullptr;
        at = ReadValue(at + 1, *at, attribute);
        if (at == nullptr)
            return nullptr;
        m_elements.Add(attribute);
    }
}

char const* PlainXmlReader::ReadValue(char const* at, char quote, Attribute& attribute) {
    char const* const end = FindPlainValueEnd(at, m_end, quote);
    if (end != m_end && *end == quote) {
        attribute.value = Between(at, end);
        return end + 1;
    }
    return ReadMixedValue(at, end, quote, attribute);
}

// Each break becomes a blank, and so does a tab.
char const* PlainXmlReader::ReadMixedValue(char const* begin, char const* at, char quote,
                                           Attribute& attribute) {
    std::string& values = m_elements.GetValues();
    attribute.kept = values.size();
    char const* from = begin;
    for (;; at = FindPlainValueEnd(at, m_end, quote)) {
        if (at == m_end)
            return nullptr;
        if (static_cast<unsigned char>(*at) >= 0x80) {
            at = SkipBeyondAscii(at, m_end);
            continue;
        }
        values.append(from, at);
        if (*at == quote) {
            attribute.keptLength = values.size() - attribute.kept;
            return AreXmlCharacters(Between(begin, at)) ? at + 1 : nullptr;
        }
        if (*at == '&') {
            PlainReference const reference = ReadPlainReference(at + 1, m_end);
            if (reference.end == nullptr)
                return nullptr;
            values.append(reference.text, reference.length);
            at = reference.end;
        } else if (IsSpace(*at)) {
            values += ' ';
            at = PassBreak(at, m_end);
        } else {
            return nullptr;
        }
        from = at;
    }
}

// Behind "</".
char const* PlainXmlReader::ReadEndTag(char const* at) {
    PlainName const& name = m_elements.GetOpenName();
    if (!name.Begins(at, m_end))
        return nullptr;
    at = SkipSpace(at + name.text.size());
    if (!Pass(at, m_end, ">"))
        return nullptr;
    m_elements.End();
    return at;
}

// Only from a reference does a carriage return come here.
void PlainXmlReader::AppendText(std::string_view text) {
    if (m_isStrict)
        m_tree.AppendText(text);
    else if (text != "\r")
        m_tree.AppendTextWithoutCR(text);
}

// All between two tags, as it is in the input.
void PlainXmlReader::AppendWholeText(std::string_view text) {
    if (m_isBorrowing)
        m_tree.AppendKeptText(text);
    else
        AppendText(text);
}

// Up to the next markup.
char const* PlainXmlReader::ReadText(char const* at) {
    char const* const end = FindPlainTextEnd(at, m_end);
    if (end == m_end)
        return nullptr;
    if (*end != '<')
        return ReadMixedText(at, end);
    if (end != at)
        AppendWholeText(Between(at, end));
    return end;
}

// A line ends in a line feed, whatever ends it in the input.
char const* PlainXmlReader::ReadMixedText(char const* begin, char const* at) {
    char const* from = begin;
    for (;; at = FindPlainTextEnd(at, m_end)) {
        if (at == m_end)
            return nullptr;
        if (static_cast<unsigned char>(*at) >= 0x80) {
            at = SkipBeyondAscii(at, m_end);
            continue;
        }
        if (*at == ']') {
            if (Between(at, m_end).substr(0, 3) == "]]>")
                return nullptr;
            ++at;
            continue;
        }
        if (*at == '<' && from == begin)
            AppendWholeText(Between(from, at));
        else if (at != from)
            AppendText(Between(from, at));
        if (*at == '<')
            return AreXmlCharacters(Between(begin, at)) ? at : nullptr;
        if (*at == '&') {
            PlainReference const reference = ReadPlainReference(at + 1, m_end);
            if (reference.end == nullptr)
                return nullptr;
            AppendText({reference.text, reference.length});
            at = reference.end;
        } else if (*at == '\r') {
            AppendText("\n");
            at = PassBreak(at, m_end);
        } else {
            return nullptr;
        }
        from = at;
    }
}

char const* PlainXmlReader::ReadCData(char const* at) {
    if (!m_doc.m_pContext->GetStripCDATA())
        return nullptr;
    std::size_t const length = Between(at, m_end).find("]]>");
    if (length == std::string_view::npos || !AreXmlCharacters({at, length}))
        return nullptr;
    AppendLines({at, length});
    return at + length + 3;
}

void PlainXmlReader::AppendLines(std::string_view text) {
    while (!text.empty()) {
        std::size_t const length = std::min(text.find('\r'), text.size());
        if (length != 0)
            AppendText(text.substr(0, length));
        text.remove_prefix(length);
        if (text.empty())
            return;
        AppendText("\n");
        text.remove_prefix(text.substr(0, 2) == "\r\n" ? 2 : 1);
    }
}

// Behind "<!--".
char const* PlainXmlReader::ReadComment(char const* at) const {
    std::size_t const length = Between(at, m_end).find("--");
    if (length == std::string_view::npos || !AreXmlCharacters({at, length}))
        return nullptr;
    at += length + 2;
    return Pass(at, m_end, ">") ? at : nullptr;
}

// Behind "<?".
char const* PlainXmlReader::ReadInstruction(char const* at) const {
    std::size_t const length = Between(at, m_end).find("?>");
    if (length == std::string_view::npos)
        return nullptr;
    std::string_view const instruction(at, length);
    std::string_view const target = instruction.substr(0, instruction.find_first_of(" \t\r\n"));
    return detail::IsPlainNamePart(target) && !IsInAnyCase(target, "xml") && AreXmlCharacters(instruction)
               ? at + length + 2
               : nullptr;
}

} // namespace ZvXmlLib16
