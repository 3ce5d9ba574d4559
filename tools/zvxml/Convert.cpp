// zvxml convert: reads a document and writes it in another form.
#include "CommandLine.h"
#include "Commands.h"
#include "DocumentObject.h"
#include "Errors.h"
#include "Input.h"
#include "OutputFormats.h"
#include "Prefixes.h"
#include "Progress.h"
#ifdef ZVXML_HAS_SCHEMAS
#include "SchemaOptions.h"
#include "TypedConversion.h"
#endif

#include <cerrno>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <optional>

using namespace ZvXmlLib16;

namespace zvxml {

namespace {

struct ConvertOptions {
    OutputFormat const* format = nullptr; // null: chosen by the output's name
    std::optional<CompressionType> compression;
    WriteOptions write;
    std::string indent = "\t";
    JsonRoundTrip jsonMode = JsonRoundTrip_Full; // read and written
    std::string jsonRoot;
    bool hasJsonComments = true;
    std::optional<std::uint32_t> addLength;
#ifdef ZVXML_HAS_SCHEMAS
    SchemaOptions schema;
#endif
};

std::string ParseIndent(std::string const& value) {
    if (value == "tab")
        return "\t";
    if (value.empty() || value.size() > 2 || value.find_first_not_of("0123456789") != std::string::npos)
        throw UsageError("--indent takes a number of blanks from 0 to 99, or 'tab'");
    return std::string(std::stoul(value), ' ');
}

std::uint32_t ParseAddLength(std::string const& value) {
    std::uint32_t length = 0;
    char const* const end = value.data() + value.size();
    auto const [last, fault] = std::from_chars(value.data(), end, length);
    if (fault != std::errc() || last != end)
        throw UsageError("--add-length takes a number from 0 to 4294967295");
    return length;
}

template <class Value>
struct Choice {
    char const* text;
    Value value;
};

template <class Value, std::size_t N>
Value ParseChoice(char const* option, std::string const& text, Choice<Value> const (&choices)[N]) {
    std::string known;
    for (Choice<Value> const& choice : choices) {
        if (text == choice.text)
            return choice.value;
        known += (known.empty() ? "" : " or ") + std::string(choice.text);
    }
    throw UsageError(std::string(option) + " takes " + known + ", not '" + text + "'");
}

constexpr Choice<EOLType> kLineEnds[] = {{"lf", EOLType_LF}, {"crlf", EOLType_CRLF}};
constexpr Choice<XmlEncoding> kEncodings[] = {{"utf-8", XmlEncoding_UTF8}, {"utf-16", XmlEncoding_UTF16}};
constexpr Choice<JsonRoundTrip> kJsonModes[] = {{"full", JsonRoundTrip_Full},
                                                {"no-namespaces", JsonRoundTrip_NoNamespaces},
                                                {"none", JsonRoundTrip_None}};

using Options = ConvertOptions;
using Text = std::string;

std::vector<Option<Options>> const& OptionTable() {
    static std::string const formats = "the format to write (" + FormatNames() +
                                       "); by default the ending\nof OUT decides, and XML text is the rest";
    static std::vector<Option<Options>> const table = {
        {"--to", "FORMAT", formats.c_str(),
         [](Options& o, Text const& v) {
             o.format = FindFormatByName(v);
             if (o.format == nullptr)
                 throw UsageError("unknown format '" + v + "'; known: " + FormatNames());
         }},
        {"--compact", nullptr, "no white space between elements but the document's\nown (the default)",
         [](Options& o, Text const&) { o.write.isPretty = false; }},
        {"--pretty", nullptr, "each element on a line of its own, indented",
         [](Options& o, Text const&) { o.write.isPretty = true; }},
        {"--indent", "N|tab", "blanks for each level, or a tab (the default);\nimplies --pretty",
         [](Options& o, Text const& v) {
             o.indent = ParseIndent(v);
             o.write.isPretty = true;
         }},
        {"--eol", "lf|crlf", "the end of a line (lf)",
         [](Options& o, Text const& v) { o.write.eol = ParseChoice("--eol", v, kLineEnds); }},
        {"--encoding", "utf-8|utf-16", "\nthe encoding to write (utf-8)",
         [](Options& o, Text const& v) { o.write.encoding = ParseChoice("--encoding", v, kEncodings); }},
        {"--gzip", nullptr, "in gzip form; the ending .gz says so, too",
         [](Options& o, Text const&) { o.compression = CompressionType_GZip; }},
        {"--zlib", nullptr, "in zlib form; the endings .zz and .zlib say so, too",
         [](Options& o, Text const&) { o.compression = CompressionType_ZLib; }},
        {"--declaration", nullptr, "begin with an XML declaration",
         [](Options& o, Text const&) { o.write.hasDeclaration = true; }},
        {"--json", "full|no-namespaces|none",
         "\nhow much of the XML a JSON text keeps or kept: all of it (the\ndefault), all but namespaces, or "
         "not even "
         "what is\n"
         "an attribute",
         [](Options& o, Text const& v) { o.jsonMode = ParseChoice("--json", v, kJsonModes); }},
        {"--root", "NAME",
         "read the whole of a JSON text as the element NAME, in\nplace of its member as the root",
         [](Options& o, Text const& v) { o.jsonRoot = v; }},
        {"--no-comments", nullptr, "refuse comments in a JSON text",
         [](Options& o, Text const&) { o.hasJsonComments = false; }},
        {"--add-length", "N",
         "in Fast Infoset, write texts and attribute values of\nfewer than N bytes once and then as numbers "
         "(6)",
         [](Options& o, Text const& v) { o.addLength = ParseAddLength(v); }},
#ifdef ZVXML_HAS_SCHEMAS
        {"--schema", "FILE",
         "an XML Schema that the document has to be valid by; it gives\nJSON its numbers, booleans and "
         "arrays",
         [](Options& o, Text const& v) { o.schema.files.push_back(v); }},
        {"--location", "FROM=FILE", "\nwhere the schema FROM lies, as for validate",
         [](Options& o, Text const& v) { o.schema.AddLocation(v); }},
        {"--catalog", "FILE", "an OASIS XML catalog, as for validate",
         [](Options& o, Text const& v) { o.schema.catalogs.push_back(v); }},
#endif
    };
    return table;
}

void WriteBytes(CBinaryData const& bytes, std::FILE* stream, std::string const& name) {
    std::size_t const length = bytes.GetLength();
    if (length != 0 && std::fwrite(bytes.GetData(), 1, length, stream) != length)
        throw FileError(name, std::strerror(errno));
    if (std::fflush(stream) != 0)
        throw FileError(name, std::strerror(errno));
}

void WriteToStandardOutput(OutputFormat const& format, CXmlObjectBase& object, WriteOptions const& options,
                           CSerializationContext const& ctx) {
    WriteBytes(ToFileBytes(format, object, options, ctx), stdout, "standard output");
}

void WriteToFile(std::string const& file, OutputFormat const& format, CXmlObjectBase& object,
                 WriteOptions const& options, CSerializationContext const& ctx) {
    if (options.compression != CompressionType_ZLib) {
        format.toFile(file.c_str(), object, options, ctx);
        return;
    }
    CBinaryData const bytes =
        ToFileBytes(format, object, options, ctx); // before the file is touched: it may fail
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> stream(std::fopen(file.c_str(), "wb"), &std::fclose);
    if (stream == nullptr)
        throw FileError(file, std::strerror(errno));
    WriteBytes(bytes, stream.get(), file);
    if (std::fclose(stream.release()) != 0)
        throw FileError(file, std::strerror(errno));
}

// Takes what the options leave open from the extension of the output's name.
void SettleByFileName(ConvertOptions& options, std::string const& file) {
    FileForm const form = FormOfFileName(file);
    if (options.format == nullptr)
        options.format = form.format;
    options.write.compression = options.compression.value_or(form.compression);
}

void Write(std::string const& file, CXmlObjectBase& object, ConvertOptions const& options,
           CSerializationContext const& ctx) {
    OutputFormat const& format = *options.format;
    WriteOptions const& write = options.write;
    try {
        if (file == kStandardStream)
            WriteToStandardOutput(format, object, write, ctx);
        else
            WriteToFile(file, format, object, write, ctx);
    } catch (CZvException const& e) {
        throw FileError(file == kStandardStream ? "standard output" : file, e.GetFullMessage());
    }
}

void ConvertUntyped(std::vector<std::string> const& operands, ConvertOptions const& options,
                    CSerializationContext& ctx, Progress& progress) {
    CSmartPtr<CDocumentObject> const object = new CDocumentObject;
    InputDocument input = ReadDocument(operands[0], ctx, progress);
    try {
        progress.StartStep("taking them over");
        object->ReadRootOf(*input.document, ctx);
        if (input.isFromJson)
            object->DropFormatting();
        UsePrefixesOf(*input.document, ctx);
        options.format->requireWritable(ctx);
    } catch (CZvException const& e) {
        throw FileError(InputName(operands[0]), e.GetFullMessage());
    }
    input.document.reset(); // its memory is needed for writing
    if (options.write.isPretty)
        object->DropWhiteSpaceBetweenElements();

    progress.StartStep("writing");
    Write(operands[1], *object, options, ctx);
}

#ifdef ZVXML_HAS_SCHEMAS
void ConvertTyped(std::vector<std::string> const& operands, ConvertOptions const& options,
                  CSerializationContext& ctx, Progress& progress) {
    ctx.SetStrict(true);
    TypedConversion const conversion(options.schema);
    InputDocument input = ReadDocument(operands[0], ctx, progress);
    CSmartPtr<CXmlObjectBase> object;
    try {
        progress.StartStep("validating");
        object = conversion.Read(*input.document->GetDocumentElement(), input.isFromJson, ctx);
        UsePrefixesOf(*input.document, ctx);
        options.format->requireWritable(ctx);
    } catch (CZvException const& e) {
        throw FileError(InputName(operands[0]), e.GetFullMessage());
    }
    input.document.reset();
    progress.StartStep("writing");
    Write(operands[1], *object, options, ctx);
}
#endif

} // namespace

std::string ConvertHelp() {
    return "Usage: zvxml convert [OPTION]... IN OUT\n"
           "Reads IN, whatever form the library recognises in it (XML text, JSON or Fast Infoset;\n"
           "gzip or zlib around it), and writes it to OUT. \"-\" is standard input or output.\n\n" +
           OptionsHelp(OptionTable()) +
           "\nOf options that exclude each other the last one holds. Elements, attributes, texts\n"
           "and namespaces are kept; comments, processing instructions, the document type\n"
           "and the places of texts between child elements are not.\n";
}

int Convert(std::vector<std::string> const& arguments, Progress& progress) {
    ConvertOptions options;
    std::vector<std::string> const operands = ReadArguments(arguments, OptionTable(), options);
    if (operands.size() != 2)
        throw UsageError("convert takes an input and an output");
    SettleByFileName(options, operands[1]);

    CSerializationContext ctx;
    ctx.SetIndentChars(options.indent.c_str());
    ctx.GetJsonContext().SetSupportRoundtrip(options.jsonMode);
    ctx.GetJsonContext().SetRootElementName(options.jsonRoot.c_str());
    ctx.GetJsonContext().GetAllowComments(options.hasJsonComments);
    if (options.addLength) {
        ctx.GetFIContext().SetAttributeMaxAddLength(*options.addLength);
        ctx.GetFIContext().SetElementMaxAddLength(*options.addLength);
    }
#ifdef ZVXML_HAS_SCHEMAS
    if (!options.schema.files.empty()) {
        ConvertTyped(operands, options, ctx, progress);
        return kExitSuccess;
    }
#endif
    ConvertUntyped(operands, options, ctx, progress);
    return kExitSuccess;
}

} // namespace zvxml
