// zvxml inspect: the kind of a document, and its size in each form that the library writes.
#include "CommandLine.h"
#include "Commands.h"
#include "DocumentObject.h"
#include "Errors.h"
#include "Input.h"
#include "OutputFormats.h"
#include "Prefixes.h"
#include "Progress.h"
#include "TreeWalk.h"
#include "Vocabulary.h"

#include <zvxmllib/ZvXmlLibInternal.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <memory>
#include <optional>
#include <string_view>

using namespace ZvXmlLib16;

namespace zvxml {

namespace {

// Entries of a table that are listed by default.
constexpr std::size_t kFirstEntries = 20;

struct InspectOptions {
    bool listsWholeVocabulary = false;
    std::string jsonRoot;
    bool hasJsonComments = true;
};

std::vector<Option<InspectOptions>> const& OptionTable() {
    static std::vector<Option<InspectOptions>> const table = {
        {"--vocabulary", nullptr,
         "all entries of the vocabulary that a Fast Infoset\ndocument builds, not the first ones only",
         [](InspectOptions& o, std::string const&) { o.listsWholeVocabulary = true; }},
        {"--root", "NAME", "read the whole of a JSON text as the element NAME",
         [](InspectOptions& o, std::string const& v) { o.jsonRoot = v; }},
        {"--no-comments", nullptr, "refuse comments in a JSON text",
         [](InspectOptions& o, std::string const&) { o.hasJsonComments = false; }},
    };
    return table;
}

// A document, with its reader if it is Fast Infoset.
struct InspectedDocument {
    std::unique_ptr<CXmlDocument> document;
    bool isFromJson = false;
    std::unique_ptr<CFastInfosetReader> reader;
};

std::string_view View(CBinaryData const& bytes) {
    return {reinterpret_cast<char const*>(bytes.GetData()), bytes.GetLength()};
}

bool BeginsWith(std::string_view text, std::string_view start) {
    return text.substr(0, start.size()) == start;
}

struct Unwrapped {
    char const* wrapper;
    CBinaryData content;
};

Unwrapped Unwrap(CBinaryData const& bytes) {
    CBinaryData copy(bytes);
    std::uint32_t length = bytes.GetLength();
    std::unique_ptr<unsigned char[]> data(copy.ReleaseData());
    unsigned char* raw = data.release();
    CZvZip::Decompress(raw, length);
    data.reset(raw);
    CBinaryData const content(data.get(), length, false);
    if (content == bytes)
        return {"none", bytes};
    return {BeginsWith(View(bytes), "\x1F\x8B") ? "gzip" : "zlib", content};
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

struct Counts {
    std::uint64_t elements = 0;
    std::uint64_t attributes = 0;
    std::uint64_t textBytes = 0;
    unsigned long depth = 0;
};

std::size_t CountChildren(CXmlElement const& element) {
    std::size_t count = 0;
    for (CXmlElement const* child = element.GetFirstElement(); child != nullptr;
         child = child->GetNextSiblingElement())
        ++count;
    return count;
}

Counts CountTree(InspectedDocument const& inspected) {
    Counts counts;
    std::string text;
    for (TreeWalk walk(inspected.document->GetDocumentElement()); walk.Current() != nullptr; walk.Advance()) {
        ++counts.elements;
        counts.attributes += walk.Current()->GetAttributeCount();
        text.clear();
        walk.Current()->GetNodeText().AppendTo(text);
        std::size_t length = text.size();
        if (inspected.isFromJson) {
            Formatting const formatting(CountChildren(*walk.Current()), walk.Depth() - 1);
            if (std::size_t const added = formatting.before + formatting.behind; added <= length)
                length -= added;
        }
        counts.textBytes += length;
        counts.depth = std::max(counts.depth, walk.Depth());
    }
    return counts;
}

// A form that the library writes. A format that can be written in several ways has a row for each.
struct WrittenForm {
    char const* title;
    char const* format;
    bool isPretty;
    XmlEncoding encoding;
    CompressionType compression;
};
constexpr WrittenForm kWrittenForms[] = {
    {"compact", "xml", false, XmlEncoding_UTF8, CompressionType_None},
    {"UTF-16", "xml", false, XmlEncoding_UTF16, CompressionType_None},
    {"gzip", "xml", false, XmlEncoding_UTF8, CompressionType_GZip},
    {"zlib", "xml", false, XmlEncoding_UTF8, CompressionType_ZLib},
    {"JSON", "json", false, XmlEncoding_UTF8, CompressionType_None},
    {"Fast Infoset", "fi", false, XmlEncoding_UTF8, CompressionType_None},
    {"pretty", "xml", true, XmlEncoding_UTF8, CompressionType_None}, // last: it drops white space
};

// The size of the file; none if the form cannot express this document.
std::optional<std::uint32_t> SizeOf(WrittenForm const& form, CDocumentObject& object,
                                    CSerializationContext const& ctx) {
    WriteOptions options;
    options.isPretty = form.isPretty;
    options.encoding = form.encoding;
    OutputFormat const& format = *FindFormatByName(form.format);
    format.requireWritable(ctx);
    CBinaryData bytes = ToFileBytes(format, object, options, ctx);
    if (form.compression == CompressionType_None)
        return bytes.GetLength();
    try {
        CZvZip::Compress(bytes, form.compression);
    } catch (CZvException const&) { // compression never makes a document larger
        return std::nullopt;
    }
    return bytes.GetLength();
}

void PrintSizes(InspectedDocument const& inspected) {
    CXmlDocument const& document = *inspected.document;
    CSerializationContext ctx;
    UsePrefixesOf(document, ctx);
    CSmartPtr<CDocumentObject> const object = new CDocumentObject;
    object->ReadRootOf(document, ctx);
    if (inspected.isFromJson)
        object->DropFormatting();
    std::printf("written as\n");
    for (WrittenForm const& form : kWrittenForms) {
        if (form.isPretty)
            object->DropWhiteSpaceBetweenElements();
        std::optional<std::uint32_t> const size = SizeOf(form, *object, ctx);
        if (size)
            std::printf("  %-12s%10u bytes\n", form.title, static_cast<unsigned>(*size));
        else
            std::printf("  %-12sdoes not shrink\n", form.title);
    }
}

std::string FormOf(CBinaryData const& content) {
    std::string_view const octets = View(content);
    if (CXmlDocument::IsJson(content.GetData(), content.GetLength()))
        return "JSON text";
    if (!CFastInfosetReader::IsFastInfoset(content.GetData(), content.GetLength()))
        return "XML text, " + EncodingOf(octets);
    if (octets[0] != '<')
        return "Fast Infoset";
    return "Fast Infoset behind " + std::string(octets.substr(0, octets.find('>') + 1));
}

InspectedDocument ReadInspected(std::string const& file, CBinaryData const& content,
                                CSerializationContext const& ctx, Progress& progress) {
    InspectedDocument result;
    if (!CFastInfosetReader::IsFastInfoset(content.GetData(), content.GetLength())) {
        InputDocument input = ReadDocument(file, content, ctx, progress);
        result.document = std::move(input.document);
        result.isFromJson = input.isFromJson;
        return result;
    }
    result.document = std::make_unique<CXmlDocument>(ctx);
    result.reader = std::make_unique<CFastInfosetReader>(ctx.GetFIContext(), *result.document);
    try {
        result.reader->Parse(content.GetData(), content.GetLength());
    } catch (CZvException const& e) {
        throw FileError(InputName(file), e.GetFullMessage());
    }
    return result;
}

void PrintReport(std::string const& file, CBinaryData const& bytes, Unwrapped const& unwrapped,
                 InspectedDocument const& inspected) {
    CXmlElement const& root = *inspected.document->GetDocumentElement();
    Counts const counts = CountTree(inspected);
    std::printf("file          %s\n", InputName(file).c_str());
    std::printf("size          %u bytes\n", static_cast<unsigned>(bytes.GetLength()));
    std::printf("wrapper       %s\n", unwrapped.wrapper);
    std::printf("form          %s\n", FormOf(unwrapped.content).c_str());
    std::printf("root          %s\n", root.GetLocalName().c_str());
    std::printf("namespace     %s\n",
                root.GetNamespaceURI().empty() ? "none" : root.GetNamespaceURI().c_str());
    std::printf("elements      %llu\n", static_cast<unsigned long long>(counts.elements));
    std::printf("attributes    %llu\n", static_cast<unsigned long long>(counts.attributes));
    std::printf("depth         %lu\n", counts.depth);
    std::printf("text          %llu bytes\n", static_cast<unsigned long long>(counts.textBytes));
}

} // namespace

std::string InspectHelp() {
    return "Usage: zvxml inspect [OPTION]... [FILE]\n"
           "Tells what FILE is, or standard input: the form and the wrapper that were\n"
           "recognised, the root element, counts, and the size of the document in each form\n"
           "that can be written. Of a Fast Infoset document it lists the vocabulary, too: the\n"
           "names and texts that can be referred to by their numbers.\n\n" +
           OptionsHelp(OptionTable());
}

int Inspect(std::vector<std::string> const& arguments, Progress& progress) {
    InspectOptions options;
    std::vector<std::string> const operands = ReadArguments(arguments, OptionTable(), options);
    if (operands.size() > 1)
        throw UsageError("inspect takes one file");
    std::string const file = operands.empty() ? kStandardStream : operands[0];

    CSerializationContext ctx;
    ctx.GetJsonContext().SetRootElementName(options.jsonRoot.c_str());
    ctx.GetJsonContext().GetAllowComments(options.hasJsonComments);
    CBinaryData const bytes = ReadBytes(file);
    Unwrapped const unwrapped = Unwrap(bytes);
    InspectedDocument const inspected = ReadInspected(file, unwrapped.content, ctx, progress);
    progress.Finish();
    PrintReport(file, bytes, unwrapped, inspected);
    if (inspected.reader != nullptr)
        PrintVocabulary(*inspected.reader->GetVocabulary(), options.listsWholeVocabulary
                                                                ? std::numeric_limits<std::size_t>::max()
                                                                : kFirstEntries);
    try {
        PrintSizes(inspected);
    } catch (CZvException const& e) {
        throw FileError(InputName(file), e.GetFullMessage());
    }
    return kExitSuccess;
}

} // namespace zvxml
