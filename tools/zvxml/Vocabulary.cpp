#include "Vocabulary.h"

#include "stream/InfosetVocabulary.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

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

std::string Entry(InfosetVocabulary const&, std::string const& text) {
    return OnOneLine(text);
}

std::string Entry(InfosetVocabulary const& vocabulary, InfosetVocabulary::NameEntry const& name) {
    return OnOneLine(vocabulary.Describe(name));
}

template <class Table>
void PrintTable(InfosetVocabulary const& vocabulary, Table const& table, std::size_t most) {
    std::size_t const count = table.entries.size();
    std::printf("  %-17s %8zu\n", table.content, count);
    for (std::size_t i = 0; i < std::min(count, most); ++i)
        std::printf("    %7zu  %s\n", i + 1, Entry(vocabulary, table.entries[i]).c_str());
    if (count > most)
        std::printf("             and %zu more\n", count - most);
}

} // namespace

void PrintVocabulary(InfosetVocabulary const& vocabulary, std::size_t most) {
    std::printf("vocabulary\n");
    PrintTable(vocabulary, vocabulary.prefixes, most);
    PrintTable(vocabulary, vocabulary.uris, most);
    PrintTable(vocabulary, vocabulary.locals, most);
    PrintTable(vocabulary, vocabulary.elements, most);
    PrintTable(vocabulary, vocabulary.attributes, most);
    PrintTable(vocabulary, vocabulary.values, most);
    PrintTable(vocabulary, vocabulary.chunks, most);
}

} // namespace zvxml
