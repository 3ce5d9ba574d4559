// zvxml inspect: the kind of a document, and its size in each form.
#include "CommandLine.h"
#include "Commands.h"
#include "Errors.h"
#include "Input.h"
#include "OutputFormats.h"
#include "Progress.h"
#include "Vocabulary.h"
#include "stream/Documents.h"
#include "stream/FormSizes.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

using namespace ZvXmlLib16;

namespace zvxml {

namespace {

// Entries of a table that are listed by default.
constexpr std::size_t kFirstEntries = 20;

struct InspectOptions {
    bool listsWholeVocabulary = false;
    bool hasSizes = true;
    JsonOptions json;
};

std::vector<Option<InspectOptions>> const& OptionTable() {
    static std::vector<Option<InspectOptions>> const table = {
        {"--vocabulary", nullptr,
         "all entries of the vocabulary that a Fast Infoset\ndocument builds, not the first ones only",
         [](InspectOptions& o, std::string const&) { o.listsWholeVocabulary = true; }},
        {"--no-sizes", nullptr, "leave out the sizes in each form, which take a second\nreading",
         [](InspectOptions& o, std::string const&) { o.hasSizes = false; }},
        {"--root", "NAME", "read the whole of a JSON text as the element NAME",
         [](InspectOptions& o, std::string const& v) { o.json.root = v; }},
    };
    return table;
}

bool BeginsWith(std::string_view text, std::string_view start) {
    return text.substr(0, start.size()) == start;
}

// The encoding that the first bytes of XML text indicate (XML 1.0, appendix F).
std::string EncodingOf(std::string_view text) {
    using namespace std::string_view_literals;
    if (BeginsWith(text, "\xFF\xFE"sv) || BeginsWith(text, "<\0"sv))
        return "UTF-16, low byte first";
    if (BeginsWith(text, "\xFE\xFF"sv) || BeginsWith(text, "\0<"sv))
        return "UTF-16, high byte first";
    if (BeginsWith(text, "\xEF\xBB\xBF"sv))
        return "UTF-8 with a byte order mark";
    std::string_view const declaration =
        BeginsWith(text, "<?xml"sv) ? text.substr(0, text.find("?>"sv)) : std::string_view();
    std::size_t const name = declaration.find("encoding"sv);
    std::size_t const open = name == std::string_view::npos ? name : declaration.find_first_of("'\""sv, name);
    if (open == std::string_view::npos)
        return "UTF-8";
    std::string_view const rest = declaration.substr(open + 1);
    return std::string(rest.substr(0, rest.find(declaration[open])));
}

std::string DescribeForm(ByteInput const& input, JsonOptions const& json) {
    std::string_view const start = input.GetStart();
    switch (FormOf(input, json)) {
    case Form::kJson:
        return "JSON text";
    case Form::kXml:
        return "XML text, " + EncodingOf(start);
    case Form::kInfoset:
        break;
    }
    if (start[0] != '<')
        return "Fast Infoset";
    return "Fast Infoset behind " + std::string(start.substr(0, start.find('>') + 1));
}

char const* NameOf(Wrapper wrapper) {
    return wrapper == Wrapper::kGzip ? "gzip" : wrapper == Wrapper::kZlib ? "zlib" : "none";
}

void PrintCount(char const* title, std::uint64_t count) {
    std::printf("%-14s%llu\n", title, static_cast<unsigned long long>(count));
}

void PrintCounts(DocumentCounts const& counts) {
    std::printf("root          %s\n", counts.root.c_str());
    std::printf("namespace     %s\n", counts.ns.empty() ? "none" : counts.ns.c_str());
    PrintCount("elements", counts.elements);
    PrintCount("attributes", counts.attributes);
    PrintCount("depth", counts.depth);
    std::printf("text          %llu bytes\n", static_cast<unsigned long long>(counts.textBytes));
    if (counts.comments != 0)
        PrintCount("comments", counts.comments);
    if (counts.instructions != 0)
        PrintCount("instructions", counts.instructions);
}

void PrintSizes(std::vector<FormSize> const& sizes) {
    std::printf("written as\n");
    for (FormSize const& size : sizes) {
        if (size.fault.empty())
            std::printf("  %-12s%10llu bytes\n", size.title, static_cast<unsigned long long>(size.bytes));
        else
            std::printf("  %-12s%s\n", size.title, size.fault.c_str());
    }
}

} // namespace

std::string InspectHelp() {
    return "Usage: zvxml inspect [OPTION]... [FILE]\n"
           "Tells what FILE is (\"-\", or none, is standard input): the form and the wrapper that\n"
           "were recognised, the root element, counts, and the size of the document in each form\n"
           "that can be written. Of a Fast Infoset document it lists the vocabulary, too: the\n"
           "names and texts that can be referred to by their numbers.\n\n" +
           OptionsHelp(OptionTable());
}

int Inspect(std::vector<std::string> const& arguments, Progress& progress) {
    InspectOptions options;
    std::vector<std::string> const operands = ReadArguments(arguments, OptionTable(), options);
    if (operands.size() > 1)
        throw UsageError("inspect takes one file");
    ByteInput input(operands.empty() ? kStandardStream : operands[0], progress);
    WithFile(input.GetName(), [&] {
        std::unique_ptr<Source> const source = OpenSource(input, options.json);
        FormSizes sizes(*source);
        progress.Finish();
        std::printf("file          %s\n", input.GetName().c_str());
        std::printf("size          %llu bytes\n", static_cast<unsigned long long>(input.GetSize()));
        std::printf("wrapper       %s\n", NameOf(input.GetWrapper()));
        std::printf("form          %s\n", DescribeForm(input, options.json).c_str());
        PrintCounts(sizes.GetCounts());
        if (InfosetVocabulary const* const vocabulary = source->GetVocabulary())
            PrintVocabulary(*vocabulary, options.listsWholeVocabulary
                                             ? std::numeric_limits<std::size_t>::max()
                                             : kFirstEntries);
        if (options.hasSizes)
            PrintSizes(sizes.Measure());
    });
    return kExitSuccess;
}

} // namespace zvxml
