// Copies of schemas for a project of their own.
#pragma once

#include "schema/emit/Emitter.h"

#include <filesystem>
#include <string>
#include <vector>

namespace zvxml {

// Lays files out below schemas/ as they lie now, so that what one includes by a relative place is found
// there, too.
class SchemaCopies {
public:
    // All files that were read; one at least.
    explicit SchemaCopies(std::vector<std::string> const& files);

    // Where the copy lies in the project; the absolute path of a file that is not copied.
    std::string PlaceOf(std::string const& file) const;
    // The copies. Throws FileError.
    std::vector<ZvXmlLib16::schema::EmittedFile> Read() const;

private:
    std::vector<std::filesystem::path> m_files; // absolute
    std::filesystem::path m_common;             // the folder that has them all
};

// The bytes of a file. Throws FileError with this text if it cannot be read.
std::string ReadWholeFile(std::string const& file, char const* failure);

} // namespace zvxml
