// The tables of tests/data/numbers.txt.
#pragma once

#include <array>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace zvtest {

// The rows of a section, which have so many columns.
template <std::size_t columns>
std::vector<std::array<std::string, columns>> NumberTable(std::string const& section) {
    std::vector<std::array<std::string, columns>> rows;
    std::ifstream file(ZV_TEST_DATA_DIR "/numbers.txt");
    bool isInSection = false;
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line[0] == '#')
            continue;
        if (line[0] == '[') {
            isInSection = line == "[" + section + "]";
        } else if (isInSection) {
            std::istringstream fields(line);
            for (std::string& field : rows.emplace_back())
                fields >> field;
        }
    }
    return rows;
}

} // namespace zvtest
