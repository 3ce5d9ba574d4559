// The regular expressions of XML Schema Part 2, appendix F, in the language of the libraries of regular
// expressions.
#pragma once

#include "zvxmllib/platform/Api.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace ZvXmlLib16::detail {

struct SchemaPattern {
    std::string expression;   // matches a whole subject, from its start to its end; empty if it is none
    std::string error;        // what is wrong with the pattern; empty for nothing
    std::size_t position = 0; // of the fault, in bytes of the pattern
};

// To the letter, or with what schemas are seen to use besides: a '-' behind a range or a set of a class,
// which stands for itself, and the blocks of surrogates, which hold no character.
enum class PatternGrammar : unsigned char { kLetter, kTolerant };

// `pattern` is UTF-8. Any number of threads may translate at once.
ZV_API SchemaPattern TranslateSchemaPattern(std::string_view pattern,
                                            PatternGrammar grammar = PatternGrammar::kLetter);

} // namespace ZvXmlLib16::detail
