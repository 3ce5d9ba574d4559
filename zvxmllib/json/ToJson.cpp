// The JSON writing entry points of the object base.
#include "zvxmllib/binding/GeneratorVersion.h"
#include "zvxmllib/binding/XmlObjectBase.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/json/ExactJsonWriter.h"
#include "zvxmllib/json/JsonTextWriter.h"
#include "zvxmllib/streams/AsyncFiles.h"
#include "zvxmllib/streams/Failures.h"
#include "zvxmllib/streams/FileBinaryStream.h"
#include "zvxmllib/streams/FileTextStream.h"
#include "zvxmllib/streams/TextStream.h"
#include "zvxmllib/streams/ZvZip.h"
#include "zvxmllib/writers/Failures.h"
#include "zvxmllib/writers/FileModeOf.h"
#include "zvxmllib/writers/StrictWriter.h"

namespace ZvXmlLib16 {

// Writing does not change the object, but GetTargetNamespace is not const.
void CXmlObjectBase::WriteJsonText(CTextStream& sink, bool formatted, EOLType eol,
                                   CSerializationContext const& ctx) const {
    JsonRoundTrip const roundTrip = ctx.GetJsonContext().GetSupportRoundtrip();
    auto const writeWith = [&](CTextWriter& writer) {
        std::string const ns = const_cast<CXmlObjectBase*>(this)->GetTargetNamespace();
        ToXml_Int(&writer, true, ns.c_str(), ctx, false);
    };
    if (ctx.GetStrict()) {
        if (sink.GetEncoding() != XmlEncoding_UTF8 && sink.GetEncoding() != XmlEncoding_None)
            FailUnknownEncoding();
        StrictWriter<CExactJsonWriter> writer(ctx.GetSchemaType() != SchemaType_NoNamespaces, &sink,
                                              roundTrip);
        writer.Begin(formatted, eol, ctx);
        writeWith(writer);
        writer.Close();
        return;
    }
    CJsonTextWriter writer(&sink);
    writer.Begin(formatted, eol, ctx);
    writer.SetRoundTrip(roundTrip);
    writer.WriteDocumentStart();
    writeWith(writer);
    writer.WriteDocumentEnd();
    writer.Close();
}

std::string CXmlObjectBase::ToJson(bool formatted, EOLType eol, CSerializationContext const& ctx) {
    detail::CheckGeneratorVersion();
    CTextStream sink(XmlEncoding_None);
    sink.SetNeedsFlush(false);
    WriteJsonText(sink, formatted, eol, ctx);
    return sink.TakeText();
}

CBinaryData CXmlObjectBase::ToJsonStream(bool formatted, XmlEncoding encoding, EOLType eol,
                                         CSerializationContext const& ctx, CompressionType compression) {
    detail::CheckGeneratorVersion();
    CTextStream sink(encoding);
    sink.SetNeedsFlush(false);
    WriteJsonText(sink, formatted, eol, ctx);
    CBinaryData data = sink.GetEncodedData();
    if (compression != CompressionType_None)
        CZvZip::Compress(data, compression, ctx.GetStrict());
    return data;
}

void CXmlObjectBase::ToJsonFile(char const* fileName, bool formatted, XmlEncoding encoding, EOLType eol,
                                CSerializationContext const& ctx, CompressionType compression) const {
    if (compression == CompressionType_ZLib)
        FailZLibForFiles();
    // Neither way writes a byte order mark, whatever the encoding: JSON files have none.
    if (compression == CompressionType_None && IsAsyncToXmlFile()) {
        detail::CheckGeneratorVersion();
        CFileTextStream sink(fileName, encoding, false, FileModeOf(ctx));
        WriteJsonText(sink, formatted, eol, ctx);
        return;
    }
    CBinaryData const data =
        const_cast<CXmlObjectBase*>(this)->ToJsonStream(formatted, encoding, eol, ctx, compression);
    CFileBinaryStream(fileName, XmlEncoding_UTF8, data).WriteToFile(FileModeOf(ctx));
}

} // namespace ZvXmlLib16
