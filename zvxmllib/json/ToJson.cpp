// The JSON writing entry points of the object base.
#include "zvxmllib/binding/Failures.h"
#include "zvxmllib/binding/GeneratorVersion.h"
#include "zvxmllib/binding/XmlObjectBase.h"

namespace ZvXmlLib16 {

void CXmlObjectBase::ToJsonFile(char const*, bool, XmlEncoding, EOLType, CSerializationContext const&,
                                CompressionType) const {
    detail::CheckGeneratorVersion();
    FailFormatNotSupported("JSON");
}

std::string CXmlObjectBase::ToJson(bool, EOLType, CSerializationContext const&) {
    detail::CheckGeneratorVersion();
    FailFormatNotSupported("JSON");
}

CBinaryData CXmlObjectBase::ToJsonStream(bool, XmlEncoding, EOLType, CSerializationContext const&,
                                         CompressionType) {
    detail::CheckGeneratorVersion();
    FailFormatNotSupported("JSON");
}

} // namespace ZvXmlLib16
