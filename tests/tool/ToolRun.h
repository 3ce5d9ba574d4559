// Runs the tool in a scratch directory and compares the documents that it makes.
#pragma once

#include "tests/support/RealDocuments.h"

#include <filesystem>
#include <string>
#include <vector>

struct ToolResult {
    int exitCode;
    std::string out;
    std::string err;
};

// A directory that goes with the object. Names of files are relative to it unless they are absolute.
class ScratchDirectory {
public:
    ScratchDirectory();
    ScratchDirectory(ScratchDirectory const&) = delete;
    ScratchDirectory& operator=(ScratchDirectory const&) = delete;
    ~ScratchDirectory();

    std::string Path(std::string const& name) const { return (m_path / name).string(); }
    void Write(std::string const& name, std::string const& content) const;
    std::string Read(std::string const& name) const;

    // Runs the tool here. `arguments` are separated by blanks, as in a shell; `input` is standard input.
    ToolResult Run(std::string const& arguments, std::string const& input = "") const;
    // The same with standard output in this file; the result holds none.
    ToolResult RunInto(std::string const& file, std::string const& arguments) const;

private:
    int RunShell(std::string const& arguments, std::string const& output) const;

    std::filesystem::path m_path;
};

enum class Texts { All, OfElementsWithoutChildren, WithoutLineFeeds };

// Elements with their namespaces, attributes and texts, a line each, as the library reads them.
std::vector<std::string> DescribeDocument(std::string const& file, Texts texts = Texts::All);
