// XML text as a source of events.
#include "XmlSource.h"

#include "../Errors.h"
#include "Encodings.h"
#include "TagBuilder.h"

#include <expat.h>

#include <cstring>
#include <exception>
#include <new>
#include <string>
#include <type_traits>
#include <utility>

namespace zvxml {

namespace {

// The parser copies what it gets, so it gets no more than what stays in the cache.
constexpr std::string_view kTypeStart = "<!DOCTYPE";
constexpr std::size_t kSlice = std::size_t{1} << 16U;

struct ParserDeleter {
    void operator()(XML_Parser parser) const noexcept { XML_ParserFree(parser); }
};
using ParserHandle = std::unique_ptr<std::remove_pointer_t<XML_Parser>, ParserDeleter>;

class XmlSource final : public Source {
public:
    explicit XmlSource(ByteInput& input) : m_input(input) {}

    void Read(Receiver& receiver) override;
    Place GetPlace() const override {
        return {XML_GetCurrentLineNumber(m_parser.get()), XML_GetCurrentColumnNumber(m_parser.get()) + 1};
    }

private:
    struct Handlers;

    void SetHandlers();
    void Parse(std::string_view data, bool isLast);
    void Start(char const* name, char const** attributes);
    void End(char const* name);
    void EndType();
    void TakeRest(std::string_view text);

    ByteInput& m_input;
    ParserHandle m_parser;
    Receiver* m_receiver = nullptr;
    TagBuilder m_tags;
    std::exception_ptr m_failure;
    std::string m_type; // of a document type that is being read
    bool m_isInType = false;
};

// No exception passes through the parser: the first one is kept, and the parser stops.
struct XmlSource::Handlers {
    template <class Action>
    static void Run(void* data, Action action) noexcept {
        XmlSource& source = *static_cast<XmlSource*>(data);
        if (source.m_failure != nullptr)
            return;
        try {
            action(source);
        } catch (DocumentError const& e) {
            Place const& place = e.GetPlace();
            source.m_failure = std::make_exception_ptr(
                DocumentError(e.what(), place.column == 0 ? source.GetPlace() : place));
        } catch (...) {
            source.m_failure = std::current_exception();
        }
        if (source.m_failure != nullptr)
            XML_StopParser(source.m_parser.get(), XML_FALSE);
    }

