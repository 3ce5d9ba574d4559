// Every failure of the JSON forms.
#pragma once

#include <string>

namespace ZvXmlLib16 {

[[noreturn]] void FailUnknownNamespace(std::string const& ns);
[[noreturn]] void FailContentAfterScalar();

} // namespace ZvXmlLib16
