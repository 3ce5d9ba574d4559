// Conversions by way of objects: the usual way of the library, and by a schema.
#include "LaxConversion.h"

#include "DocumentObject.h"
#include "Errors.h"
#include "Input.h"
#include "Prefixes.h"
#include "Progress.h"
#include "stream/ByteOutput.h"
#ifdef ZVXML_HAS_SCHEMAS
#include "TypedConversion.h"
#endif

using namespace ZvXmlLib16;

namespace zvxml {

namespace {

CSerializationContext MakeContext(ConvertOptions const& options) {
    CSerializationContext ctx;
    StreamOptions const& stream = options.stream;
    ctx.SetIndentChars(stream.indent.c_str());
    ctx.GetJsonContext().SetSupportRoundtrip(stream.json.mode);
    ctx.GetJsonContext().SetRootElementName(stream.json.root.c_str());
    ctx.GetJsonContext().GetAllowComments(options.hasJsonComments);
    if (options.addLength) {
        ctx.GetFIContext().SetAttributeMaxAddLength(*options.addLength);
        ctx.GetFIContext().SetElementMaxAddLength(*options.addLength);
    }
    return ctx;
}

void Write(std::string const& file, CXmlObjectBase& object, ConvertOptions const& options,
           CSerializationContext const& ctx) {
    try {
        CBinaryData const bytes = ToFileBytes(*options.format, object, options.stream.write, ctx);
        ByteOutput output(file, WriteOptions(), false);
        output.Append({reinterpret_cast<char const*>(bytes.GetData()), bytes.GetLength()});
        output.Commit();
    } catch (CZvException const& e) {
        throw FileError(file == kStandardStream ? "standard output" : file, e.GetFullMessage());
    }
}

} // namespace

void ConvertUntyped(Operands const& operands, ConvertOptions const& options, Progress& progress) {
    CSerializationContext ctx = MakeContext(options);
    CSmartPtr<CDocumentObject> const object = new CDocumentObject;
    InputDocument input = ReadDocument(operands.input, ctx, progress);
    try {
        progress.StartStep("taking them over");
        object->ReadRootOf(*input.document, ctx);
        if (input.isFromJson)
            object->DropFormatting();
        UsePrefixesOf(*input.document, ctx);
        options.format->requireWritable(ctx);
    } catch (CZvException const& e) {
        throw FileError(InputName(operands.input), e.GetFullMessage());
    }
    input.document.reset(); // its memory is needed for writing
    if (options.stream.write.isPretty)
        object->DropWhiteSpaceBetweenElements();
    progress.StartStep("writing");
    Write(operands.output, *object, options, ctx);
}

#ifdef ZVXML_HAS_SCHEMAS
void ConvertTyped(Operands const& operands, ConvertOptions const& options, Progress& progress) {
    CSerializationContext ctx = MakeContext(options);
    ctx.SetStrict(true);
    ctx.SetKeepPositions(!CanReadAgain(operands.input));
    TypedConversion const conversion(options.schema);
    CSmartPtr<CXmlObjectBase> object;
    while (object == nullptr) {
        InputDocument const input = ReadDocument(operands.input, ctx, progress);
        try {
            progress.StartStep("validating");
            object = conversion.Read(*input.document->GetDocumentElement(), input.isFromJson, ctx);
            UsePrefixesOf(*input.document, ctx);
            options.format->requireWritable(ctx);
        } catch (CZvException const& e) {
            // Places take memory for each element: what fails is read once more with them.
            if (ctx.GetKeepPositions())
                throw FileError(InputName(operands.input), e.GetFullMessage(), {e.GetLine(), e.GetColumn()});
            ctx.SetKeepPositions(true);
            object = nullptr;
        }
    }
    progress.StartStep("writing");
    Write(operands.output, *object, options, ctx);
}
#endif

} // namespace zvxml
