// Options and operands of a command, parsed by a table that also gives the help text.
#pragma once

#include "Errors.h"

#include <cstddef>
#include <string>
#include <vector>

namespace zvxml {

// One option of a command that fills an `Options`.
template <class Options>
struct Option {
    char const* name;      // with its "--"
    char const* valueName; // null for a flag
    char const* help;
    void (*apply)(Options& options, std::string const& value);
};

// "--name=value", split.
struct Argument {
    std::string name; // empty for an operand
    std::string value;
    bool hasValue = false;
};

// `text` comes from the command line, before any "--".
Argument SplitArgument(std::string const& text);

// One line of a help text.
std::string OptionHelp(std::string const& name, char const* valueName, char const* help);

// Applies the options in order and returns the operands. "-" is an operand, and so is everything after "--".
// Throws UsageError.
template <class Options>
std::vector<std::string> ReadArguments(std::vector<std::string> const& arguments,
                                       std::vector<Option<Options>> const& table, Options& options) {
    std::vector<std::string> operands;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == "--") {
            operands.insert(operands.end(), arguments.begin() + static_cast<std::ptrdiff_t>(i) + 1,
                            arguments.end());
            break;
        }
        Argument argument = SplitArgument(arguments[i]);
        if (argument.name.empty()) {
            operands.push_back(argument.value);
            continue;
        }
        Option<Options> const* found = nullptr;
        for (Option<Options> const& option : table)
            if (argument.name == option.name)
                found = &option;
        if (found == nullptr)
            throw UsageError("unknown option '" + argument.name + "'");
        if (found->valueName == nullptr && argument.hasValue)
            throw UsageError("option '" + argument.name + "' takes no value");
        if (found->valueName != nullptr && !argument.hasValue) {
            if (i + 1 == arguments.size())
                throw UsageError("option '" + argument.name + "' needs a value");
            argument.value = arguments[++i];
        }
        found->apply(options, argument.value);
    }
    return operands;
}

template <class Options>
std::string OptionsHelp(std::vector<Option<Options>> const& table) {
    std::string text;
    for (Option<Options> const& option : table)
        text += OptionHelp(option.name, option.valueName, option.help);
    return text;
}

} // namespace zvxml
