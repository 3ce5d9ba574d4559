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

std::unique_ptr<Receiver> MakeSink(ByteOutput& output, StreamOptions const& options, Indent indent,
                                   Shape const& shape, Losses& losses) {
    WriteOptions const& write = options.write;
    if (options.form == Form::kJson)
        return MakeJsonSink(output, write, options.json.mode, options.indent, shape);
    if (options.form == Form::kInfoset)
        return MakeInfosetSink(output, write.hasDeclaration, options.addLength, losses);
    auto const declaration = write.hasDeclaration       ? DeclarationMode::kAlways
                             : options.keepsDeclaration ? DeclarationMode::kAsRead
                                                        : DeclarationMode::kNever;
    return MakeXmlSink(output, write, declaration, indent, options.indent, shape, losses);
}

// False if a guess was wrong; nothing is written then.
bool Write(Source& source, std::string const& file, StreamOptions const& options, Indent indent,
           Shape const& shape, Losses& losses) {
    ByteOutput output(file, options.write, options.form != Form::kInfoset, indent == Indent::kGuess);
    try {
        source.Read(*MakeSink(output, options, indent, shape, losses));
    } catch (WrongGuess const&) {
        return false;
    }
    output.Commit();
    return true;
}

// Most documents are right for the guess, which saves the reading for the shape.
void WriteIndented(Source& source, std::string const& file, StreamOptions const& options, Losses& losses) {
    Shape shape;
    Losses const none = losses;
    if (Write(source, file, options, Indent::kGuess, shape, losses))
        return;
    losses.Take(none);
    source.Read(*MakeXmlShape(shape));
    Write(source, file, options, Indent::kShape, shape, losses);
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
        if (options.form == Form::kXml && options.write.isPretty) {
            WriteIndented(*source, output, options, losses);
        } else {
            Shape shape;
            if (options.form == Form::kJson)
                source->Read(*MakeJsonShape(shape, options.json.mode, *source, losses));
            Write(*source, output, options, Indent::kNone, shape, losses);
        }
        input.FinishProgress();
        losses.Tell(input.GetName());
    });
}

} // namespace zvxml
