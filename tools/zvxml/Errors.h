// What the tool reports, and its exit codes.
#pragma once

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

// A file that cannot be read, converted or written: exit 1. The message begins with the file's name.
class FileError : public std::runtime_error {
public:
    FileError(std::string const& file, std::string const& message)
        : std::runtime_error(file + ": " + message) {}
};

} // namespace zvxml
