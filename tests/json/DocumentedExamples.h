// The fenced blocks of docs/json.md, which the tests run.
#pragma once

#include "zvxmllib/json/JsonContext.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <utility>
#include <vector>

// What stands behind the fence, and the lines.
struct DocumentedBlock {
    std::string info;
    std::string text;
};

inline std::vector<DocumentedBlock> BlocksOfSection(std::string const& heading) {
    constexpr char kFence[] = "```";
    std::ifstream document(ZV_DOCS_DIR "/json.md");
    std::vector<DocumentedBlock> blocks;
    bool isInSection = false;
    bool isInBlock = false;
    for (std::string line; std::getline(document, line);) {
        if (line.rfind("## ", 0) == 0)
            isInSection = line == "## " + heading;
        else if (isInSection && line == kFence && isInBlock)
            isInBlock = false;
        else if (isInSection && line.rfind(kFence, 0) == 0) {
            isInBlock = true;
            blocks.push_back({line.substr(3), ""});
        } else if (isInBlock)
            blocks.back().text += line + '\n';
    }
    return blocks;
}

inline ZvXmlLib16::JsonRoundTrip ModeOf(std::string const& info) {
    using namespace ZvXmlLib16;
    for (auto const& [name, mode] : {std::pair("json none", JsonRoundTrip_None),
                                     std::pair("json no-namespaces", JsonRoundTrip_NoNamespaces),
                                     std::pair("json full", JsonRoundTrip_Full)}) {
        if (info == name)
            return mode;
    }
    ADD_FAILURE() << "no mode: " << info;
    return JsonRoundTrip_Full;
}
