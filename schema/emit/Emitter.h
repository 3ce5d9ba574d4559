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

// STEM.h, STEM-fwd.h, STEM-1.cpp ... STEM-PARTS.cpp. The same bytes for the same schema and options
// everywhere.
std::vector<EmittedFile> Emit(Schema const& schema, Mapping const& mapping, std::string const& stem,
                              unsigned parts);

// Their names, without making them.
std::vector<std::string> OutputNames(std::string const& stem, unsigned parts);

} // namespace ZvXmlLib16::schema
