// zvxml same: whether two documents hold the same.
#include "CommandLine.h"
#include "Commands.h"
#include "Errors.h"
#include "Messages.h"
#include "Progress.h"
#include "stream/Comparison.h"

#include <cstdio>

namespace zvxml {

namespace {

constexpr int kExitTrouble = 2; // 1 is for documents that differ

struct SameOptions {
    JsonOptions json;
    bool isQuiet = false;
};

std::vector<Option<SameOptions>> const& OptionTable() {
    static std::vector<Option<SameOptions>> const table = {
        {"--root", "NAME", "read the whole of a JSON text as the element NAME",
         [](SameOptions& o, std::string const& v) { o.json.root = v; }},
        {"--quiet", nullptr, "tell nothing; the exit status does",
         [](SameOptions& o, std::string const&) { o.isQuiet = true; }},
    };
    return table;
}

} // namespace

std::string SameHelp() {
    return "Usage: zvxml same [OPTION]... A B\n"
           "Tells whether two documents of any forms hold the same elements, attributes and texts in\n"
           "the same namespaces, and the first place where they do not. The order of attributes,\n"
           "prefixes, comments, processing instructions, and white space between elements make no\n"
           "difference.\n\n" +
           OptionsHelp(OptionTable()) +
           "\nExit status: 0 if they hold the same, 1 if not, 2 for a command line that makes no sense\n"
           "and for a document that cannot be read.\n";
}

int Same(std::vector<std::string> const& arguments, Progress& progress) {
    SameOptions options;
    std::vector<std::string> const files = ReadArguments(arguments, OptionTable(), options);
    if (files.size() != 2)
        throw UsageError("same takes two documents");
    Progress silent(false); // the second document is read in another thread
    std::string difference;
    try {
        ByteInput first(files[0], progress);
        ByteInput second(files[1], silent);
        difference = FindDifference(first, second, options.json);
    } catch (FileError const& e) {
        TellError(e.what());
        return kExitTrouble;
    }
    progress.Finish();
    if (difference.empty())
        return kExitSuccess;
    if (!options.isQuiet)
        std::printf("%s\n", difference.c_str());
    return kExitFailure;
}

} // namespace zvxml
