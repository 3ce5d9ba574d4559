// zvxml-gen new: a project that builds and runs.
#pragma once

#include "GeneratorOptions.h"

#include <string>
#include <vector>

namespace zvxml {

// Arguments are DIR [OPTION]... SCHEMA...; `generate` makes the classes. Returns its status if that is not
// success. Throws UsageError and FileError; refuses a folder that is not empty.
int MakeProject(std::vector<std::string> const& arguments, int (*generate)(GeneratorOptions const& options));

} // namespace zvxml
