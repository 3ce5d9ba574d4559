// The options of convert and format.
#include "ConvertOptions.h"

#include "Input.h"

#include <charconv>

using namespace ZvXmlLib16;

namespace zvxml {

namespace {

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

} // namespace

std::vector<Option<Options>> const& ConvertOptionTable() {
    static std::vector<Option<Options>> const table = {
        {"--to", "xml|json|fi",
         "the format to write; by default the ending of OUT decides,\nand standard output gets XML text",
         [](Options& o, Text const& v) {
             o.format = FindFormatByName(v);
             if (o.format == nullptr)
                 throw UsageError("unknown format '" + v + "'; known: " + FormatNames());
         }},
        {"--compact", nullptr, "no white space between elements but the document's\nown (the default)",
         [](Options& o, Text const&) { o.stream.write.isPretty = false; }},
        {"--pretty", nullptr, "each element on a line of its own, indented",
         [](Options& o, Text const&) { o.stream.write.isPretty = true; }},
        {"--indent", "N|tab", "blanks for each level, or a tab (the default);\nimplies --pretty",
         [](Options& o, Text const& v) {
             o.stream.indent = ParseIndent(v);
             o.stream.write.isPretty = true;
         }},
        {"--eol", "lf|crlf", "the end of a line (lf)",
         [](Options& o, Text const& v) { o.stream.write.eol = ParseChoice("--eol", v, kLineEnds); }},
        {"--encoding", "utf-8|utf-16", "\nthe encoding to write (utf-8)",
         [](Options& o, Text const& v) {
             o.stream.write.encoding = ParseChoice("--encoding", v, kEncodings);
         }},
        {"--gzip", nullptr, "in gzip form; the ending .gz says so, too",
         [](Options& o, Text const&) { o.compression = CompressionType_GZip; }},
        {"--zlib", nullptr, "in zlib form; the endings .zz and .zlib say so, too",
         [](Options& o, Text const&) { o.compression = CompressionType_ZLib; }},
        {"--declaration", nullptr, "begin with an XML declaration",
         [](Options& o, Text const&) { o.stream.write.hasDeclaration = true; }},
        {"--json", "full|no-namespaces|none",
         "\nhow much of the XML a JSON text keeps or kept: all of it (the\ndefault), all but namespaces, or "
         "not even "
         "what is\n"
         "an attribute",
         [](Options& o, Text const& v) { o.stream.json.mode = ParseChoice("--json", v, kJsonModes); }},
        {"--root", "NAME",
         "read the whole of a JSON text as the element NAME, in\nplace of its member as the root",
         [](Options& o, Text const& v) { o.stream.json.root = v; }},
        {"--lax", nullptr,
         "the library's usual way in place of the strict one: reads more,\nand loses places of texts, "
         "comments and more in silence",
         [](Options& o, Text const&) { o.isLax = true; }},
        {"--keep-going", nullptr,
         "leave out comments, processing instructions and the document\ntype where the form has no place "
         "for them, with a warning",
         [](Options& o, Text const&) { o.stream.keepsGoing = true; }},
        {"--in-place", nullptr, "write to IN, in its form and compression",
         [](Options& o, Text const&) { o.isInPlace = true; }},
        {"--no-comments", nullptr, "with --lax, refuse comments in a JSON text",
         [](Options& o, Text const&) { o.hasJsonComments = false; }},
        {"--add-length", "N",
         "in Fast Infoset, write texts and attribute values of\nfewer than N bytes once and then as numbers "
         "(6)",
         [](Options& o, Text const& v) {
             o.addLength = ParseAddLength(v);
             o.stream.addLength = *o.addLength;
         }},
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

std::vector<Option<Options>> const& FormatOptionTable() {
    static std::vector<Option<Options>> const table = [] {
        std::vector<Option<Options>> some;
        for (Option<Options> const& option : ConvertOptionTable()) {
            for (std::string const name :
                 {"--indent", "--eol", "--encoding", "--declaration", "--in-place", "--keep-going"})
                if (name == option.name)
                    some.push_back(option);
        }
        return some;
    }();
    return table;
}

Operands ReadOperands(std::vector<std::string> const& operands, ConvertOptions const& options) {
    if (operands.size() > (options.isInPlace ? 1 : 2))
        throw UsageError(options.isInPlace ? "with --in-place there is one file"
                                           : "there are more than two files");
    Operands result{operands.empty() ? kStandardStream : operands[0],
                    operands.size() == 2 ? operands[1] : kStandardStream};
    if (options.isInPlace)
        result.output = result.input;
    if (options.isInPlace && result.input == kStandardStream)
        throw UsageError("--in-place needs a file");
    return result;
}

void SettleByFileName(ConvertOptions& options, std::string const& file) {
    FileForm const form = FormOfFileName(file);
    if (options.format == nullptr)
        options.format = form.format;
    if (options.format == nullptr)
        throw UsageError("the ending of '" + file + "' says no form; choose one by --to (" + FormatNames() +
                         ")");
    options.stream.form = options.format->form;
    options.stream.write.compression = options.compression.value_or(form.compression);
}

void SettleByInput(ConvertOptions& options, ByteInput const& input) {
    if (options.format == nullptr)
        options.format = &FormatOf(FormOf(input, options.stream.json));
    options.stream.form = options.format->form;
    CompressionType const own = input.GetWrapper() == Wrapper::kGzip   ? CompressionType_GZip
                                : input.GetWrapper() == Wrapper::kZlib ? CompressionType_ZLib
                                                                       : CompressionType_None;
    options.stream.write.compression = options.compression.value_or(own);
}

} // namespace zvxml
