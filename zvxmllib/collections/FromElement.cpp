// Reading an object from an untyped element.
#include "zvxmllib/binding/GeneratorVersion.h"
#include "zvxmllib/binding/KeptOperations.h"
#include "zvxmllib/binding/XmlObjectBase.h"
#include "zvxmllib/collections/Element.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/Failures.h"

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

} // namespace

void CXmlObjectBase::FromXmlElement(CElement const* element, CSerializationContext const& ctx) {
    detail::CheckGeneratorVersion();
    if (element == nullptr)
        FailNullElement();
    CElement& source =
        const_cast<CElement&>(*element); // writing does not change it, but the operations are not const
    CSerializationContext const& plain = CSerializationContext::GetDefaultContext();
    if (MayGoAsBytes(*this, source))
        FromXmlStream(
            source.ToXmlStream(false, false, XmlEncoding_UTF8, EOLType_LF, plain, CompressionType_None), ctx);
    else
        FromXml(source.ToXml(false, false, EOLType_LF, plain).c_str(), ctx);
}

} // namespace ZvXmlLib16
