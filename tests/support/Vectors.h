// The tables of texts in tests/data: what goes in and what comes out, a row on each line.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

// The rows of a section of the file, as texts between " -> ", with the escapes of C. A line that begins with
// "# " is a comment.
inline std::vector<std::vector<std::string>> Vectors(std::string const& file, std::string const& section) {
    auto const unescaped = [](std::string const& text) {
        std::string result;
        for (std::size_t i = 0; i < text.size(); ++i) {
            char const next = text[i] == '\\' ? text[++i] : '\0';
            std::size_t const known = std::string("nrtbfv0").find(next);
            if (next == 'x') {
                result += static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
                i += 2;
            } else if (next != '\0' && known != std::string::npos) {
                result += "\n\r\t\b\f\v\0"[known];
            } else {
                result += text[i];
            }
        }
        return result;
    };
    std::vector<std::vector<std::string>> rows;
    std::ifstream stream(ZV_TEST_DATA_DIR "/" + file);
    bool isInSection = false;
    for (std::string line; std::getline(stream, line);) {
        if (line.empty() || line.rfind("# ", 0) == 0)
            continue;
        if (line.rfind("== ", 0) == 0) {
            isInSection = line == "== " + section;
            continue;
        }
        if (!isInSection)
            continue;
        rows.emplace_back();
        std::string const separator = " -> ";
        std::size_t start = 0;
        for (std::size_t end = 0; (end = line.find(separator, start)) != std::string::npos;
             start = end + separator.size())
            rows.back().push_back(unescaped(line.substr(start, end - start)));
        rows.back().push_back(unescaped(line.substr(start)));
    }
    EXPECT_FALSE(rows.empty()) << file << ' ' << section;
    return rows;
}
