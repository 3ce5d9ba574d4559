// An independent judge of what the library writes as JSON.
#pragma once

#include <string>

// What another parser says against `text`, empty if it is JSON (RFC 8259).
std::string FaultOfJson(std::string const& text);
