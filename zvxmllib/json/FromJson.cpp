// The JSON reading entry points of the object base.
#include "zvxmllib/binding/GeneratorVersion.h"
#include "zvxmllib/binding/XmlObjectBase.h"
#include "zvxmllib/binding/context/SerializationContext.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/foundation/Encoder.h"
#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/json/Failures.h"
#include "zvxmllib/json/JsonContext.h"

namespace ZvXmlLib16 {

// Where the JSON has no namespaces there are none to match. The context, which is the caller's, says so as
// long as this lives.
class IgnoredNamespaces {
public:
    explicit IgnoredNamespaces(CSerializationContext const& ctx) noexcept
        : m_field(ctx.m_ignoreNamespaces), m_before(m_field) {
        if (ctx.GetJsonContext().GetSupportRoundtrip() != JsonRoundTrip_Full)
            m_field = true;
    }
    IgnoredNamespaces(IgnoredNamespaces const&) = delete;
    IgnoredNamespaces& operator=(IgnoredNamespaces const&) = delete;
    ~IgnoredNamespaces() { m_field = m_before; }

private:
    bool& m_field;
    bool const m_before;
};

void CXmlObjectBase::FromJsonFile(char const* fileName, CSerializationContext const& ctx) {
    detail::CheckGeneratorVersion();
    CXmlDocument document(ctx);
    FromJson_Int(document.LoadJsonFile(fileName), ctx);
}

void CXmlObjectBase::FromJson(wchar_t const* text, CSerializationContext const& ctx) {
    detail::CheckGeneratorVersion();
    CXmlDocument document(ctx);
    FromJson_Int(document.LoadJson(text), ctx);
}

void CXmlObjectBase::FromJson(char16_t const* text, CSerializationContext const& ctx) {
    detail::CheckGeneratorVersion();
    CXmlDocument document(ctx);
    FromJson_Int(document.LoadJson(text), ctx);
}

void CXmlObjectBase::FromJson(char const* text, CSerializationContext const& ctx) {
    detail::CheckGeneratorVersion();
    CXmlDocument document(ctx);
    FromJson_Int(document.LoadJson(text), ctx);
}

void CXmlObjectBase::FromJsonStream(CBinaryData const& data, CSerializationContext const& ctx) {
    // The slot takes a pointer to bytes that it does not change.
    FromJsonStream(const_cast<unsigned char*>(data.GetData()), data.GetLength(), ctx);
}

void CXmlObjectBase::FromJsonStream(unsigned char* const data, std::uint32_t length,
                                    CSerializationContext const& ctx) {
    detail::CheckGeneratorVersion();
    CXmlDocument document(ctx);
    FromJson_Int(document.LoadJsonStream(data, length), ctx);
}

void CXmlObjectBase::FromJson_Int(CBinaryData const& xml, CSerializationContext const& ctx) {
    IgnoredNamespaces const ignored(ctx);
    try {
        FromXmlStream(xml, ctx);
    } catch (CZvException const& cause) {
        FailReadingConvertedXml(Utf8ToLocal(reinterpret_cast<char const*>(xml.GetData()), xml.GetLength()),
                                cause);
    }
}

} // namespace ZvXmlLib16
