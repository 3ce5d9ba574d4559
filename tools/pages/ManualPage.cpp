// The manual page of a program.
#include "Pages.h"

namespace pages {

namespace {

// Text that means itself.
std::string Roff(std::string const& text) {
    std::string result;
    for (char const c : text) {
        if (c == '\\')
            result += "\\e";
        else if (c == '-')
            result += "\\-";
        else
            result += c;
    }
    bool const isRequest = !result.empty() && (result[0] == '.' || result[0] == '\'');
    return isRequest ? "\\&" + result : result;
}

// Names of values are shown as such.
std::string OptionHead(HelpRow const& row) {
    std::string head = "\\fB" + Roff(row.name) + "\\fR";
    if (!row.value.empty())
        head += (row.value[0] == '[' ? "" : " ") + ("\\fI" + Roff(row.value) + "\\fR");
    return head;
}

void AppendUsage(std::string& page, Help const& help) {
    for (std::size_t i = 0; i < help.usage.size(); ++i)
        page += (i == 0 ? "" : ".br\n") + Roff(help.usage[i]) + '\n';
}

void AppendParts(std::string& page, Help const& help) {
    for (HelpPart const& part : help.parts) {
        if (part.rows.empty())
            page += ".PP\n" + Roff(part.text) + '\n';
        for (HelpRow const& row : part.rows)
            page += ".TP\n" + OptionHead(row) + '\n' + Roff(row.help) + '\n';
    }
}

// The first sentence, without its full stop, as a phrase.
std::string SummaryOf(Help const& help) {
    std::string text = help.parts.empty() ? "" : help.parts.front().text;
    text = text.substr(0, text.find_first_of(".;"));
    if (!text.empty() && text[0] >= 'A' && text[0] <= 'Z')
        text[0] = static_cast<char>(text[0] - 'A' + 'a');
    return text;
}

std::string InCapitals(std::string text) {
    for (char& c : text)
        c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    return text;
}

} // namespace

std::string ManualPage(Program const& program) {
    std::string page = ".TH " + InCapitals(program.name) + " 1 \"\" \"" + program.name + ' ' +
                       program.version + "\" \"User Commands\"\n.SH NAME\n" + Roff(program.name) + " \\- " +
                       Roff(SummaryOf(program.help)) + "\n.SH SYNOPSIS\n";
    AppendUsage(page, program.help);
    page += ".SH DESCRIPTION\n";
    AppendParts(page, program.help);
    if (!program.commands.empty())
        page += ".SH COMMANDS\n";
    for (auto const& [name, help] : program.commands) {
        page += ".SS " + Roff(name) + '\n';
        AppendUsage(page, help);
        AppendParts(page, help);
    }
    bool const isGenerator = program.name != "zvxml";
    return page + ".SH SEE ALSO\n.BR " + (isGenerator ? "zvxml (1)" : "zvxml\\-gen (1)") + '\n';
}

} // namespace pages
