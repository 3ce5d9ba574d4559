// The entry points that write XML: their frame, encodings, compression and files.
#include "tests/support/Bytes.h"
#include "tests/support/LocalEncoding.h"
#include "tests/support/MessageOf.h"
#include "tests/support/Script.h"
#include "tests/support/TemporaryFile.h"
#include "tests/support/WrittenObject.h"
#include "zvxmllib/streams/AsyncFiles.h"
#include "zvxmllib/streams/ZvZip.h"

#include <gmock/gmock.h>

#include <fstream>

using namespace ZvXmlLib16;

namespace {

CSmartPtr<WrittenObject> Order(std::string const& text) {
    return new WrittenObject(Script("(a '" + text + "')"));
}

TEST(ToXml, GivesTheContextsOptionsToTheWriter) {
    CSerializationContext ctx;
    ctx.SetIndentChars(" ");
    ctx.SetWriteDefaultElementValues(true);
    CSmartPtr<WrittenObject> const object(new WrittenObject([](CXmlWriter& w) {
        w.WriteElementStart("a", "");
        w.WriteElementStart("b", "");
        w.WriteElementValue("x", ItemType_string, true);
        w.WriteElementEnd();
        w.WriteElementEnd();
    }));
    EXPECT_EQ(object->ToXml(true, true, EOLType_CRLF, ctx),
              "<?xml version=\"1.0\"?>\r\n<a>\r\n <b>x</b>\r\n</a>\r\n");
    ctx.SetIndentChars(nullptr);
    EXPECT_EQ(object->ToXml(false, true, EOLType_LF, ctx), "<a>\n<b>x</b>\n</a>\n");
}

TEST(ToXml, GivesTheDeclarationAloneForAnObjectThatWritesNothing) {
    CSmartPtr<WrittenObject> const object(new WrittenObject);
    EXPECT_EQ(object->ToXml(true, false, EOLType_LF, CSerializationContext()), "<?xml version=\"1.0\"?>\n");
    EXPECT_EQ(MessageOf<CZvException>([] { XmlOf({}, false, static_cast<EOLType>(7)); }),
              "Invalid EOL type.");
}

TEST(ToXmlStream, GivesBytesOfTheEncodingWithoutAMark) {
    LocalEncoding const local(65001);
    CSerializationContext const ctx;
    CSmartPtr<WrittenObject> const object = Order("\xC3\xA4");
    auto const bytes = [&](XmlEncoding encoding) {
        return TextOf(object->ToXmlStream(true, false, encoding, EOLType_LF, ctx, CompressionType_None));
    };
    EXPECT_EQ(bytes(XmlEncoding_UTF8), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a>\xC3\xA4</a>");
    std::string const text = Utf16("<a>") + std::string("\xE4\0", 2) + Utf16("</a>");
    EXPECT_EQ(bytes(XmlEncoding_UTF16), Utf16("<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n") + text);
    EXPECT_EQ(bytes(XmlEncoding_UTF16NoDeclaration), Utf16("<?xml version=\"1.0\"?>\n") + text);
    EXPECT_EQ(MessageOf<CZvException>([&] { bytes(XmlEncoding_None); }),
              "Unknown Encoding, select UTF-8 (contact our support team)");
}

TEST(ToXmlStream, Compresses) {
    CSerializationContext const ctx;
    std::string const text(1000, 'x');
    for (CompressionType const type : {CompressionType_GZip, CompressionType_ZLib}) {
        CBinaryData const data =
            Order(text)->ToXmlStream(false, false, XmlEncoding_UTF8, EOLType_LF, ctx, type);
        EXPECT_LT(data.GetLength(), 100u);
        CBinaryData decompressed;
        ASSERT_TRUE(CZvZip::TryDecompress(data.GetData(), data.GetLength(), decompressed)) << type;
        EXPECT_EQ(TextOf(decompressed), "<a>" + text + "</a>");
    }
}

TEST(ToXmlFile, MarksSixteenBitTextButNotCompressedBytes) {
    CSerializationContext const ctx;
    TemporaryFile const file;
    CSmartPtr<WrittenObject> const object = Order(std::string(1000, 'x'));
    struct Row {
        XmlEncoding encoding;
        CompressionType compression;
        std::string start;
    };
    Row const rows[] = {
        {XmlEncoding_UTF8, CompressionType_None, "<a>x"},
        {XmlEncoding_UTF16, CompressionType_None, "\xFF\xFE" + Utf16("<a>x")},
        {XmlEncoding_UTF16NoDeclaration, CompressionType_None, "\xFF\xFE" + Utf16("<a>x")},
        {XmlEncoding_UTF8, CompressionType_GZip, "\x1F\x8B"},
        {XmlEncoding_UTF16, CompressionType_GZip, "\x1F\x8B"},
    };
    for (Row const& row : rows) {
        object->ToXmlFile(file.Path(), false, false, row.encoding, EOLType_LF, ctx, row.compression);
        EXPECT_THAT(file.Content(), testing::StartsWith(row.start)) << row.encoding << row.compression;
    }
}

TEST(ToXmlFile, WritesTheSameFileWhileTheTextIsBeingMade) {
    CSerializationContext const ctx;
    std::string script = "(a";
    for (int i = 0; i < 5000; ++i)
        script += "(b '\xC3\xA4" + std::to_string(i) + "')";
    CSmartPtr<WrittenObject> const object(new WrittenObject(Script(script + ")")));
    for (XmlEncoding const encoding : {XmlEncoding_UTF8, XmlEncoding_UTF16, XmlEncoding_UTF16NoDeclaration}) {
        for (CompressionType const compression : {CompressionType_None, CompressionType_GZip}) {
            TemporaryFile const whole;
            object->ToXmlFile(whole.Path(), true, true, encoding, EOLType_LF, ctx, compression);
            TemporaryFile const streamed;
            AsyncToXmlFile(true);
            object->ToXmlFile(streamed.Path(), true, true, encoding, EOLType_LF, ctx, compression);
            AsyncToXmlFile(false);
            EXPECT_TRUE(whole.Content() == streamed.Content()) << encoding << compression;
            EXPECT_FALSE(whole.Content().empty());
        }
    }
}

TEST(ToXmlFile, LeavesWhatWasWrittenBeforeTheObjectFailed) {
    CSmartPtr<WrittenObject> const object(new WrittenObject([](CXmlWriter& w) {
        w.WriteElementStart("a", "");
        w.WriteElementValue(std::string(5000, 'x'), ItemType_string, false);
        throw CZvException("of the object");
    }));
    TemporaryFile const file;
    AsyncToXmlFile(true);
    EXPECT_EQ(MessageOf<CZvException>([&] {
                  object->ToXmlFile(file.Path(), false, false, XmlEncoding_UTF8, EOLType_LF,
                                    CSerializationContext(), CompressionType_None);
              }),
              "of the object");
    AsyncToXmlFile(false);
    EXPECT_EQ(file.Content(), "<a>" + std::string(5000, 'x'));
}

TEST(ToXmlFile, ReportsWhatItCannotWrite) {
    CSerializationContext const ctx;
    EXPECT_EQ(MessageOf<CZvException>([&] {
                  Order("x")->ToXmlFile("/nowhere/at all", false, false, XmlEncoding_UTF8, EOLType_LF, ctx,
                                        CompressionType_None);
              }),
              "Failed to write data to the file [/nowhere/at all] error [0x00000002]");
    TemporaryFile const file;
    EXPECT_EQ(MessageOf<CZvException>([&] {
                  Order("x")->ToXmlFile(file.Path(), false, false, XmlEncoding_UTF8, EOLType_LF, ctx,
                                        CompressionType_ZLib);
              }),
              "ZLIB Compression only available for To Stream methods.");
    EXPECT_FALSE(std::ifstream(file.Path()).good());
}

// An object that gives its bytes itself.
class PreparedObject : public WrittenObject {
public:
    CBinaryData ToXmlStream(bool, bool, XmlEncoding, EOLType, CSerializationContext const&,
                            CompressionType) override {
        return CBinaryData("prepared");
    }
};

TEST(ToXmlFile, TakesTheBytesOfAnObjectThatReplacesTheStreamForm) {
    TemporaryFile const file;
    CSmartPtr<PreparedObject> const object(new PreparedObject);
    object->ToXmlFile(file.Path(), false, false, XmlEncoding_UTF8, EOLType_LF, CSerializationContext(),
                      CompressionType_None);
    EXPECT_EQ(file.Content(), "prepared");
}

} // namespace
