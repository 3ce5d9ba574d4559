#include "zvxmllib/generated/Documents.h"

#include "zvxmllib/binding/GeneratorVersion.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/document/XmlElement.h"
#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/json/JsonContext.h"

#include <fstream>
#include <iterator>
#include <limits>
#include <string_view>
#include <vector>

namespace ZvXmlLib16::generated {

namespace {

CSmartPtr<CTypedObject> ReadRoot(BoundSchema const& schema, std::uint32_t element,
                                 CXmlDocument const& document, CSerializationContext const& ctx,
                                 InputOrder order) {
    return schema.Read(*document.GetDocumentElement(), ctx, element, order);
}

CSmartPtr<CTypedObject> ReadJsonRoot(BoundSchema const& schema, std::uint32_t element,
                                     CXmlDocument const& document, CSerializationContext const& ctx) {
    bool const hasNamespaces = ctx.GetJsonContext().GetSupportRoundtrip() == JsonRoundTrip_Full;
    return ReadRoot(schema, element, document, ctx,
                    hasNamespaces ? InputOrder::kAny : InputOrder::kAnyWithoutNamespaces);
}

bool EndsWith(std::string_view text, std::string_view end) {
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

} // namespace

CSerializationContext const& StrictContext() {
    static CSerializationContext const context = [] {
        CSerializationContext strict;
        strict.SetStrict(true);
        strict.GetJsonContext(); // made now: later threads only read
        strict.GetFIContext();
        return strict;
    }();
    return context;
}

CSmartPtr<CTypedObject> NewObject(BoundSchema const& schema, std::uint32_t element) {
    return schema.MakeObject(schema.GetGrammar().GetRows().elements[element].type, element);
}

CSmartPtr<CTypedObject> ReadFile(BoundSchema const& schema, std::uint32_t element, std::string const& file,
                                 CSerializationContext const& ctx) {
    std::ifstream stream(file, std::ios::binary);
    std::vector<char> const bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    if (!stream)
        throw CZvException("The file [" + file + "] cannot be read.");
    return ReadBytes(schema, element, reinterpret_cast<unsigned char const*>(bytes.data()), bytes.size(),
                     ctx);
}

CSmartPtr<CTypedObject> ReadBytes(BoundSchema const& schema, std::uint32_t element,
                                  unsigned char const* bytes, std::size_t length,
                                  CSerializationContext const& ctx) {
    if (length > std::numeric_limits<std::uint32_t>::max())
        throw CZvException("A document must be smaller than 4 GiB.");
    auto const size = static_cast<std::uint32_t>(length);
    CXmlDocument document(ctx);
    if (CXmlDocument::IsJson(bytes, size)) {
        document.ReadJsonStream(bytes, size);
        return ReadJsonRoot(schema, element, document, ctx);
    }
    document.LoadXmlStream(bytes, size);
    return ReadRoot(schema, element, document, ctx, InputOrder::kAsWritten);
}

CSmartPtr<CTypedObject> ReadXmlText(BoundSchema const& schema, std::uint32_t element, std::string const& text,
                                    CSerializationContext const& ctx) {
    CXmlDocument document(ctx);
    document.LoadXml(text.c_str());
    return ReadRoot(schema, element, document, ctx, InputOrder::kAsWritten);
}

CSmartPtr<CTypedObject> ReadJsonText(BoundSchema const& schema, std::uint32_t element,
                                     std::string const& text, CSerializationContext const& ctx) {
    CXmlDocument document(ctx);
    document.ReadJson(text.c_str());
    return ReadJsonRoot(schema, element, document, ctx);
}

void WriteFile(CTypedObject const& object, std::uint32_t element, std::string const& file,
               CSerializationContext const& ctx) {
    object.NameAs(element);
    bool const isGzip = EndsWith(file, ".gz");
    std::string_view const name = std::string_view(file).substr(0, file.size() - (isGzip ? 3 : 0));
    CompressionType const compression = isGzip ? CompressionType_GZip : CompressionType_None;
    if (EndsWith(name, ".json"))
        object.ToJsonFile(file.c_str(), false, XmlEncoding_UTF8, EOLType_LF, ctx, compression);
    else if (EndsWith(name, ".fi") || EndsWith(name, ".finf"))
        object.ToFastInfosetFile(file.c_str(), FInfoDecl_None, ctx, compression);
    else
        object.ToXmlFile(file.c_str(), true, false, XmlEncoding_UTF8, EOLType_LF, ctx, compression);
}

std::string WriteXmlText(CTypedObject const& object, std::uint32_t element,
                         CSerializationContext const& ctx) {
    object.NameAs(element);
    return const_cast<CTypedObject&>(object).ToXml(false, false, EOLType_LF, ctx);
}

std::string WriteJsonText(CTypedObject const& object, std::uint32_t element,
                          CSerializationContext const& ctx) {
    object.NameAs(element);
    return const_cast<CTypedObject&>(object).ToJson(false, EOLType_LF, ctx);
}

CBinaryData WriteFastInfoset(CTypedObject const& object, std::uint32_t element,
                             CSerializationContext const& ctx) {
    object.NameAs(element);
    return const_cast<CTypedObject&>(object).ToFastInfosetStream(FInfoDecl_None, ctx, CompressionType_None);
}

} // namespace ZvXmlLib16::generated
