// The formats that documents are written in, as one table.
#pragma once

#include <string>

#include <zvxmllib/ZvXmlLib.h>

namespace zvxml {

// How a document is written.
struct WriteOptions {
    bool isPretty = false;
    bool hasDeclaration = false;
    ZvXmlLib16::XmlEncoding encoding = ZvXmlLib16::XmlEncoding_UTF8;
    ZvXmlLib16::EOLType eol = ZvXmlLib16::EOLType_LF;
    ZvXmlLib16::CompressionType compression = ZvXmlLib16::CompressionType_None;
};

enum class Form { kXml, kJson, kInfoset };

struct OutputFormat {
    Form form;
    char const* name;    // as --to takes it
    char const* endings; // extensions with their dots, separated by blanks
    char const* title;
    bool hasByteOrderMark; // in front of 16-bit text in files
    // Throws CZvException for namespaces of the context that the format cannot express.
    void (*requireWritable)(ZvXmlLib16::CSerializationContext const& ctx);
    ZvXmlLib16::CBinaryData (*toBytes)(ZvXmlLib16::CXmlObjectBase& object, WriteOptions const& options,
                                       ZvXmlLib16::CSerializationContext const& ctx);
};

// Null if there is no format of this name.
OutputFormat const* FindFormatByName(std::string const& name);
OutputFormat const& FormatOf(Form form);

// The names of all formats, separated by ", ".
std::string FormatNames();

// What the extensions of a file name say: "orders.xml.gz" is XML text in gzip form.
struct FileForm {
    OutputFormat const* format; // XML text for a name without one, null for one that is unknown
    ZvXmlLib16::CompressionType compression;
};
FileForm FormOfFileName(std::string const& fileName);

// The bytes of a whole file, as the library writes and reads them, with a byte order mark where one belongs.
ZvXmlLib16::CBinaryData ToFileBytes(OutputFormat const& format, ZvXmlLib16::CXmlObjectBase& object,
                                    WriteOptions const& options,
                                    ZvXmlLib16::CSerializationContext const& ctx);

} // namespace zvxml
