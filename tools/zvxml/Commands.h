// The commands of the tool.
#pragma once

#include <string>
#include <vector>

namespace zvxml {

class Progress;

// Return the exit status. Throw UsageError, FileError and SchemaError.
int Convert(std::vector<std::string> const& arguments, Progress& progress);
int Format(std::vector<std::string> const& arguments, Progress& progress);
int Same(std::vector<std::string> const& arguments, Progress& progress);
int Inspect(std::vector<std::string> const& arguments, Progress& progress);
int Validate(std::vector<std::string> const& arguments, Progress& progress);

// What --help prints for a command.
std::string ConvertHelp();
std::string FormatHelp();
std::string SameHelp();
std::string InspectHelp();
std::string ValidateHelp();

} // namespace zvxml
