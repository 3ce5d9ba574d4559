// The options of convert and format.
#pragma once

#include "CommandLine.h"
#include "OutputFormats.h"
#include "stream/Documents.h"
#ifdef ZVXML_HAS_SCHEMAS
#include "SchemaOptions.h"
#endif

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zvxml {

struct ConvertOptions {
    OutputFormat const* format = nullptr; // null: chosen by the output's name
    std::optional<ZvXmlLib16::CompressionType> compression;
    StreamOptions stream;
    bool hasJsonComments = true; // where lax
    std::optional<std::uint32_t> addLength;
    bool isLax = false;
    bool isInPlace = false;
#ifdef ZVXML_HAS_SCHEMAS
    SchemaOptions schema;
#endif
};

std::vector<Option<ConvertOptions>> const& ConvertOptionTable();
std::vector<Option<ConvertOptions>> const& FormatOptionTable();

// Where a command reads and writes; "-" is a standard stream.
struct Operands {
    std::string input;
    std::string output;
};
// Throws UsageError.
Operands ReadOperands(std::vector<std::string> const& operands, ConvertOptions const& options);

// Takes what the options leave open from the ending of the output's name. Throws UsageError for an unknown
// one.
void SettleByFileName(ConvertOptions& options, std::string const& file);
// The same, where a file is written in its own form.
void SettleByInput(ConvertOptions& options, ByteInput const& input);

} // namespace zvxml
