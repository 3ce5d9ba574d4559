// Every failure of the context.
#pragma once

#include <string>

namespace ZvXmlLib16 {

[[noreturn]] void FailAliasNotFound(std::string const& alias);
[[noreturn]] void FailIndentCharacter();
[[noreturn]] void FailIgnoreUnknownExcluded();
[[noreturn]] void FailIgnoreMissingExcluded();

} // namespace ZvXmlLib16
