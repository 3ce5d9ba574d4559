// The lexical forms of the simple types that need no value to be told apart: names, binary data, URIs.
#pragma once

#include "zvxmllib/grammar/GrammarRows.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace ZvXmlLib16::grammar {

enum class WhiteSpace : std::uint8_t { kPreserve, kReplace, kCollapse };

constexpr bool IsSpace(char c) noexcept {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

std::string_view Trim(std::string_view text) noexcept;
// As messages show it.
std::string Quote(std::string_view name);

// The text by the rule. What need not be copied is part of `text`; otherwise it is in `room`.
std::string_view ApplyWhiteSpace(WhiteSpace rule, std::string_view text, std::string& room);

// Takes the next item off the front of `list`. False if there is none.
bool TakeListItem(std::string_view& list, std::string_view& item) noexcept;

// Of well-formed UTF-8.
std::size_t CountCharacters(std::string_view text) noexcept;
bool IsAsciiText(std::string_view text) noexcept;

// XML 1.0, 2.3 (fifth edition) and Namespaces in XML, 3. The texts are after the white space rule.
bool IsXmlName(std::string_view text) noexcept;
bool IsNCName(std::string_view text) noexcept;
bool IsNmToken(std::string_view text) noexcept;
// Of a text that is [prefix:]local: both are NCNames, and `prefix` is empty if there is none.
bool SplitQName(std::string_view text, std::string_view& prefix, std::string_view& local) noexcept;
// RFC 3066, as XML Schema Part 2, 3.3.3, writes it.
bool IsLanguage(std::string_view text) noexcept;

// 1 or 0, or -1 for a text that is no boolean.
int ReadBoolean(std::string_view text) noexcept;

constexpr std::size_t kNoOctets = static_cast<std::size_t>(-1);
// The octets that the text stands for; kNoOctets for one that is no hexBinary or base64Binary.
std::size_t CountHexOctets(std::string_view text) noexcept;
std::size_t CountBase64Octets(std::string_view text) noexcept;

// Hardly any text is not one (XML Schema Part 2, 3.2.17): a percent sign needs two hexadecimal digits behind
// it, only one # is allowed, and what stands ahead of a colon must be a scheme, unless a /, ? or # comes
// first.
bool IsAnyUri(std::string_view text) noexcept;

} // namespace ZvXmlLib16::grammar
