// C++ from a mapping.
#pragma once

#include "schema/mapping/Mapping.h"
#include "schema/model/Schema.h"

#include <string>
#include <vector>

namespace ZvXmlLib16::schema {

struct EmittedFile {
    std::string name; // without a folder
    std::string text;
};

// A set generated before.
struct ExternSet {
    std::string header; // as #include takes it
    std::string stem;
    std::string ns; // its home, in C++
};

// STEM.h, STEM-fwd.h, STEM-1.cpp ... STEM-PARTS.cpp. The same bytes for the same schema and options
// everywhere. `externs` are those of Schema::before, in the same order.
std::vector<EmittedFile> Emit(Schema const& schema, Mapping const& mapping, std::string const& stem,
                              unsigned parts, std::vector<ExternSet> const& externs = {});

// Their names, without making them.
std::vector<std::string> OutputNames(std::string const& stem, unsigned parts);

} // namespace ZvXmlLib16::schema
