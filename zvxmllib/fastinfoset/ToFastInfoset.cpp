// The Fast Infoset writing entry points of the object base.
#include "zvxmllib/binding/GeneratorVersion.h"
#include "zvxmllib/binding/XmlObjectBase.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/fastinfoset/ExactFastInfosetWriter.h"
#include "zvxmllib/streams/FileBinaryStream.h"
#include "zvxmllib/streams/ZvZip.h"
#include "zvxmllib/writers/Failures.h"
#include "zvxmllib/writers/FileModeOf.h"
#include "zvxmllib/writers/StrictWriter.h"

namespace ZvXmlLib16 {

CBinaryData CXmlObjectBase::ToFastInfosetStream(FInfoDecl declaration, CSerializationContext const& ctx,
                                                CompressionType compression) {
    detail::CheckGeneratorVersion();
    CBinaryStream sink;
    auto const write = [&](CFastInfosetWriter&& writer) {
        writer.Open();
        writer.WriteDocumentHead(declaration);
        std::string const ns = GetTargetNamespace();
        ToXml_Int(&writer, true, ns.c_str(), ctx, false);
        writer.WriteDocumentTerminator();
        writer.Close();
    };
    if (ctx.GetStrict())
        write(StrictWriter<CExactFastInfosetWriter>(ctx.GetSchemaType() != SchemaType_NoNamespaces,
                                                    ctx.GetFIContext(), sink));
    else
        write(CFastInfosetWriter(ctx.GetFIContext(), sink));
    CBinaryData data = sink.GetData();
    if (compression != CompressionType_None)
        CZvZip::Compress(data, compression, ctx.GetStrict());
    return data;
}

void CXmlObjectBase::ToFastInfosetFile(char const* fileName, FInfoDecl declaration,
                                       CSerializationContext const& ctx, CompressionType compression) const {
    if (compression == CompressionType_ZLib)
        FailZLibForFiles();
    // Writing does not change the object, but the operation is not const.
    CBinaryData const data =
        const_cast<CXmlObjectBase*>(this)->ToFastInfosetStream(declaration, ctx, compression);
    CFileBinaryStream(fileName, XmlEncoding_None, data).WriteToFile(FileModeOf(ctx));
}

} // namespace ZvXmlLib16
