// zvxml-pages, a step of the build: writes the manual page and the completions of a program.
//     zvxml-pages NAME VERSION FOLDER HELP [COMMAND=HELP]...
// HELP is a file with what the program prints for --help. In the folder come NAME.1, NAME.bash, NAME.zsh,
// NAME.fish.
#include "Pages.h"

#include <cstdio>
#include <exception>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace {

pages::Help ReadHelp(std::string const& file) {
    std::ifstream stream(file);
    std::ostringstream text;
    text << stream.rdbuf();
    if (!stream)
        throw std::runtime_error(file + " cannot be read");
    return pages::ParseHelp(text.str());
}

void Write(std::string const& file, std::string const& content) {
    std::ofstream stream(file);
    stream << content;
    if (!stream.flush())
        throw std::runtime_error(file + " cannot be written");
}

void Run(std::vector<std::string> const& arguments) {
    if (arguments.size() < 4)
        throw std::runtime_error("name, version, folder and help are needed");
    pages::Program program{arguments[0], arguments[1], ReadHelp(arguments[3]), {}};
    for (std::size_t i = 4; i < arguments.size(); ++i) {
        std::size_t const equals = arguments[i].find('=');
        if (equals == std::string::npos)
            throw std::runtime_error("COMMAND=HELP is needed, not " + arguments[i]);
        program.commands.emplace_back(arguments[i].substr(0, equals),
                                      ReadHelp(arguments[i].substr(equals + 1)));
    }
    std::string const stem = arguments[2] + '/' + program.name;
    Write(stem + ".1", ManualPage(program));
    Write(stem + ".bash", BashCompletion(program));
    Write(stem + ".zsh", ZshCompletion(program));
    Write(stem + ".fish", FishCompletion(program));
}

} // namespace

int main(int argc, char** argv) {
    try {
        Run(std::vector<std::string>(argv + 1, argv + argc));
        return 0;
    } catch (std::exception const& e) {
        std::fprintf(stderr, "zvxml-pages: %s\n", e.what());
        return 1;
    }
}
