// The receivers that write documents.
#pragma once

#include "ByteOutput.h"
#include "Events.h"
#include "Losses.h"
#include "Shape.h"

#include <memory>
#include <string>

namespace zvxml {

// What is deeper is indented no more, or documents of many levels would grow with the square of them.
inline constexpr std::size_t kDeepestIndent = 100;

enum class DeclarationMode { kNever, kAsRead, kAlways };

// Which elements hold elements alone, and are indented.
enum class Indent {
    kNone,  // text as it is
    kGuess, // those that begin with an element; throws WrongGuess when one of them turns out to hold text
    kShape  // those that the shape marks
};
struct WrongGuess {};

// All are borrowed.
std::unique_ptr<Receiver> MakeXmlSink(ByteOutput& output, WriteOptions const& options,
                                      DeclarationMode declaration, Indent mode, std::string const& indent,
                                      Shape const& shape, Losses& losses);

// `shape` tells which members are arrays. It is made of a JsonShape, which refuses what JSON has no place
// for.
std::unique_ptr<Receiver> MakeJsonSink(ByteOutput& output, WriteOptions const& options,
                                       ZvXmlLib16::JsonRoundTrip mode, std::string const& indent,
                                       Shape const& shape);

// Texts and attribute values of fewer octets than `addLength` are written once and then as numbers.
std::unique_ptr<Receiver> MakeInfosetSink(ByteOutput& output, bool hasDeclaration, std::size_t addLength,
                                          Losses& losses);

} // namespace zvxml
