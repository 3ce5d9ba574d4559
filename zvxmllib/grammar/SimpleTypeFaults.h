// What is said of texts that are no values of a type, and of facets that cannot be used.
#pragma once

#include "zvxmllib/grammar/BuiltInNames.h"
#include "zvxmllib/grammar/GrammarRows.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace ZvXmlLib16::grammar {

[[noreturn]] void FailPattern(std::string const& pattern, std::string const& error);
[[noreturn]] void FailFacet(Facet facet, char const* value, char const* type);
[[noreturn]] void FailTypeRow(char const* type);

// Each replaces `message`. A long value is shortened; `type` is the name of the type, empty for none.
void TellForm(std::string& message, std::string_view value, BuiltIn type);
void TellPrefix(std::string& message, std::string_view value, std::string_view prefix);
void TellNotation(std::string& message, std::string_view value);
void TellMembers(std::string& message, std::string_view value, char const* type);
void TellPattern(std::string& message, std::string_view value, std::string_view pattern, char const* type);
void TellEnumeration(std::string& message, std::string_view value, char const* type);
// Length and digits: `count` is that of the value, in the unit.
void TellSize(std::string& message, std::string_view value, std::size_t count, char const* unit, Facet facet,
              char const* limit, char const* type);
void TellBound(std::string& message, std::string_view value, bool hasOrder, Facet facet, char const* limit,
               char const* type);

} // namespace ZvXmlLib16::grammar
