// The main of all test programs: runs the tests, then looks for tracked objects that are still alive.
#include "zvxmllib/binding/GeneratorVersion.h"
#include "zvxmllib/foundation/InstanceMonitor.h"

#include <gmock/gmock.h>

#include <iostream>
#include <sstream>
#include <string>

namespace {

// The default context keeps its additional root attributes for the life of the process.
bool IsExpectedSurvivor(std::string const& line) {
    return line.find("--> CAttributeCol = 1/") == 0;
}

bool ReportSurvivors() {
    bool clean = true;
    std::istringstream state(CInstanceMonitor::DumpState());
    for (std::string line; std::getline(state, line);) {
        if (line.rfind("--> ", 0) == 0 && !IsExpectedSurvivor(line)) {
            std::cerr << "still alive at the end of the tests: " << line << '\n';
            clean = false;
        }
    }
    return clean;
}

} // namespace

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    ZvXmlLib16::SetGeneratorVersion(16, 1); // as generated code does at its start
    int const failed = RUN_ALL_TESTS();
    return ReportSurvivors() ? failed : 1;
}
