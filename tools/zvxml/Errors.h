// What the tool reports, and its exit codes.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace zvxml {

inline constexpr int kExitSuccess = 0;
inline constexpr int kExitFailure = 1;
inline constexpr int kExitUsage = 2;
inline constexpr int kExitSchema = 3;

// A command line that makes no sense: exit 2.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// A schema that cannot be used: exit 3. Why has been told.
class SchemaError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Where something stands in a document; both count from 1. On line 0 the column is the number of an octet,
// and if both are 0, the place is unknown.
struct Place {
    std::uint64_t line = 0;
    std::uint64_t column = 0;
};

// "FILE:LINE:COLUMN: " as far as it is known.
inline std::string PlaceText(std::string const& file, Place const& place) {
    if (place.line != 0)
        return file + ':' + std::to_string(place.line) + ':' + std::to_string(place.column) + ": ";
    return place.column != 0 ? file + ": octet " + std::to_string(place.column) + ": " : file + ": ";
}

// A file that cannot be read, converted or written: exit 1. The message begins with the file's name and
// place.
class FileError : public std::runtime_error {
public:
    FileError(std::string const& file, std::string const& message, Place const& place = {})
        : std::runtime_error(PlaceText(file, place) + message) {}
};

// What is wrong with a document. Whoever knows the file makes a FileError of it.
class DocumentError : public std::runtime_error {
public:
    explicit DocumentError(std::string const& message, Place const& place = {})
        : std::runtime_error(message), m_place(place) {}

    Place const& GetPlace() const noexcept { return m_place; }

private:
    Place m_place;
};

} // namespace zvxml
