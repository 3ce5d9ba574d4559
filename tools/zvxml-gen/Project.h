// zvxml-gen new: a project that builds and runs.
#pragma once

#include <string>
#include <vector>

namespace zvxml {

// Arguments are DIR [OPTION]... SCHEMA.... Returns the status of the program. Throws UsageError and
// FileError; refuses a folder that is not empty, and a sample that is not valid by the schema.
int MakeProject(std::vector<std::string> const& arguments);

} // namespace zvxml
