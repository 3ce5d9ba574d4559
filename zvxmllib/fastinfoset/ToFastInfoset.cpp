// The Fast Infoset writing entry points of the object base.
#include "zvxmllib/binding/Failures.h"
#include "zvxmllib/binding/GeneratorVersion.h"
#include "zvxmllib/binding/XmlObjectBase.h"

namespace ZvXmlLib16 {

void CXmlObjectBase::ToFastInfosetFile(char const*, FInfoDecl, CSerializationContext const&,
                                       CompressionType) const {
    detail::CheckGeneratorVersion();
    FailFormatNotSupported("Fast Infoset");
}

CBinaryData CXmlObjectBase::ToFastInfosetStream(FInfoDecl, CSerializationContext const&, CompressionType) {
    detail::CheckGeneratorVersion();
    FailFormatNotSupported("Fast Infoset");
}

} // namespace ZvXmlLib16
