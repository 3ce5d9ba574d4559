// Representative reads and writes, one of each kind and format, that the tests of failures and threads
// repeat.
#pragma once

#include <functional>
#include <string>
#include <vector>

// `run` gives a text that depends on all that was read or written; each run is complete in itself.
struct Scenario {
    char const* name;
    std::function<std::string()> run;
};

std::vector<Scenario> const& MemoryScenarios();
// The same by way of files, whose names are this process's own.
std::vector<Scenario> const& FileScenarios();
