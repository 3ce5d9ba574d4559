// Reading an object from an untyped element.
#include "zvxmllib/binding/GeneratorVersion.h"
#include "zvxmllib/binding/XmlObjectBase.h"
#include "zvxmllib/collections/Element.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/Failures.h"

namespace ZvXmlLib16 {

// By way of the element's XML, in UTF-8, so that text outside the local encoding is not lost.
void CXmlObjectBase::FromXmlElement(CElement const* element, CSerializationContext const& ctx) {
    detail::CheckGeneratorVersion();
    if (element == nullptr)
        FailNullElement();
    CBinaryData const xml = const_cast<CElement*>(element)->ToXmlStream(
        false, false, XmlEncoding_UTF8, EOLType_LF, CSerializationContext::GetDefaultContext(),
        CompressionType_None);
    FromXmlStream(xml, ctx);
}

} // namespace ZvXmlLib16
