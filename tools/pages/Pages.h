// Manual pages and completions of programs, made of their help.
#pragma once

#include "HelpText.h"

#include <string>
#include <utility>
#include <vector>

namespace pages {

struct Program {
    std::string name;
    std::string version;
    Help help;
    std::vector<std::pair<std::string, Help>> commands; // by their names
};

// In the language of man(7).
std::string ManualPage(Program const& program);
std::string BashCompletion(Program const& program);
std::string ZshCompletion(Program const& program);
std::string FishCompletion(Program const& program);

} // namespace pages
