// The command line of zvxml-gen.
#pragma once

#include "SchemaOptions.h"

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace zvxml {

struct GeneratorOptions {
    SchemaOptions schema;
    std::string folder = ".";
    std::string name; // of the files; empty for that of the first schema
    std::map<std::string, std::string> namespaces;
    std::vector<std::string> only; // global elements and types; empty for all
    std::vector<std::pair<std::string, std::string>>
        externs; // a namespace, and the header it was generated to
    unsigned parts = 1;
    bool listsOutputs = false;
    bool dumpsModel = false;
    bool checks = false;
    std::string dependencyFile;
    std::string dependencyTarget; // empty for the header
    std::string namesFile;        // empty for none
    bool locksNames = false;
    std::string sample;             // a document for a new project; empty for none
    std::set<std::string> silenced; // warnings
    std::set<std::string> errors;   // warnings that are errors; an empty name is all

    std::string Stem() const;
    bool IsSilenced(std::string const& warning) const { return silenced.count(warning) != 0; }
    bool IsError(std::string const& warning) const {
        return errors.count({}) != 0 || errors.count(warning) != 0;
    }
};

// Throws UsageError.
GeneratorOptions ReadGeneratorOptions(std::vector<std::string> const& arguments);
std::string GeneratorHelp();

} // namespace zvxml
