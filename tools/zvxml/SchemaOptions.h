// The options that name schemas, and what they name.
#pragma once

#include "schema/model/Schema.h"

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace zvxml {

inline constexpr std::size_t kMostErrors = 20; // that are told; the first ones explain the others

struct SchemaOptions {
    std::vector<std::string> files;
    std::vector<std::pair<std::string, std::string>> locations; // from, file
    std::vector<std::string> catalogs;

    // FROM=FILE. Throws UsageError.
    void AddLocation(std::string const& text);
    // Tells warnings and errors on standard error. Throws SchemaError if there are errors.
    std::unique_ptr<ZvXmlLib16::schema::Schema> Read() const;
};

} // namespace zvxml
