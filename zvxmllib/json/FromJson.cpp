// The JSON reading entry points of the object base.
#include "zvxmllib/binding/GeneratorVersion.h"
#include "zvxmllib/binding/XmlObjectBase.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/json/Failures.h"
#include "zvxmllib/json/JsonContext.h"
#include "zvxmllib/json/JsonInput.h"
#include "zvxmllib/json/JsonTextReader.h"
#include "zvxmllib/json/JsonTreeWriter.h"
#include "zvxmllib/platform/VirtualFunction.h"
#include "zvxmllib/values/binary/Encoder.h"

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

namespace {

// An object that replaces nothing.
class PlainObject final : public CXmlObjectBase {
public:
    ~PlainObject() override = default;
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() override { return std::string(); }

private:
    std::string GetTargetNamespace() override { return std::string(); }
    void ToXml_Int(CXmlWriter*, bool, char const*, CSerializationContext const&, bool) const override {}
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* current, CSerializationContext const&,
                             bool) override {
        return current;
    }
};

// The address of what the object does for one of the two forms of FromXmlStream, null if it is not known.
template <class... Arguments>
void const* FromXmlStreamOf(CXmlObjectBase const& object) {
    using Form = void (CXmlObjectBase::*)(Arguments...);
    return platform::CodeBehind(object, static_cast<Form>(&CXmlObjectBase::FromXmlStream));
}

// True where it is certain that no derived class has replaced the reading of XML bytes.
bool HasOwnFromXmlStream(CXmlObjectBase const& object) {
    using Context = CSerializationContext const&;
    struct Code {
        explicit Code(CXmlObjectBase const& o)
            : ofData(FromXmlStreamOf<CBinaryData const&, Context>(o)),
              ofBytes(FromXmlStreamOf<unsigned char*, std::uint32_t, Context>(o)) {}
        void const* ofData;
        void const* ofBytes;
    };
    static Code const own{PlainObject()};
    Code const code(object);
    return code.ofData != nullptr && code.ofBytes != nullptr && code.ofData == own.ofData &&
           code.ofBytes == own.ofBytes;
}

std::string TextOf(CBinaryData const& xml) {
    return Utf8ToLocal(reinterpret_cast<char const*>(xml.GetData()), xml.GetLength());
}

} // namespace

void CXmlObjectBase::FromJsonFile(char const* fileName, CSerializationContext const& ctx) {
    detail::CheckGeneratorVersion();
    FromJson_Int(JsonInput::OfFile(fileName).GetText(), ctx);
}

void CXmlObjectBase::FromJson(wchar_t const* text, CSerializationContext const& ctx) {
    detail::CheckGeneratorVersion();
    FromJson_Int(JsonInput::OfText(text).GetText(), ctx);
}

void CXmlObjectBase::FromJson(char16_t const* text, CSerializationContext const& ctx) {
    detail::CheckGeneratorVersion();
    FromJson_Int(JsonInput::OfText(text).GetText(), ctx);
}

void CXmlObjectBase::FromJson(char const* text, CSerializationContext const& ctx) {
    detail::CheckGeneratorVersion();
    FromJson_Int(JsonInput::OfText(text).GetText(), ctx);
}

void CXmlObjectBase::FromJsonStream(CBinaryData const& data, CSerializationContext const& ctx) {
    // The slot takes a pointer to bytes that it does not change.
    FromJsonStream(const_cast<unsigned char*>(data.GetData()), data.GetLength(), ctx);
}

void CXmlObjectBase::FromJsonStream(unsigned char* const data, std::uint32_t length,
                                    CSerializationContext const& ctx) {
    detail::CheckGeneratorVersion();
    FromJson_Int(JsonInput::OfBytes(data, length).GetText(), ctx);
}

// A class that reads XML bytes in its own way gets them. For all others the tree is made straight from the
// JSON where it is the same as that of the XML text, which is made for the message of a failure then.
void CXmlObjectBase::FromJson_Int(std::string_view json, CSerializationContext const& ctx) {
    CXmlDocument document(ctx);
    if (HasOwnFromXmlStream(*this) && CJsonTreeWriter::Fill(document, json, ctx)) {
        IgnoredNamespaces const ignored(ctx);
        try {
            ReadDocument(document, ctx);
        } catch (CZvException const& cause) {
            FailReadingConvertedXml(TextOf(CJsonTextReader::ConvertToXml(json, ctx)), cause);
        }
        return;
    }
    CBinaryData const xml = CJsonTextReader::ConvertToXml(json, ctx);
    IgnoredNamespaces const ignored(ctx);
    try {
        FromXmlStream(xml, ctx);
    } catch (CZvException const& cause) {
        FailReadingConvertedXml(TextOf(xml), cause);
    }
}

} // namespace ZvXmlLib16
