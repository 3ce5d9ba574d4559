// Reading a document from a file or from standard input.
#pragma once

#include <memory>
#include <string>

#include <zvxmllib/ZvXmlLib.h>

namespace zvxml {

class Progress;

// The operand that means standard input or output.
inline constexpr char const* kStandardStream = "-";

// How messages name an input.
std::string InputName(std::string const& file);

// Whether a file gives its bytes more than once.
bool CanReadAgain(std::string const& file);

// All bytes of a file or of standard input. Throws FileError.
ZvXmlLib16::CBinaryData ReadBytes(std::string const& file);

struct InputDocument {
    std::unique_ptr<ZvXmlLib16::CXmlDocument> document;
    // The library turns JSON into formatted XML: the texts of elements with children hold its line ends and
    // tabs.
    bool isFromJson = false;
};

// Reads everything that the library recognises by its content, and JSON, recognised by its first byte that is
// not white space, with the context's JSON options. `ctx` must outlive the document. Throws FileError.
InputDocument ReadDocument(std::string const& file, ZvXmlLib16::CSerializationContext const& ctx,
                           Progress& progress);

// The same from bytes; `file` is for messages.
InputDocument ReadDocument(std::string const& file, ZvXmlLib16::CBinaryData const& bytes,
                           ZvXmlLib16::CSerializationContext const& ctx, Progress& progress);

} // namespace zvxml