    static void XMLCALL Start(void* data, XML_Char const* name, XML_Char const** attributes) {
        Run(data, [=](XmlSource& s) { s.Start(name, attributes); });
    }
    static void XMLCALL End(void* data, XML_Char const* name) {
        Run(data, [=](XmlSource& s) { s.End(name); });
    }
    static void XMLCALL Text(void* data, XML_Char const* text, int length) {
        Run(data, [=](XmlSource& s) { s.m_receiver->Text({text, static_cast<std::size_t>(length)}); });
    }
    static void XMLCALL Comment(void* data, XML_Char const* text) {
        Run(data, [=](XmlSource& s) {
            if (!s.m_isInType)
                s.m_receiver->Comment(text);
            else
                s.m_type.append("<!--").append(text).append("-->");
        });
    }
    static void XMLCALL Instruction(void* data, XML_Char const* target, XML_Char const* text) {
        Run(data, [=](XmlSource& s) {
            if (!s.m_isInType)
                s.m_receiver->Instruction(target, text);
            else
                s.m_type.append("<?").append(target).append(" ").append(text).append("?>");
        });
    }
    static void XMLCALL StartSection(void* data) {
        Run(data, [](XmlSource& s) { s.m_receiver->StartSection(); });
    }
    static void XMLCALL EndSection(void* data) {
        Run(data, [](XmlSource& s) { s.m_receiver->EndSection(); });
    }
    static void XMLCALL Declaration(void* data, XML_Char const* version, XML_Char const*, int) {
        if (version != nullptr)
            Run(data, [](XmlSource& s) { s.m_receiver->XmlDeclaration(); });
    }
    static void XMLCALL EndType(void* data) {
        Run(data, [](XmlSource& s) { s.EndType(); });
    }
    static void XMLCALL Rest(void* data, XML_Char const* text, int length) {
        Run(data, [=](XmlSource& s) { s.TakeRest({text, static_cast<std::size_t>(length)}); });
    }
    static void XMLCALL SkippedEntity(void* data, XML_Char const* name, int isParameterEntity) {
        if (isParameterEntity != 0)
            return;
        Run(data, [=](XmlSource&) {
            throw DocumentError("the entity '" + std::string(name) + "' is not read, and would be lost");
        });
    }
    static int XMLCALL ExternalEntity(XML_Parser parser, XML_Char const*, XML_Char const*,
                                      XML_Char const* file, XML_Char const*) {
        Run(XML_GetUserData(parser), [=](XmlSource&) {
            throw DocumentError("the external entity '" + std::string(file == nullptr ? "" : file) +
                                "' is not read, and would be lost");
        });
        return XML_STATUS_ERROR;
    }
    static int XMLCALL UnknownEncoding(void*, XML_Char const* name, XML_Encoding* encoding) {
        return FillEncoding(name, *encoding) ? XML_STATUS_OK : XML_STATUS_ERROR;
    }
};

void XmlSource::SetHandlers() {
    XML_Parser const parser = m_parser.get();
    XML_SetUserData(parser, this);
    XML_SetElementHandler(parser, Handlers::Start, Handlers::End);
    XML_SetCharacterDataHandler(parser, Handlers::Text);
    XML_SetCommentHandler(parser, Handlers::Comment);
    XML_SetProcessingInstructionHandler(parser, Handlers::Instruction);
    XML_SetCdataSectionHandler(parser, Handlers::StartSection, Handlers::EndSection);
    XML_SetXmlDeclHandler(parser, Handlers::Declaration);
    XML_SetEndDoctypeDeclHandler(parser, Handlers::EndType);
    XML_SetDefaultHandlerExpand(parser, Handlers::Rest);
    XML_SetSkippedEntityHandler(parser, Handlers::SkippedEntity);
    XML_SetExternalEntityRefHandler(parser, Handlers::ExternalEntity);
    XML_SetUnknownEncodingHandler(parser, Handlers::UnknownEncoding, nullptr);
}

void XmlSource::Read(Receiver& receiver) {
    m_receiver = &receiver;
    m_tags = TagBuilder();
    m_failure = nullptr;
    m_isInType = false;
    m_parser.reset(XML_ParserCreate(nullptr));
    if (m_parser == nullptr)
        throw std::bad_alloc();
    SetHandlers();
    m_input.Rewind();
    for (;;) {
        std::string_view data = m_input.Read();
        if (data.empty())
            break;
        for (; data.size() > kSlice; data.remove_prefix(kSlice))
            Parse(data.substr(0, kSlice), false);
        Parse(data, false);
    }
    Parse({}, true);
    receiver.Finish();
}

void XmlSource::Parse(std::string_view data, bool isLast) {
    XML_Parser const parser = m_parser.get();
    XML_Status const status =
        XML_Parse(parser, data.data(), static_cast<int>(data.size()), isLast ? XML_TRUE : XML_FALSE);
    if (m_failure != nullptr)
        std::rethrow_exception(std::exchange(m_failure, nullptr));
    if (status != XML_STATUS_ERROR)
        return;
    XML_Error const code = XML_GetErrorCode(parser);
    if (code == XML_ERROR_NO_MEMORY)
        throw std::bad_alloc();
    throw DocumentError(XML_ErrorString(code), GetPlace());
}

void XmlSource::Start(char const* name, char const** attributes) {
    m_tags.Begin(name);
    for (; *attributes != nullptr; attributes += 2)
        m_tags.AddAttribute(attributes[0], attributes[1]);
    m_receiver->Start(m_tags.Finish());
}

void XmlSource::End(char const* name) {
    m_receiver->End(name);
    m_tags.Close();
}

void XmlSource::EndType() {
    m_isInType = false;
    m_type += '>';
    m_receiver->Type({m_type});
}

// The parser gives here what has no handler: of the document type all but comments, instructions and the end.
void XmlSource::TakeRest(std::string_view text) {
    if (!m_isInType && text == kTypeStart) {
        m_isInType = true;
        m_type.clear();
    }
    if (m_isInType)
        m_type += text;
}

} // namespace

std::unique_ptr<Source> MakeXmlSource(ByteInput& input) {
    return std::make_unique<XmlSource>(input);
}

} // namespace zvxml
