// The formats that documents are written in, and their file names.
#include "OutputFormats.h"

#include <algorithm>
#include <iterator>
#include <sstream>
#include <string_view>

using namespace ZvXmlLib16;

namespace zvxml {

namespace {

void RefuseNamespaceWith(char const* characters, std::string const& uri) {
    if (uri.find_first_of(characters) != std::string::npos)
        throw CZvException("The namespace [" + uri +
                           "] holds characters that cannot be written in a declaration.");
}

// Declarations are written without escapes.
void RefuseNamespacesWith(char const* characters, CSerializationContext const& ctx) {
    RefuseNamespaceWith(characters, ctx.GetDefaultNamespaceURI());
    for (auto const& [uri, alias] : ctx.GetNamespaceAliases().GetEntries())
        RefuseNamespaceWith(characters, uri);
}

void RequireWritableInXml(CSerializationContext const& ctx) {
    RefuseNamespacesWith("&<\"", ctx);
}

void RequireWritableInJson(CSerializationContext const& ctx) {
    if (ctx.GetJsonContext().GetSupportRoundtrip() == JsonRoundTrip_Full)
        RefuseNamespacesWith("\"\\\t\r\n", ctx);
}

CBinaryData ToXmlBytes(CXmlObjectBase& object, WriteOptions const& options,
                       CSerializationContext const& ctx) {
    return object.ToXmlStream(options.hasDeclaration, options.isPretty, options.encoding, options.eol, ctx,
                              options.compression);
}

CBinaryData ToJsonBytes(CXmlObjectBase& object, WriteOptions const& options,
                        CSerializationContext const& ctx) {
    return object.ToJsonStream(options.isPretty, options.encoding, options.eol, ctx, options.compression);
}

// Namespaces are written unchanged.
void RequireNothing(CSerializationContext const&) {}

FInfoDecl DeclarationOf(WriteOptions const& options) {
    return options.hasDeclaration ? FInfoDecl_Version10 : FInfoDecl_None;
}

CBinaryData ToFastInfosetBytes(CXmlObjectBase& object, WriteOptions const& options,
                               CSerializationContext const& ctx) {
    return object.ToFastInfosetStream(DeclarationOf(options), ctx, options.compression);
}

// The first one is the default for file names without a known extension.
constexpr OutputFormat kFormats[] = {
    {Form::kXml, "xml", ".xml .xsd .xsl .xslt .svg .xhtml .rdf .rss .atom .kml .gml .gpx", "XML text", true,
     &RequireWritableInXml, &ToXmlBytes},
    {Form::kJson, "json", ".json .geojson", "JSON text", false, &RequireWritableInJson, &ToJsonBytes},
    {Form::kInfoset, "fi", ".fi .finf", "Fast Infoset", false, &RequireNothing, &ToFastInfosetBytes},
};

struct CompressionEnding {
    char const* ending;
    CompressionType type;
};
constexpr CompressionEnding kCompressionEndings[] = {
    {".gz", CompressionType_GZip},
    {".zz", CompressionType_ZLib},
    {".zlib", CompressionType_ZLib},
};

bool EndsWith(std::string_view text, std::string_view ending) {
    return text.size() > ending.size() && text.substr(text.size() - ending.size()) == ending;
}

} // namespace

OutputFormat const* FindFormatByName(std::string const& name) {
    for (OutputFormat const& format : kFormats)
        if (name == format.name)
            return &format;
    return nullptr;
}

OutputFormat const& FormatOf(Form form) {
    return *std::find_if(std::begin(kFormats), std::end(kFormats),
                         [form](OutputFormat const& format) { return format.form == form; });
}

std::string FormatNames() {
    std::string names;
    for (OutputFormat const& format : kFormats)
        names += (names.empty() ? "" : ", ") + std::string(format.name);
    return names;
}

FileForm FormOfFileName(std::string const& fileName) {
    FileForm form{&kFormats[0], CompressionType_None};
    std::string_view name = fileName;
    for (CompressionEnding const& row : kCompressionEndings) {
        if (EndsWith(name, row.ending)) {
            form.compression = row.type;
            name.remove_suffix(std::string_view(row.ending).size());
            break;
        }
    }
    std::size_t const dot = name.find_last_of("./");
    if (dot != std::string_view::npos && name[dot] == '.' && dot != 0 && name[dot - 1] != '/')
        form.format = nullptr;
    for (OutputFormat const& format : kFormats) {
        std::istringstream endings(format.endings);
        for (std::string ending; endings >> ending;)
            if (EndsWith(name, ending))
                form.format = &format;
    }
    return form;
}

CBinaryData ToFileBytes(OutputFormat const& format, CXmlObjectBase& object, WriteOptions const& options,
                        CSerializationContext const& ctx) {
    CBinaryData bytes = format.toBytes(object, options, ctx);
    if (!format.hasByteOrderMark || options.encoding != XmlEncoding_UTF16 ||
        options.compression != CompressionType_None)
        return bytes;
    constexpr unsigned char kMark[] = {0xFF, 0xFE};
    CBinaryData marked;
    marked.Append(kMark, sizeof kMark);
    marked.Append(bytes);
    return marked;
}

} // namespace zvxml
