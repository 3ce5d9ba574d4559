// Documents of any size in bounded memory.
#include "tests/tool/ToolRun.h"

#include <gtest/gtest.h>

#include <string>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// The most memory that the tool takes, in kilobytes; -1 if it fails.
long PeakOf(ScratchDirectory const& scratch, std::string const& arguments) {
    std::string const command = "cd '" + scratch.Path("") + "' && exec '" ZV_TOOL "' " + arguments;
    pid_t const child = ::fork();
    if (child == 0) {
        ::execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
        ::_exit(127);
    }
    int status = 0;
    rusage usage{};
    return ::wait4(child, &status, 0, &usage) == child && status == 0 ? usage.ru_maxrss : -1;
}

TEST(ZvxmlStreamMemory, DoesNotGrowWithTheDocument) {
    ScratchDirectory const scratch;
    std::string document = "<r xmlns='urn:r'>\n";
    for (int i = 0; document.size() < 2500000; ++i)
        document += "<e n='" + std::to_string(i) + "'><a>text of " + std::to_string(i) + "</a><b/></e>\n";
    scratch.Write("in.xml", document + "</r>");
    constexpr long kMost = 30000;
    EXPECT_GT(PeakOf(scratch, "convert --lax in.xml 1.xml"), 2 * kMost);
    for (std::string const arguments :
         {"convert in.xml 1.json", "convert in.xml 1.fi", "convert 1.json 2.fi", "convert 1.fi 2.json.gz",
          "convert 2.json.gz 3.xml", "convert 2.fi 4.xml.gz", "format 3.xml 5.xml", "same in.xml 5.xml",
          "same 4.xml.gz 1.json"}) {
        long const peak = PeakOf(scratch, arguments);
        EXPECT_GT(peak, 0) << arguments;
        EXPECT_LT(peak, kMost) << arguments;
    }
}

} // namespace
