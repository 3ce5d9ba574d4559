// The fenced blocks of the documentation, which tests run.
#pragma once

#include <fstream>
#include <string>
#include <vector>

// What stands behind the fence, and the lines.
struct DocumentedBlock {
    std::string info;
    std::string text;
};

// Of a file in docs, all of them or those of the section with this heading.
inline std::vector<DocumentedBlock> BlocksOf(std::string const& file, std::string const& heading = {}) {
    std::ifstream document(ZV_DOCS_DIR "/" + file);
    std::vector<DocumentedBlock> blocks;
    bool isInSection = heading.empty();
    bool isInBlock = false;
    for (std::string line; std::getline(document, line);) {
        bool const isFence = line.rfind("```", 0) == 0;
        if (!heading.empty() && line.rfind("## ", 0) == 0)
            isInSection = line == "## " + heading;
        if (isInSection && isFence && !isInBlock)
            blocks.push_back({line.substr(3), ""});
        else if (isInSection && isInBlock && !isFence)
            blocks.back().text += line + '\n';
        isInBlock = isInBlock != isFence;
    }
    return blocks;
}
