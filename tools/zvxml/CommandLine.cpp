// Options and operands of a command: what does not depend on the command.
#include "CommandLine.h"

namespace zvxml {

Argument SplitArgument(std::string const& text) {
    Argument argument;
    if (text.size() < 2 || text[0] != '-') { // "-" is standard input or output
        argument.value = text;
        return argument;
    }
    std::size_t const equals = text.find('=');
    argument.name = text.substr(0, equals);
    if (equals != std::string::npos) {
        argument.value = text.substr(equals + 1);
        argument.hasValue = true;
    }
    return argument;
}

std::string OptionHelp(std::string const& name, char const* valueName, char const* help) {
    constexpr std::size_t kHelpColumn = 26;
    std::string line = "  " + name;
    if (valueName != nullptr)
        line += std::string(" ") + valueName;
    line.append(line.size() < kHelpColumn ? kHelpColumn - line.size() : 1, ' ');
    for (char const* c = help; *c != '\0'; ++c) {
        line += *c;
        if (*c == '\n')
            line.append(kHelpColumn, ' ');
    }
    return line + '\n';
}

} // namespace zvxml
