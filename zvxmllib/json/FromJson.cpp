// The JSON reading entry points of the object base.
#include "zvxmllib/binding/GeneratorVersion.h"
#include "zvxmllib/binding/KeptOperations.h"
#include "zvxmllib/binding/XmlObjectBase.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/json/Failures.h"
#include "zvxmllib/json/JsonContext.h"
#include "zvxmllib/json/JsonInput.h"
#include "zvxmllib/json/JsonTextReader.h"
#include "zvxmllib/json/PlainJsonReader.h"
#include "zvxmllib/json/StrictJsonReading.h"
#include "zvxmllib/values/binary/Encoder.h"

namespace ZvXmlLib16 {

// If the JSON has no namespaces there are none to match. The caller's context ignores them while this object
// lives.
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
    detail::SharedFlag& m_field;
    bool const m_before;
};

namespace {

#ifdef ZVXMLLIB_NO_PLAIN_READER
constexpr bool kReadsPlainJson = false;
#else
constexpr bool kReadsPlainJson = true;
#endif

// A class that has replaced the reading of XML bytes gets them. For all others the tree is made directly from
// the JSON where that gives the same tree as the XML text; the text is then made only for the message of a
// failure.
bool FillPlain(CXmlDocument& document, CXmlObjectBase const& object, std::string_view json,
               CSerializationContext const& ctx) {
    return kReadsPlainJson && detail::KeepsReadingOfBytes(object) &&
           PlainJsonReader::Fill(document, json, ctx);
}

std::string LocalTextOf(CBinaryData const& xml) {
    return Utf8ToLocal(reinterpret_cast<char const*>(xml.GetData()), xml.GetLength());
}

// A failure shows so much of the XML, since the whole may hold what is nobody's business.
constexpr std::size_t kShownXml = 200;

// `readTree` reads the object from a document.
template <class ReadTree>
void FromStrictJson(CXmlObjectBase& object, std::string_view json, CSerializationContext const& ctx,
                    ReadTree const& readTree) {
    CSerializationContext own(ctx);
    if (ctx.GetJsonContext().GetSupportRoundtrip() != JsonRoundTrip_Full)
        own.SetIgnoreNamespaces(true);
    CXmlDocument document(own);
    bool const isPlain = FillPlain(document, object, json, own);
    detail::JsonPlaces places;
    CBinaryData xml;
    if (!isPlain)
        xml = ConvertStrictJson(json, ctx, places);
    // What fails has its place in the XML, which the caller does not have.
    auto const moveToJson = [&places](std::uint64_t& line, std::uint64_t& column) {
        detail::NodePosition const place = places.Find(column);
        line = place.line;
        column = place.column;
    };
    try {
        if (isPlain)
            readTree(document, own);
        else
            object.FromXmlStream(xml, own);
        ctx.TakeFailures(own);
    } catch (CZvException& cause) {
        if (isPlain)
            xml = ConvertStrictJson(json, ctx, places);
        own.GetFailureNotes().MovePlaces(moveToJson);
        ctx.TakeFailures(own);
        std::uint64_t line = cause.GetLine();
        std::uint64_t column = cause.GetColumn();
        moveToJson(line, column);
        cause.SetPosition(line, column);
        FailReadingConvertedXml(LocalTextOf(xml).substr(0, kShownXml), cause);
    }
}

} // namespace

void CXmlObjectBase::FromJsonFile(char const* fileName, CSerializationContext const& ctx) {
    detail::CheckGeneratorVersion();
    FromJson_Int(JsonInput::OfFile(fileName, ctx.GetStrict()).GetText(), ctx);
}

void CXmlObjectBase::FromJson(wchar_t const* text, CSerializationContext const& ctx) {
    detail::CheckGeneratorVersion();
    FromJson_Int(JsonInput::OfText(text, ctx.GetStrict()).GetText(), ctx);
}

void CXmlObjectBase::FromJson(char16_t const* text, CSerializationContext const& ctx) {
    detail::CheckGeneratorVersion();
    FromJson_Int(JsonInput::OfText(text, ctx.GetStrict()).GetText(), ctx);
}

void CXmlObjectBase::FromJson(char const* text, CSerializationContext const& ctx) {
    detail::CheckGeneratorVersion();
    FromJson_Int(JsonInput::OfText(text, ctx.GetStrict()).GetText(), ctx);
}

void CXmlObjectBase::FromJsonStream(CBinaryData const& data, CSerializationContext const& ctx) {
    // The operation takes a non-const pointer, but does not change the bytes.
    FromJsonStream(const_cast<unsigned char*>(data.GetData()), data.GetLength(), ctx);
}

void CXmlObjectBase::FromJsonStream(unsigned char* const data, std::uint32_t length,
                                    CSerializationContext const& ctx) {
    detail::CheckGeneratorVersion();
    FromJson_Int(JsonInput::OfBytes(data, length, ctx.GetStrict()).GetText(), ctx);
}

void CXmlObjectBase::FromJson_Int(std::string_view json, CSerializationContext const& ctx) {
    if (ctx.GetStrict()) {
        FromStrictJson(*this, json, ctx, [this](CXmlDocument& document, CSerializationContext const& own) {
            ReadDocument(document, own);
        });
        return;
    }
    CXmlDocument document(ctx);
    if (FillPlain(document, *this, json, ctx)) {
        IgnoredNamespaces const ignored(ctx);
        try {
            ReadDocument(document, ctx);
        } catch (CZvException const& cause) {
            FailReadingConvertedXml(LocalTextOf(CJsonTextReader::ConvertToXml(json, ctx)), cause);
        }
        return;
    }
    CBinaryData const xml = CJsonTextReader::ConvertToXml(json, ctx);
    IgnoredNamespaces const ignored(ctx);
    try {
        FromXmlStream(xml, ctx);
    } catch (CZvException& cause) {
        cause.SetPosition(0, 0); // in the XML, which the caller does not have
        if (ctx.GetFailureLimit() != 0)
            ctx.GetFailureNotes().MovePlaces(
                [](std::uint64_t& line, std::uint64_t& column) { line = column = 0; });
        FailReadingConvertedXml(LocalTextOf(xml), cause);
    }
}

} // namespace ZvXmlLib16
