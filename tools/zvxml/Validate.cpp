// zvxml validate: tests documents by schemas.
#include "CommandLine.h"
#include "Commands.h"
#include "Errors.h"
#include "Input.h"
#include "Messages.h"
#include "Progress.h"
#include "SchemaOptions.h"

#include "zvxmllib/grammar/Grammar.h"
#include "zvxmllib/grammar/Validator.h"

#include <cstdio>
#include <limits>
#include <string>
#include <vector>

using namespace ZvXmlLib16;

namespace zvxml {

namespace {

struct ValidateOptions {
    SchemaOptions schema;
    bool isLax = false;
    bool tellsAll = false;
};

std::vector<Option<ValidateOptions>> const& ValidateOptionTable() {
    using Options = ValidateOptions;
    using Text = std::string;
    static std::vector<Option<Options>> const table = {
        {"--schema", "FILE", "an XML Schema 1.0; may be given several times",
         [](Options& o, Text const& v) { o.schema.files.push_back(v); }},
        {"--location", "FROM=FILE",
         "\nwhere the schema FROM lies: a URI, a location as a schema\nnames it, or a namespace",
         [](Options& o, Text const& v) { o.schema.AddLocation(v); }},
        {"--catalog", "FILE", "an OASIS XML catalog that says where schemas lie",
         [](Options& o, Text const& v) { o.schema.catalogs.push_back(v); }},
        {"--lax", nullptr, "pass over a root element that no schema declares",
         [](Options& o, Text const&) { o.isLax = true; }},
        {"--all", nullptr, "tell all failures of a document, not just the first",
         [](Options& o, Text const&) { o.tellsAll = true; }},
    };
    return table;
}

// The message behind its path.
std::string TextOf(std::string const& path, std::string message) {
    std::string const tail = "\nPath: " + path;
    if (!path.empty() && message.size() >= tail.size() &&
        message.compare(message.size() - tail.size(), tail.size(), tail) == 0)
        message.resize(message.size() - tail.size());
    return path.empty() ? message : path + ": " + message;
}

// Whether the document is valid. Places take memory for each element, so a document whose first failure is
// enough is read without them, and once more with them if it has one.
bool ValidateFile(std::string const& file, grammar::Grammar const& grammar, ValidateOptions const& options,
                  Progress& progress, bool keepsPositions) {
    CSerializationContext ctx;
    ctx.SetStrict(true);
    ctx.SetKeepPositions(keepsPositions);
    if (options.tellsAll)
        ctx.SetFailureLimit(std::numeric_limits<std::size_t>::max());
    std::string const name = InputName(file);
    try {
        InputDocument const input = ReadDocument(file, ctx, progress);
        grammar::Validator validator(grammar, ctx);
        validator.ValidateDocument(*input.document->GetDocumentElement(), options.isLax);
        std::printf("%s: valid\n", name.c_str());
        return true;
    } catch (FileError const& e) {
        TellVerdict(e.what());
    } catch (CZvException const& e) {
        if (!keepsPositions)
            return ValidateFile(file, grammar, options, progress, true);
        auto const print = [&](std::string const& path, std::uint64_t line, std::uint64_t column,
                               std::string const& message) {
            TellVerdict(PlaceText(name, Place{line, column}) + TextOf(path, message));
        };
        if (ctx.GetFailures().empty())
            print(e.GetPath(), e.GetLine(), e.GetColumn(), e.GetFullMessage());
        for (CReadFailure const& failure : ctx.GetFailures())
            print(failure.path, failure.line, failure.column, failure.message);
    }
    return false;
}

} // namespace

std::string ValidateHelp() {
    return "Usage: zvxml validate --schema FILE [OPTION]... FILE...\n"
           "Tests documents by XML schemas. Reads what convert reads; \"-\" is standard input.\n"
           "Nothing is fetched from a network.\n\n" +
           OptionsHelp(ValidateOptionTable()) +
           "\nFor each document there is a line \"FILE: valid\", or on standard error a line with\n"
           "its first failure, \"FILE:LINE:COLUMN: PATH: what\".\n"
           "Exit status: 0 if all are valid, 1 if one is not or cannot be read, 2 for a command\n"
           "line that makes no sense, 3 for a schema that cannot be used.\n";
}

int Validate(std::vector<std::string> const& arguments, Progress& progress) {
    ValidateOptions options;
    std::vector<std::string> const files = ReadArguments(arguments, ValidateOptionTable(), options);
    if (options.schema.files.empty())
        throw UsageError("validate needs a schema: --schema FILE");
    if (files.empty())
        throw UsageError("validate takes at least one document");
    std::unique_ptr<schema::Schema> const schema = options.schema.Read();
    grammar::Grammar const grammar(schema->GetRows());
    bool areValid = true;
    for (std::string const& file : files)
        areValid = ValidateFile(file, grammar, options, progress, options.tellsAll || !CanReadAgain(file)) &&
                   areValid;
    return areValid ? kExitSuccess : kExitFailure;
}

} // namespace zvxml
