// The XML writing entry points of the object base.
#include "zvxmllib/binding/GeneratorVersion.h"
#include "zvxmllib/binding/XmlObjectBase.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/streams/AsyncFiles.h"
#include "zvxmllib/streams/FileBinaryStream.h"
#include "zvxmllib/streams/FileTextStream.h"
#include "zvxmllib/streams/TextStream.h"
#include "zvxmllib/streams/ZvZip.h"
#include "zvxmllib/writers/Failures.h"
#include "zvxmllib/writers/FileModeOf.h"
#include "zvxmllib/writers/StrictWriter.h"
#include "zvxmllib/xml/ExactXmlWriter.h"

namespace ZvXmlLib16 {

// Writing does not change the object, but GetTargetNamespace is not const.
void CXmlObjectBase::WriteXmlText(CTextStream& sink, bool includeDocHeader, bool formatted, EOLType eol,
                                  CSerializationContext const& ctx) const {
    auto const writeWith = [&](CXmlTextWriter&& writer) {
        writer.Begin(formatted, eol, ctx);
        writer.SetWriteDefaultElementValues(ctx.GetWriteDefaultElementValues());
        if (includeDocHeader)
            writer.WriteDeclaration();
        std::string const ns = const_cast<CXmlObjectBase*>(this)->GetTargetNamespace();
        ToXml_Int(&writer, true, ns.c_str(), ctx, false);
        writer.Close();
    };
    bool const hasNamespaces = ctx.GetSchemaType() != SchemaType_NoNamespaces;
    if (ctx.GetStrict())
        writeWith(StrictWriter<CExactXmlWriter>(hasNamespaces, &sink, !ctx.GetStripCDATA()));
    else
        writeWith(CXmlTextWriter(&sink));
}

std::string CXmlObjectBase::ToXml(bool includeDocHeader, bool formatted, EOLType eol,
                                  CSerializationContext const& ctx) {
    detail::CheckGeneratorVersion();
    CTextStream sink(XmlEncoding_None);
    sink.SetNeedsFlush(false);
    WriteXmlText(sink, includeDocHeader, formatted, eol, ctx);
    return sink.TakeText();
}

CBinaryData CXmlObjectBase::ToXmlStream(bool includeDocHeader, bool formatted, XmlEncoding encoding,
                                        EOLType eol, CSerializationContext const& ctx,
                                        CompressionType compression) {
    detail::CheckGeneratorVersion();
    CTextStream sink(encoding);
    sink.SetNeedsFlush(false);
    WriteXmlText(sink, includeDocHeader, formatted, eol, ctx);
    CBinaryData data = sink.GetEncodedData();
    if (compression != CompressionType_None)
        CZvZip::Compress(data, compression, ctx.GetStrict());
    return data;
}

void CXmlObjectBase::ToXmlFile(char const* fileName, bool includeDocHeader, bool formatted,
                               XmlEncoding encoding, EOLType eol, CSerializationContext const& ctx,
                               CompressionType compression) const {
    if (compression == CompressionType_ZLib)
        FailZLibForFiles();
    if (compression == CompressionType_None && IsAsyncToXmlFile()) {
        detail::CheckGeneratorVersion();
        CFileTextStream sink(fileName, encoding, true, FileModeOf(ctx));
        WriteXmlText(sink, includeDocHeader, formatted, eol, ctx);
        return;
    }
    CBinaryData const data = const_cast<CXmlObjectBase*>(this)->ToXmlStream(includeDocHeader, formatted,
                                                                            encoding, eol, ctx, compression);
    // A byte order mark belongs to text: before compressed data it would hide the compression.
    XmlEncoding const mark = compression == CompressionType_None ? encoding : XmlEncoding_None;
    CFileBinaryStream(fileName, mark, data).WriteToFile(FileModeOf(ctx));
}

} // namespace ZvXmlLib16
