// Loading a file by chunks, one read ahead.
#include "Documents.h"

#include "tests/support/Bytes.h"
#include "tests/support/TemporaryFile.h"
#include "zvxmllib/streams/AsyncFiles.h"
#include "zvxmllib/streams/ZvZip.h"

#include <stdexcept>

namespace ZvXmlLib16 {
namespace {

constexpr std::size_t kChunk = 0x20000;

class OverlappedLoad : public testing::Test {
protected:
    void SetUp() override { AsyncFromXmlFile(true); }
    void TearDown() override { AsyncFromXmlFile(false); }
};

// A document of exactly `size` bytes: records with their number as text, and filling in the last.
std::string DocumentOf(std::size_t size) {
    std::string text = "<r>";
    for (int i = 0; text.size() + 40 < size; ++i)
        text += "<n>" + std::to_string(i) + "</n>";
    std::string const tail = "</n></r>";
    text += "<n>";
    text.append(size - text.size() - tail.size(), 'x');
    return text + tail;
}

TEST_F(OverlappedLoad, GivesTheTreeOfThePlainLoadAtEverySize) {
    for (std::size_t const size :
         {std::size_t{100}, kChunk - 1, kChunk, kChunk + 1, 2 * kChunk, 5 * kChunk + 17}) {
        std::string const text = DocumentOf(size);
        TemporaryFile const file(text);
        CXmlDocument plain;
        plain.LoadXml(text.c_str());
        CXmlDocument document;
        for (int pass = 0; pass < 2; ++pass) {
            document.Load(file.Path());
            ASSERT_EQ(CountChildren(At(document, {})), CountChildren(At(plain, {}))) << size;
            CXmlElement const* expected = At(plain, {}).GetFirstElement();
            for (CXmlElement const* child = At(document, {}).GetFirstElement(); child != nullptr;
                 child = child->GetNextSiblingElement(), expected = expected->GetNextSiblingElement())
                ASSERT_EQ(child->GetText(), expected->GetText()) << size;
        }
    }
}

TEST_F(OverlappedLoad, TakesElementsOutByTheCallback) {
    static int calls = 0;
    calls = 0;
    CXmlDocument document(+[](CXmlElement* element) { return ++calls, element->GetParentElm() != nullptr; });
    TemporaryFile const file(DocumentOf(3 * kChunk));
    document.Load(file.Path());
    EXPECT_GT(calls, 10000);
    EXPECT_EQ(CountChildren(At(document, {})), 0);
}

TEST_F(OverlappedLoad, LeavesAnEmptyDocumentBehindAFailure) {
    std::string const whole = DocumentOf(3 * kChunk);
    std::string broken = whole;
    broken[2 * kChunk + 100] = '&';
    CBinaryData gzip = DataOf(whole);
    CZvZip::Compress(gzip, CompressionType_GZip);
    for (auto const& [content, message] :
         {std::pair(std::string(), "no element found at line 1"),
          std::pair(TextOf(gzip), "not well-formed (invalid token) at line 1"),
          std::pair(broken, "not well-formed (invalid token) at line 1"),
          std::pair("<r>" + std::string(kChunk - 3, 'x'), "no element found at line 1")}) {
        TemporaryFile const file(content);
        CXmlDocument document;
        document.LoadXml("<before/>");
        EXPECT_EQ(MessageOf([&] { document.Load(file.Path()); }), message);
        EXPECT_EQ(document.GetDocumentElement(), nullptr);
        TemporaryFile const good(whole);
        document.Load(good.Path());
        EXPECT_NE(document.GetDocumentElement(), nullptr);
    }
}

TEST_F(OverlappedLoad, PassesOnWhatTheCallbackThrows) {
    TemporaryFile const file(DocumentOf(4 * kChunk));
    CXmlDocument own(+[](CXmlElement*) -> bool { throw CZvValidationException("refused", "/r/n"); });
    EXPECT_EQ(MessageOf<CZvValidationException>([&] { own.Load(file.Path()); }), "refused\nPath: /r/n");
    CXmlDocument foreign(+[](CXmlElement*) -> bool { throw std::logic_error("of the application"); });
    EXPECT_THROW(foreign.Load(file.Path()), std::logic_error);
    EXPECT_EQ(foreign.GetDocumentElement(), nullptr);
}

} // namespace
} // namespace ZvXmlLib16
