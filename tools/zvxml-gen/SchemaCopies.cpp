#include "SchemaCopies.h"

#include "Errors.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <system_error>

namespace zvxml {

namespace fs = std::filesystem;

namespace {

constexpr char const* kFolder = "schemas";

fs::path Absolute(std::string const& file) {
    return fs::absolute(file).lexically_normal();
}

} // namespace

std::string ReadWholeFile(std::string const& file, char const* failure) {
    std::ifstream stream(file, std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    std::error_code ignored;
    if (!stream || fs::is_directory(file, ignored))
        throw FileError(file, failure);
    return bytes;
}

SchemaCopies::SchemaCopies(std::vector<std::string> const& files) {
    for (std::string const& file : files)
        m_files.push_back(Absolute(file));
    m_common = m_files.front().parent_path();
    for (fs::path const& file : m_files) {
        auto const isBelow = [&file](fs::path const& folder) {
            return std::mismatch(folder.begin(), folder.end(), file.begin(), file.end()).first ==
                   folder.end();
        };
        while (!isBelow(m_common))
            m_common = m_common.parent_path();
    }
}

std::string SchemaCopies::PlaceOf(std::string const& file) const {
    fs::path const path = Absolute(file);
    if (std::find(m_files.begin(), m_files.end(), path) == m_files.end())
        return path.generic_string();
    return (kFolder / path.lexically_relative(m_common)).generic_string();
}

std::vector<ZvXmlLib16::schema::EmittedFile> SchemaCopies::Read() const {
    std::vector<ZvXmlLib16::schema::EmittedFile> copies;
    for (fs::path const& file : m_files)
        copies.push_back({PlaceOf(file.string()), ReadWholeFile(file.string(), "the schema cannot be read")});
    return copies;
}

} // namespace zvxml
