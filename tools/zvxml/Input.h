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

// All bytes of a file or of standard input. Throws FileError.
ZvXmlLib16::CBinaryData ReadBytes(std::string const& file);

// Reads what the library recognises by its content. `ctx` must outlive the document. Throws FileError.
std::unique_ptr<ZvXmlLib16::CXmlDocument>
ReadDocument(std::string const& file, ZvXmlLib16::CSerializationContext const& ctx, Progress& progress);

// The same from bytes at hand; `file` is for messages.
std::unique_ptr<ZvXmlLib16::CXmlDocument> ReadDocument(std::string const& file,
                                                       ZvXmlLib16::CBinaryData const& bytes,
                                                       ZvXmlLib16::CSerializationContext const& ctx,
                                                       Progress& progress);

} // namespace zvxml
