// An independent judge of what the library writes as JSON.
#pragma once

#include <cstddef>
#include <string>

// What another parser says against `text`, empty if it is JSON (RFC 8259).
std::string FaultOfJson(std::string const& text);

// What the names of a text in mode full stand for. Untyped documents have no arrays.
struct JsonCounts {
    std::size_t elements = 0;
    std::size_t attributes = 0; // without declarations
};
JsonCounts CountNames(std::string const& text);
