// The manual page and the completions of the tool.
#include "tests/tool/ToolRun.h"

#include <gmock/gmock.h>

#include <fstream>
#include <sstream>

using testing::HasSubstr;

namespace {

std::string Page(std::string const& name) {
    std::ifstream stream(ZV_PAGES_DIR "/" + name);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

TEST(ZvxmlPages, HaveEveryOptionOfEveryCommand) {
    ScratchDirectory const scratch;
    int count = 0;
    for (std::string const command : {"", "convert", "format", "same", "inspect"}) {
        std::istringstream help(scratch.Run("help " + command).out);
        for (std::string line; std::getline(help, line);) {
            if (line.compare(0, 4, "  --") != 0)
                continue;
            std::string const name = line.substr(4, line.find_first_of(" [", 4) - 4);
            std::string roff = "\\fB\\-\\-";
            for (char const c : name)
                roff += c == '-' ? std::string("\\-") : std::string(1, c);
            EXPECT_THAT(Page("zvxml.1"), HasSubstr(roff + "\\fR")) << line;
            EXPECT_THAT(Page("zvxml.bash"), HasSubstr("--" + name)) << line;
            EXPECT_THAT(Page("zvxml.zsh"), HasSubstr("'*--" + name + "[")) << line;
            EXPECT_THAT(Page("zvxml.fish"), HasSubstr(" -l " + name + " ")) << line;
            ++count;
        }
    }
    EXPECT_GT(count, 25);
}

TEST(ZvxmlPages, CompleteCommandsOptionsAndValues) {
    struct Row {
        char const *words, *replies;
    };
    for (Row const& row : {Row{"con", "convert"}, Row{"help sa", "same"}, Row{"convert --to j", "json"},
                           Row{"convert --enc", "--encoding"}, Row{"convert --indent ''", "tab"},
                           Row{"same --js", ""}, Row{"format --k", "--keep-going"}}) {
        std::string const script =
            "source '" ZV_PAGES_DIR "/zvxml.bash'; COMP_WORDS=(zvxml " + std::string(row.words) +
            "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _zvxml; echo \"${COMPREPLY[@]}\"";
        std::ostringstream quoted;
        for (char const c : script)
            quoted << (c == '\'' ? std::string("'\\''") : std::string(1, c));
        std::FILE* const pipe = ::popen(("bash -c '" + quoted.str() + "'").c_str(), "r");
        ASSERT_NE(pipe, nullptr);
        char reply[256] = "";
        EXPECT_NE(std::fgets(reply, sizeof reply, pipe), nullptr);
        EXPECT_EQ(::pclose(pipe), 0) << row.words;
        EXPECT_EQ(reply, row.replies + std::string("\n")) << row.words;
    }
}

} // namespace
