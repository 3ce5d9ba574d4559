#include "Vocabulary.h"

#include <zvxmllib/ZvXmlLibInternal.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

using namespace ZvXmlLib16;

namespace zvxml {

namespace {

std::string OnOneLine(std::string_view text) {
    std::string line;
    for (char const c : text) {
        char escape[8];
        unsigned const octet = static_cast<unsigned char>(c);
        if (c == '\n')
            line += "\\n";
        else if (c == '\t')
            line += "\\t";
        else if (c == '\\')
            line += "\\\\";
        else if (octet < 0x20 || octet == 0x7F)
            line += (std::snprintf(escape, sizeof escape, "\\x%02X;", octet), escape);
        else
            line += c;
    }
    return line;
}

// Empty for an absent part, and for one that an external vocabulary names but does not hold.
std::string_view Part(ReadVocabulary::NameParts const& table, std::uint32_t index) {
    return index == 0 || index > table.entries.size() ? std::string_view() : table.entries[index - 1].text;
}

std::string Entry(ReadVocabulary const&, std::string_view text) {
    return OnOneLine(text);
}

std::string Entry(ReadVocabulary const&, ReadVocabulary::NamePart const& part) {
    return OnOneLine(part.text);
}

// prefix:local {uri}
std::string Entry(ReadVocabulary const& vocabulary, ReadVocabulary::QName const& name) {
    std::string text(Part(vocabulary.prefixNames, name.prefix));
    if (!text.empty())
        text += ':';
    text += Part(vocabulary.localNames, name.localName);
    if (name.namespaceName != 0)
        text.append(" {").append(Part(vocabulary.namespaceNames, name.namespaceName)).append("}");
    return OnOneLine(text);
}

template <class Table>
void PrintTable(ReadVocabulary const& vocabulary, Table const& table, std::size_t most) {
    std::size_t const count = table.entries.size();
    std::printf("  %-17s %8zu\n", table.content, count);
    for (std::size_t i = 0; i < std::min(count, most); ++i)
        std::printf("    %7zu  %s\n", i + 1, Entry(vocabulary, table.entries[i]).c_str());
    if (count > most)
        std::printf("             and %zu more\n", count - most);
}

} // namespace

void PrintVocabulary(ReadVocabulary const& vocabulary, std::size_t most) {
    std::printf("vocabulary\n");
    PrintTable(vocabulary, vocabulary.prefixNames, most);
    PrintTable(vocabulary, vocabulary.namespaceNames, most);
    PrintTable(vocabulary, vocabulary.localNames, most);
    PrintTable(vocabulary, vocabulary.elementNames, most);
    PrintTable(vocabulary, vocabulary.attributeNames, most);
    PrintTable(vocabulary, vocabulary.attributeValues, most);
    PrintTable(vocabulary, vocabulary.characterChunks, most);
}

} // namespace zvxml
