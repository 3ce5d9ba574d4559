// Reading an object from an untyped element.
#include "zvxmllib/binding/GeneratorVersion.h"
#include "zvxmllib/binding/KeptOperations.h"
#include "zvxmllib/binding/XmlObjectBase.h"
#include "zvxmllib/collections/Element.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/Failures.h"
#include "zvxmllib/document/XmlDocument.h"

namespace ZvXmlLib16 {

namespace {

// The element's XML goes through the operations of both classes. If neither has replaced them it goes as
// UTF-8 bytes, so that text outside the local encoding is not lost.
bool MayGoAsBytes(CXmlObjectBase const& object, CElement const& element) {
    using namespace detail;
    return KeepsOperation<&CXmlObjectBase::ToXml>(element) &&
           KeepsOperation<&CXmlObjectBase::ToXmlStream>(element) &&
           KeepsOperation<static_cast<ReadText>(&CXmlObjectBase::FromXml)>(object) &&
           KeepsReadingOfBytes(object);
}

CSerializationContext AsStrict(CSerializationContext ctx) {
    ctx.SetStrict(true);
    return ctx;
}

} // namespace

// The element may have any name, unlike the root of a document.
void CXmlObjectBase::ReadStrictBytes(CBinaryData const& xml, CSerializationContext const& ctx) {
    CXmlDocument document(ctx);
    document.LoadXmlStream(xml.GetData(), xml.GetLength());
    ReadElement(document.GetDocumentElement(), ctx, false);
}

void CXmlObjectBase::FromXmlElement(CElement const* element, CSerializationContext const& ctx) {
    detail::CheckGeneratorVersion();
    if (element == nullptr)
        FailNullElement();
    CElement& source =
        const_cast<CElement&>(*element); // writing does not change it, but the operations are not const
    CSerializationContext const& plain = CSerializationContext::GetDefaultContext();
    auto const toBytes = [&source](CSerializationContext const& writing) {
        return source.ToXmlStream(false, false, XmlEncoding_UTF8, EOLType_LF, writing, CompressionType_None);
    };
    if (!MayGoAsBytes(*this, source))
        FromXml(source.ToXml(false, false, EOLType_LF, plain).c_str(), ctx);
    else if (!ctx.GetStrict())
        FromXmlStream(toBytes(plain), ctx);
    else
        ReadStrictBytes(toBytes(AsStrict(plain)), ctx);
}

} // namespace ZvXmlLib16
