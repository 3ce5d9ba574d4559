// Completions of a program for three shells.
#include "Pages.h"

#include <algorithm>
#include <cctype>
#include <sstream>

namespace pages {

namespace {

// "-Werror[=NAME], -Wno-NAME" is two options; what they take is not completed.
std::vector<std::string> NamesOf(HelpRow const& row) {
    std::vector<std::string> names;
    std::istringstream parts(row.name);
    for (std::string name; parts >> name;) {
        name = name.substr(0, name.find_first_of(",[="));
        while (!name.empty() && std::isupper(static_cast<unsigned char>(name.back())) != 0)
            name.pop_back();
        names.push_back(name);
    }
    return names;
}

bool IsFile(HelpRow const& row) {
    return row.value == "FILE" || row.value == "DIR" || row.value == "DOCUMENT";
}

bool TakesValue(HelpRow const& row) {
    return !row.value.empty() && row.value[0] != '[';
}

// Of "N|tab" the second one: names of values are in capitals.
std::string ChoicesOf(HelpRow const& row) {
    std::string choices;
    std::istringstream parts(row.value);
    for (std::string choice; row.value.find('|') != std::string::npos && std::getline(parts, choice, '|');) {
        if (std::none_of(choice.begin(), choice.end(), [](unsigned char c) { return std::isupper(c) != 0; }))
            choices += (choices.empty() ? "" : " ") + choice;
    }
    return choices;
}

std::string OptionNames(std::vector<HelpRow> const& rows) {
    std::string names;
    for (HelpRow const& row : rows)
        for (std::string const& name : NamesOf(row))
            names += (names.empty() ? "" : " ") + name;
    return names;
}

std::string CommandNames(Program const& program) {
    std::string names;
    for (HelpRow const& row : program.help.Commands())
        names += (names.empty() ? "" : " ") + row.name;
    return names;
}

// What the commands do not have in common would be offered in vain, so each has its own.
std::vector<std::pair<std::string, std::vector<HelpRow>>> OptionsByCommand(Program const& program) {
    std::vector<std::pair<std::string, std::vector<HelpRow>>> all;
    for (auto const& [name, help] : program.commands)
        all.emplace_back(name, help.Options());
    return all;
}

std::string Replaced(std::string text, std::string const& from, std::string const& to) {
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
        text.replace(at, from.size(), to);
    return text;
}

std::string InQuotes(std::string const& text) {
    return "'" + Replaced(text, "'", "'\\''") + "'";
}

std::string IdentifierOf(std::string name) {
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

// The values of options, where they are known.
void AppendBashValues(std::string& script, std::vector<HelpRow> const& rows, std::string const& indent) {
    for (HelpRow const& row : rows) {
        if (!TakesValue(row))
            continue;
        std::string const choices = ChoicesOf(row);
        script += indent + row.name + ") COMPREPLY=($(compgen " +
                  (choices.empty() ? std::string(IsFile(row) ? "-f" : "-W ''") : "-W '" + choices + "'") +
                  " -- \"$current\")); return ;;\n";
    }
}

void AppendBashOptions(std::string& script, std::vector<HelpRow> const& rows, std::string const& indent) {
    script += indent + "case $previous in\n";
    AppendBashValues(script, rows, indent);
    script += indent + "esac\n" + indent + "options='" + OptionNames(rows) + "'\n";
}

// One argument of _arguments for each name.
void AppendZshOptions(std::string& script, std::vector<HelpRow> const& rows) {
    for (HelpRow const& row : rows) {
        std::string help = row.help;
        for (char const* const special : {"\\", "[", "]", ":"})
            help = Replaced(help, special, std::string("\\") + special);
        std::string action;
        if (TakesValue(row))
            action = ":" + Replaced(row.value, ":", "\\:") + ":" +
                     (IsFile(row) ? "_files" : "(" + ChoicesOf(row) + ")");
        for (std::string const& name : NamesOf(row))
            script += " \\\n        " + InQuotes("*" + name + "[" + help + "]" + action);
    }
    script += " \\\n        '*:file:_files'\n";
}

void AppendFishOptions(std::string& script, std::string const& start, std::vector<HelpRow> const& rows) {
    for (HelpRow const& row : rows) {
        for (std::string const& name : NamesOf(row)) {
            bool const isLong = name.compare(0, 2, "--") == 0;
            script += start + (isLong ? " -l " + name.substr(2) : " -o " + name.substr(1));
            std::string const choices = ChoicesOf(row);
            if (TakesValue(row))
                script += !choices.empty() ? " -x -a " + InQuotes(choices) : IsFile(row) ? " -r" : " -x";
            script += " -d " + InQuotes(row.help) + '\n';
        }
    }
}

} // namespace

std::string BashCompletion(Program const& program) {
    std::string const function = "_" + IdentifierOf(program.name);
    std::string script =
        function + "() {\n    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]}\n"
                   "    local options='' command=${COMP_WORDS[1]}\n";
    if (program.commands.empty()) {
        AppendBashOptions(script, program.help.Options(), "    ");
    } else {
        std::string const names = CommandNames(program);
        script += "    if [ \"$COMP_CWORD\" = 1 ]; then\n        COMPREPLY=($(compgen -W 'help " + names +
                  ' ' + OptionNames(program.help.Options()) +
                  "' -- \"$current\"))\n        return\n    fi\n    case $command in\n"
                  "    help) COMPREPLY=($(compgen -W '" +
                  names + "' -- \"$current\")); return ;;\n";
        for (auto const& [name, rows] : OptionsByCommand(program)) {
            script += "    " + name + ")\n";
            AppendBashOptions(script, rows, "        ");
            script += "        ;;\n";
        }
        script += "    esac\n";
    }
    return script +
           "    case $current in\n    -*) COMPREPLY=($(compgen -W \"$options --help\" -- \"$current\")) ;;\n"
           "    *) COMPREPLY=($(compgen -f -- \"$current\")) ;;\n    esac\n}\n"
           "complete -o filenames -F " +
           function + ' ' + program.name + '\n';
}

std::string ZshCompletion(Program const& program) {
    std::string script = "#compdef " + program.name + "\n";
    if (program.commands.empty()) {
        script += "_arguments";
        AppendZshOptions(script, program.help.Options());
        return script;
    }
    script += "if (( CURRENT == 2 )); then\n    local -a commands\n    commands=(";
    for (HelpRow const& row : program.help.Commands())
        script += "\n        " + InQuotes(row.name + ':' + Replaced(row.help, ":", "\\:"));
    script += "\n    )\n    _describe command commands\n    _arguments";
    AppendZshOptions(script, program.help.Options());
    script += "    return\nfi\nlocal command=$words[2]\n(( CURRENT-- ))\nshift words\ncase $command in\n";
    for (auto const& [name, rows] : OptionsByCommand(program)) {
        script += name + ")\n    _arguments";
        AppendZshOptions(script, rows);
        script += "    ;;\n";
    }
    return script + "help) _values command " + CommandNames(program) + " ;;\nesac\n";
}

std::string FishCompletion(Program const& program) {
    std::string const start = "complete -c " + program.name;
    std::string script;
    if (program.commands.empty()) {
        AppendFishOptions(script, start, program.help.Options());
        return script;
    }
    std::string const first = start + " -n __fish_use_subcommand";
    for (HelpRow const& row : program.help.Commands())
        script += first + " -f -a " + row.name + " -d " + InQuotes(row.help) + '\n';
    AppendFishOptions(script, first, program.help.Options());
    for (auto const& [name, rows] : OptionsByCommand(program))
        AppendFishOptions(script, start + " -n '__fish_seen_subcommand_from " + name + "'", rows);
    return script;
}

} // namespace pages
