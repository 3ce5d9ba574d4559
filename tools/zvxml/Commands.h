// The commands of the tool.
#pragma once

#include <string>
#include <vector>

namespace zvxml {

class Progress;

// Throw UsageError and FileError.
void Convert(std::vector<std::string> const& arguments, Progress& progress);
void Inspect(std::vector<std::string> const& arguments, Progress& progress);

// What --help prints for a command.
std::string ConvertHelp();
std::string InspectHelp();

} // namespace zvxml
