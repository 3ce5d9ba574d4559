// The files that zvxml-gen writes.
#pragma once

#include "GeneratorOptions.h"

#include "schema/emit/Emitter.h"
#include "schema/naming/NameTable.h"

#include <string>
#include <vector>

namespace zvxml {

std::string InFolder(std::string const& folder, std::string const& name);

// Reads the table that --names gives, if any; with --lock-names it need not be there yet. Throws FileError.
void ReadNames(GeneratorOptions const& options, ZvXmlLib16::schema::NameTable& names,
               ZvXmlLib16::schema::Diagnostics& diagnostics);

// Makes the folder if need be, and those that names of files have, unless they are absolute. Writes all of
// the files or none; one whose text is the same is left alone. Throws FileError.
void WriteFiles(std::vector<ZvXmlLib16::schema::EmittedFile> const& files, std::string const& folder);
// Whether the files are there with these texts. Names those that are not on standard error.
bool AreOnDisk(std::vector<ZvXmlLib16::schema::EmittedFile> const& files, std::string const& folder);
// A rule for make: `target` is made from `inputs`.
std::string DependencyRule(std::string const& target, std::vector<std::string> const& inputs);

} // namespace zvxml
