// Documents of any form as streams, from one form to another.
#pragma once

#include "../OutputFormats.h"
#include "ByteInput.h"
#include "Events.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

namespace zvxml {

// How JSON stands for XML.
struct JsonOptions {
    ZvXmlLib16::JsonRoundTrip mode = ZvXmlLib16::JsonRoundTrip_Full;
    std::string root; // of the text that is read, if it names none
};

// What is recognised by the first bytes.
Form FormOf(ByteInput const& input, JsonOptions const& json);
// `input` is borrowed.
std::unique_ptr<Source> OpenSource(ByteInput& input, JsonOptions const& json);

struct StreamOptions {
    Form form = Form::kXml;
    WriteOptions write;
    std::string indent = "\t";
    JsonOptions json;
    std::size_t addLength = 6; // of Fast Infoset
    bool keepsDeclaration = false;
    bool keepsGoing = false;
};

// Reads `input` and writes the same to `output`, a file or "-". Comments, processing instructions and the
// document type stay where the form has a place for them; otherwise they are refused, or left out with a
// warning. Memory is bounded by the depth of the document and its longest value; on the way to JSON and to
// indented XML there is a bit for each element besides, and Fast Infoset has its tables. Throws FileError.
void ConvertStream(ByteInput& input, std::string const& output, StreamOptions const& options);

// Makes FileErrors of what is wrong with the content of a file.
void WithFile(std::string const& file, std::function<void()> const& action);

} // namespace zvxml
