// Prints the tables of a Fast Infoset document.
#pragma once

#include <cstddef>

namespace zvxml {

class InfosetVocabulary;

// Prints each table with its size and its first `most` entries to standard output. Names are shown with
// prefix and namespace; control characters are written as escapes, so that an entry is one line.
void PrintVocabulary(InfosetVocabulary const& vocabulary, std::size_t most);

} // namespace zvxml
