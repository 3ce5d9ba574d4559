// A file of a test's own, which goes with it.
#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <unistd.h>

class TemporaryFile {
public:
    // No file yet, only its name.
    TemporaryFile()
        : m_path((std::filesystem::temp_directory_path() /
                  ("zvxmllib_" + std::to_string(::getpid()) + "_" +
                   std::to_string(reinterpret_cast<std::uintptr_t>(this))))
                     .string()) {}
    explicit TemporaryFile(std::string const& content) : TemporaryFile() {
        std::ofstream(m_path, std::ios::binary) << content;
    }
    TemporaryFile(TemporaryFile const&) = delete;
    TemporaryFile& operator=(TemporaryFile const&) = delete;
    ~TemporaryFile() { std::remove(m_path.c_str()); }

    char const* Path() const { return m_path.c_str(); }
    std::string Content() const {
        std::ifstream file(m_path, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }

private:
    std::string m_path;
};
