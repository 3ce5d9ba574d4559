// The help of a program, taken apart.
#pragma once

#include <string>
#include <vector>

namespace pages {

// "  --indent N|tab    blanks for each level", with the lines that go on behind it joined by blanks.
struct HelpRow {
    std::string name;  // "--indent", or of a command its name
    std::string value; // "N|tab", empty for none; "[=WHEN]" where it may be missing
    std::string help;
};

// A paragraph of text, or a list.
struct HelpPart {
    std::string text; // empty for a list
    std::vector<HelpRow> rows;
};

struct Help {
    std::vector<std::string> usage; // without "Usage: "
    std::vector<HelpPart> parts;

    std::vector<HelpRow> Options() const;
    // What stands under "Commands:".
    std::vector<HelpRow> Commands() const;
};

Help ParseHelp(std::string const& text);

} // namespace pages
