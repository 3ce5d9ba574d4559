// The help of a program, taken apart.
#include "HelpText.h"

#include <algorithm>
#include <sstream>

namespace pages {

namespace {

constexpr char kUsage[] = "Usage: ";
constexpr char kCommands[] = "Commands:";
constexpr std::size_t kRowIndent = 2;

std::string Trimmed(std::string const& text) {
    std::size_t const begin = text.find_first_not_of(' ');
    return begin == std::string::npos ? "" : text.substr(begin, text.find_last_not_of(' ') - begin + 1);
}

void Join(std::string& text, std::string const& more) {
    if (!text.empty() && !more.empty())
        text += ' ';
    text += more;
}

// The help stands behind at least two blanks, or behind one if the name is long.
HelpRow ParseRow(std::string const& line) {
    std::string const row = line.substr(kRowIndent);
    std::size_t end = row.find("  ");
    if (end == std::string::npos) {
        // NAME, VALUE and then the help: names of values are in capitals or have a bar.
        end = row.find(' ');
        std::size_t const second = end == std::string::npos ? end : row.find(' ', end + 1);
        std::string const word = end == std::string::npos ? "" : row.substr(end + 1, second - end - 1);
        bool const isValue =
            row[0] == '-' && word.find_first_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ|") != std::string::npos;
        end = isValue ? second : end;
    }
    HelpRow result;
    std::string const head = row.substr(0, end);
    result.help = end == std::string::npos ? "" : Trimmed(row.substr(end));
    std::size_t const split =
        head[0] == '-' && head.find(", ") == std::string::npos ? head.find_first_of(" [") : head.npos;
    result.name = head.substr(0, split);
    result.value = split == std::string::npos ? "" : Trimmed(head.substr(split));
    return result;
}

std::vector<HelpRow> RowsOf(Help const& help, bool areOptions) {
    std::vector<HelpRow> rows;
    for (HelpPart const& part : help.parts)
        std::copy_if(part.rows.begin(), part.rows.end(), std::back_inserter(rows),
                     [&](HelpRow const& row) { return (row.name[0] == '-') == areOptions; });
    return rows;
}

} // namespace

std::vector<HelpRow> Help::Options() const {
    return RowsOf(*this, true);
}

std::vector<HelpRow> Help::Commands() const {
    return RowsOf(*this, false);
}

Help ParseHelp(std::string const& text) {
    Help help;
    std::istringstream lines(text);
    bool isUsage = false;
    bool isNew = true; // a part begins
    for (std::string line; std::getline(lines, line);) {
        std::size_t const indent = std::min(line.find_first_not_of(' '), line.size());
        if (line.compare(0, sizeof kUsage - 1, kUsage) == 0) {
            isUsage = true;
            help.usage.push_back(line.substr(sizeof kUsage - 1));
        } else if (isUsage && indent == sizeof kUsage - 1) {
            help.usage.push_back(Trimmed(line));
        } else if (indent == line.size()) {
            isNew = true;
            isUsage = false;
        } else if (indent == kRowIndent) {
            if (help.parts.empty() || help.parts.back().rows.empty() || isNew)
                help.parts.emplace_back();
            help.parts.back().rows.push_back(ParseRow(line));
            isNew = isUsage = false;
        } else if (indent > kRowIndent && !help.parts.empty() && !help.parts.back().rows.empty()) {
            Join(help.parts.back().rows.back().help, Trimmed(line));
        } else {
            if (isNew || isUsage || help.parts.empty() || !help.parts.back().rows.empty())
                help.parts.emplace_back();
            Join(help.parts.back().text, line);
            isNew = isUsage = false;
        }
    }
    // The titles of lists.
    auto const isTitle = [](HelpPart const& part) {
        return part.text == kCommands || part.text == "Options:";
    };
    help.parts.erase(std::remove_if(help.parts.begin(), help.parts.end(), isTitle), help.parts.end());
    return help;
}

} // namespace pages
