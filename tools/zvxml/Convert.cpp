// zvxml convert and format: read a document and write it in another form or shape.
#include "Commands.h"
#include "ConvertOptions.h"
#include "Errors.h"
#include "LaxConversion.h"
#include "stream/Documents.h"

using namespace ZvXmlLib16;

namespace zvxml {

namespace {

bool HasSchemas([[maybe_unused]] ConvertOptions const& options) {
#ifdef ZVXML_HAS_SCHEMAS
    return !options.schema.files.empty();
#else
    return false;
#endif
}

void RequireStrictOptions(ConvertOptions const& options) {
    bool const isJson = options.stream.form == Form::kJson;
    if (isJson && options.stream.write.encoding != XmlEncoding_UTF8)
        throw UsageError("JSON is UTF-8; --lax writes it as UTF-16");
}

} // namespace

std::string ConvertHelp() {
    return "Usage: zvxml convert [OPTION]... [IN [OUT]]\n"
           "Reads IN, whatever form is recognised in it (XML text, JSON or Fast Infoset; gzip or\n"
           "zlib around it), and writes it to OUT. \"-\", and what is not named, is standard input\n"
           "or output. A file takes its name when it is complete.\n\n" +
           OptionsHelp(ConvertOptionTable()) +
           "\nOf options that exclude each other the last one holds. What the form has no place for\n"
           "is refused. XML text and Fast Infoset keep comments and processing instructions, and\n"
           "XML text the document type. Memory does not grow with the document, but with --lax and\n"
           "--schema.\n";
}

int Convert(std::vector<std::string> const& arguments, Progress& progress) {
    ConvertOptions options;
    Operands const operands = ReadOperands(ReadArguments(arguments, ConvertOptionTable(), options), options);
    if (!options.isInPlace)
        SettleByFileName(options, operands.output);
    if (options.isLax || HasSchemas(options)) {
        if (options.isInPlace)
            SettleByInput(options, ByteInput(operands.input, progress));
#ifdef ZVXML_HAS_SCHEMAS
        if (HasSchemas(options))
            ConvertTyped(operands, options, progress);
        else
#endif
            ConvertUntyped(operands, options, progress);
        return kExitSuccess;
    }
    ByteInput input(operands.input, progress);
    if (options.isInPlace)
        SettleByInput(options, input);
    RequireStrictOptions(options);
    ConvertStream(input, operands.output, options.stream);
    return kExitSuccess;
}

std::string FormatHelp() {
    return "Usage: zvxml format [OPTION]... [IN [OUT]]\n"
           "Writes IN to OUT in its own form and compression, each element on a line of its own,\n"
           "indented. Elements that hold text besides white space stay on their line with all that\n"
           "is in them, and so do those under xml:space=\"preserve\". \"-\", and what is not named, is\n"
           "standard input or output.\n\n" +
           OptionsHelp(FormatOptionTable());
}

int Format(std::vector<std::string> const& arguments, Progress& progress) {
    ConvertOptions options;
    Operands const operands = ReadOperands(ReadArguments(arguments, FormatOptionTable(), options), options);
    ByteInput input(operands.input, progress);
    SettleByInput(options, input);
    options.stream.write.isPretty = true;
    options.stream.keepsDeclaration = true;
    RequireStrictOptions(options);
    ConvertStream(input, operands.output, options.stream);
    return kExitSuccess;
}

} // namespace zvxml
