// Loading a file by chunks, one read ahead.
#include "Documents.h"

#include "tests/support/TemporaryFile.h"
#include "zvxmllib/streams/AsyncFiles.h"
#include "zvxmllib/streams/ZvZip.h"
#include "zvxmllib/values/BinaryData.h"

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
    CBinaryData packed(whole.c_str());
    CZvZip::Compress(packed, CompressionType_GZip);
    std::string const gzip(packed.GetData(), packed.GetData() + packed.GetLength());
    struct Row {
        std::string content;
        char const* message;
    };
    for (Row const& row :
         {Row{"", "no element found at line 1"}, Row{gzip, "not well-formed (invalid token) at line 1"},
          Row{broken, "not well-formed (invalid token) at line 1"},
          Row{"<r>" + std::string(kChunk - 3, 'x'), "no element found at line 1"}}) {
        TemporaryFile const file(row.content);
        CXmlDocument document;
        document.LoadXml("<before/>");
        EXPECT_EQ(MessageOf([&] { document.Load(file.Path()); }), row.message);
        EXPECT_EQ(document.GetDocumentElement(), nullptr);
        TemporaryFile const good(whole);
        document.Load(good.Path());
        EXPECT_NE(document.GetDocumentElement(), nullptr);
    }
}

TEST_F(OverlappedLoad, PassesOnWhatTheCallbackThrows) {
    TemporaryFile const file(DocumentOf(4 * kChunk));
    CXmlDocument own(+[](CXmlElement*) -> bool { throw CZvValidationException("refused", "/r/n"); });
    try {
        own.Load(file.Path());
        FAIL();
    } catch (CZvValidationException const& failure) {
        EXPECT_EQ(failure.GetFullMessage(), CZvValidationException("refused", "/r/n").GetFullMessage());
    }
    CXmlDocument foreign(+[](CXmlElement*) -> bool { throw std::logic_error("of the application"); });
    EXPECT_THROW(foreign.Load(file.Path()), std::logic_error);
    EXPECT_EQ(foreign.GetDocumentElement(), nullptr);
}

TEST_F(OverlappedLoad, SaysWhichFileItCannotOpen) {
    CXmlDocument document;
    EXPECT_EQ(MessageOf([&] { document.Load("/nowhere/at/all.xml"); }),
              "Failed to open the file [/nowhere/at/all.xml] Error [0x00000002]");
    EXPECT_EQ(MessageOf([&] { document.Load(nullptr); }), "Failed to open the file [] Error [0x00000002]");
    EXPECT_EQ(MessageOf([&] { document.Load("/tmp"); }), "Failed to open the file [/tmp] Error [0x00000015]");
    // A file that opens and cannot be read.
    EXPECT_EQ(MessageOf([&] { document.Load("/proc/self/mem"); }),
              "Failed to read the contents of the file [/proc/self/mem] Error [0x00000005]");
}

} // namespace
} // namespace ZvXmlLib16
