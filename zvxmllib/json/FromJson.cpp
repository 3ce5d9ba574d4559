// The JSON reading entry points of the object base.
#include "zvxmllib/binding/Failures.h"
#include "zvxmllib/binding/GeneratorVersion.h"
#include "zvxmllib/binding/XmlObjectBase.h"

namespace ZvXmlLib16 {

void CXmlObjectBase::FromJsonFile(char const*, CSerializationContext const&) {
    detail::CheckGeneratorVersion();
    FailFormatNotSupported("JSON");
}

void CXmlObjectBase::FromJson(wchar_t const*, CSerializationContext const&) {
    detail::CheckGeneratorVersion();
    FailFormatNotSupported("JSON");
}

void CXmlObjectBase::FromJson(char const*, CSerializationContext const&) {
    detail::CheckGeneratorVersion();
    FailFormatNotSupported("JSON");
}

void CXmlObjectBase::FromJsonStream(CBinaryData const&, CSerializationContext const&) {
    detail::CheckGeneratorVersion();
    FailFormatNotSupported("JSON");
}

void CXmlObjectBase::FromJsonStream(unsigned char* const, std::uint32_t, CSerializationContext const&) {
    detail::CheckGeneratorVersion();
    FailFormatNotSupported("JSON");
}

} // namespace ZvXmlLib16
