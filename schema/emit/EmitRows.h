// The rows of a grammar as C++.
#pragma once

#include "zvxmllib/grammar/GrammarRows.h"

#include <string>

namespace ZvXmlLib16::schema {

// Constant arrays and `constexpr GrammarRows kRows`, for an anonymous namespace that uses
// ZvXmlLib16::grammar.
std::string EmitRows(grammar::GrammarRows const& rows);

} // namespace ZvXmlLib16::schema
