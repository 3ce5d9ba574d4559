// Documents of any form as streams, from one form to another.
#include "Documents.h"

#include "../Errors.h"
#include "InfosetSource.h"
#include "InfosetVocabulary.h"
#include "JsonSource.h"
#include "Losses.h"
#include "Shape.h"
#include "Sinks.h"
#include "XmlSource.h"

#include "zvxmllib/foundation/Exceptions.h"

#include <string_view>

using namespace ZvXmlLib16;

namespace zvxml {

namespace {

// The first byte of a text that is not white space.
char FirstOf(std::string_view text) {
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    if (text.substr(0, kMark.size()) == kMark)
        text.remove_prefix(kMark.size());
    std::size_t const first = text.find_first_not_of(" \t\r\n");
    return first == std::string_view::npos ? '\0' : text[first];
}

std::unique_ptr<Receiver> MakeSink(ByteOutput& output, StreamOptions const& options, Shape const& shape,
                                   Losses& losses) {
    WriteOptions const& write = options.write;
    if (options.form == Form::kJson)
        return MakeJsonSink(output, write, options.json.mode, options.indent, shape);
    if (options.form == Form::kInfoset)
        return MakeInfosetSink(output, write.hasDeclaration, options.addLength, losses);
    auto const declaration = write.hasDeclaration       ? DeclarationMode::kAlways
                             : options.keepsDeclaration ? DeclarationMode::kAsRead
                                                        : DeclarationMode::kNever;
    return MakeXmlSink(output, write, declaration, options.indent, write.isPretty ? &shape : nullptr, losses);
}

} // namespace

Form FormOf(ByteInput const& input, JsonOptions const& json) {
    std::string const& start = input.GetStart();
    if (IsFastInfoset(start))
        return Form::kInfoset;
    std::string_view const choices = json.root.empty() ? "{[\"/" : "{[\"/-0123456789tfn";
    return choices.find(FirstOf(start)) != std::string_view::npos ? Form::kJson : Form::kXml;
}

std::unique_ptr<Source> OpenSource(ByteInput& input, JsonOptions const& json) {
    if (input.GetStart().empty())
        throw DocumentError("the document is empty");
    switch (FormOf(input, json)) {
    case Form::kJson:
        return MakeJsonSource(input, json.mode, json.root);
    case Form::kInfoset:
        return MakeInfosetSource(input);
    case Form::kXml:
        break;
    }
    return MakeXmlSource(input);
}

void WithFile(std::string const& file, std::function<void()> const& action) {
    try {
        action();
    } catch (DocumentError const& e) {
        throw FileError(file, e.what(), e.GetPlace());
    } catch (CZvException const& e) {
        throw FileError(file, e.GetMessage());
    }
}

void ConvertStream(ByteInput& input, std::string const& output, StreamOptions const& options) {
    WithFile(input.GetName(), [&] {
        std::unique_ptr<Source> const source = OpenSource(input, options.json);
        Losses losses(*source, FormatOf(options.form).title, options.keepsGoing);
        Shape shape;
        if (options.form == Form::kJson)
            source->Read(*MakeJsonShape(shape, options.json.mode, *source, losses));
        else if (options.form == Form::kXml && options.write.isPretty)
            source->Read(*MakeXmlShape(shape));
        ByteOutput bytes(output, options.write, options.form != Form::kInfoset);
        source->Read(*MakeSink(bytes, options, shape, losses));
        bytes.Commit();
        losses.Tell(input.GetName());
    });
}

} // namespace zvxml
