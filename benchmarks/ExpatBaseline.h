// The minimum cost of reading XML text: the parser with namespaces and handlers that do nothing.
#pragma once

#include <string>

namespace bench {

void ParseOnly(std::string const& text);

} // namespace bench
