// The tables of a Fast Infoset document, printed.
#pragma once

#include <cstddef>

namespace ZvXmlLib16 {
struct ReadVocabulary;
}

namespace zvxml {

// Prints each table with its size and its first `most` entries to standard output. Prefixes and namespaces
// of names stand with them; control characters are written as escapes, so that an entry is one line.
void PrintVocabulary(ZvXmlLib16::ReadVocabulary const& vocabulary, std::size_t most);

} // namespace zvxml
