// Documents that people have written.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

// Those of the examples, or those in the folder that the environment variable ZVXMLLIB_DOCUMENTS names.
inline std::vector<std::string> RealDocuments() {
    char const* const given = std::getenv("ZVXMLLIB_DOCUMENTS");
    std::vector<std::string> documents;
    for (auto const& entry :
         std::filesystem::directory_iterator(given == nullptr ? ZV_EXAMPLE_DATA_DIR : given)) {
        if (entry.is_regular_file() && entry.path().extension() != ".md")
            documents.push_back(entry.path().string());
    }
    std::sort(documents.begin(), documents.end());
    return documents;
}

inline std::string ReadAll(std::string const& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}
