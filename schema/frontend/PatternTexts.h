// Patterns that the parser library cannot cope with, hidden from it.
#pragma once

#include <string>

namespace ZvXmlLib16::schema {

// The document with another pattern, which matches everything, in place of those that the parser refuses
// though they are right, and of those that take it too much time or memory, since it unrolls repetitions. Any
// other pattern that is wrong stays. The document keeps its length, and the places in it stay. For a document
// in an encoding that has ASCII as it is; others are left as they are.
std::string HidePatterns(std::string document);

} // namespace ZvXmlLib16::schema
