// Every failure of the writers.
#pragma once

#include <string>

namespace ZvXmlLib16 {

[[noreturn]] void FailElementNotClosed();
[[noreturn]] void FailAttributeAfterContent();
[[noreturn]] void FailDirectiveInsideElement();
[[noreturn]] void FailInvalidEol();
[[noreturn]] void FailValueOutsideElement();
[[noreturn]] void FailEndOutsideElement();
[[noreturn]] void FailZLibForFiles();

// Of strict writers. `owner` is the element or attribute whose text it is.
[[noreturn]] void FailElementNameOfXml(std::string const& name);
[[noreturn]] void FailAttributeNameOfXml(std::string const& name);
[[noreturn]] void FailCharacterOfXml(char32_t character, std::string const& owner);
[[noreturn]] void FailMalformedText(std::string const& owner);
[[noreturn]] void FailNamespaceOfXml(std::string const& ns);
[[noreturn]] void FailAlias(std::string const& alias);
[[noreturn]] void FailAliasOfTwo(std::string const& alias, std::string const& ns, std::string const& other);
[[noreturn]] void FailTwinAttribute(std::string const& name);
[[noreturn]] void FailInstruction(std::string const& text);
[[noreturn]] void FailComment(std::string const& text);
[[noreturn]] void FailInlineSchema();
[[noreturn]] void FailSecondRoot(std::string const& second);
[[noreturn]] void FailNoRoot();

} // namespace ZvXmlLib16
