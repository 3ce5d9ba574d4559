// The entry points that write streams and files, by format: encodings, marks, compression, failures.
#include "tests/support/Bytes.h"
#include "tests/support/LocalEncoding.h"
#include "tests/support/MessageOf.h"
#include "tests/support/PlainContext.h"
#include "tests/support/Script.h"
#include "tests/support/TemporaryFile.h"
#include "tests/support/WrittenObject.h"
#include "zvxmllib/streams/AsyncFiles.h"
#include "zvxmllib/streams/ZvZip.h"

#include <gmock/gmock.h>

using namespace ZvXmlLib16;

namespace {

struct Format {
    char const* name;
    bool isText, hasMark;
    CBinaryData (*toStream)(WrittenObject&, XmlEncoding, CompressionType);
    void (*toFile)(WrittenObject&, char const*, XmlEncoding, CompressionType);
};

Format const kFormats[] = {{"XML", true, true,
                            [](WrittenObject& o, XmlEncoding e, CompressionType c) {
                                return o.ToXmlStream(true, false, e, EOLType_LF, plainContext, c);
                            },
                            [](WrittenObject& o, char const* file, XmlEncoding e, CompressionType c) {
                                o.ToXmlFile(file, true, false, e, EOLType_LF, plainContext, c);
                            }},
                           {"JSON", true, false,
                            [](WrittenObject& o, XmlEncoding e, CompressionType c) {
                                return o.ToJsonStream(false, e, EOLType_LF, plainContext, c);
                            },
                            [](WrittenObject& o, char const* file, XmlEncoding e, CompressionType c) {
                                o.ToJsonFile(file, false, e, EOLType_LF, plainContext, c);
                            }},
                           {"Fast Infoset", false, false,
                            [](WrittenObject& o, XmlEncoding, CompressionType c) {
                                return o.ToFastInfosetStream(FInfoDecl_None, plainContext, c);
                            },
                            [](WrittenObject& o, char const* file, XmlEncoding, CompressionType c) {
                                o.ToFastInfosetFile(file, FInfoDecl_None, plainContext, c);
                            }}};

TEST(EntryPoints, GiveStreamsTheBytesOfTheEncodingWithoutAMark) {
    LocalEncoding const local(65001);
    CSmartPtr<WrittenObject> const object(new WrittenObject(Script("(a '\xC3\xA4')")));
    auto const bytes = [&](Format const& format, XmlEncoding encoding) {
        return TextOf(format.toStream(*object, encoding, CompressionType_None));
    };
    std::string const umlaut("\xE4\0", 2);
    Format const& xml = kFormats[0];
    EXPECT_EQ(bytes(xml, XmlEncoding_UTF8), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<a>\xC3\xA4</a>");
    EXPECT_EQ(bytes(xml, XmlEncoding_UTF16),
              Utf16("<?xml version=\"1.0\" encoding=\"UTF-16\"?>\n<a>") + umlaut + Utf16("</a>"));
    EXPECT_EQ(bytes(xml, XmlEncoding_UTF16NoDeclaration),
              Utf16("<?xml version=\"1.0\"?>\n<a>") + umlaut + Utf16("</a>"));
    EXPECT_EQ(bytes(kFormats[1], XmlEncoding_UTF8), "{\"a\": \"\xC3\xA4\"}");
    for (XmlEncoding const encoding : {XmlEncoding_UTF16, XmlEncoding_UTF16NoDeclaration})
        EXPECT_EQ(bytes(kFormats[1], encoding), Utf16("{\"a\": \"") + umlaut + Utf16("\"}"));
    for (int const unknown : {0, 4, -1})
        EXPECT_EQ(MessageOf<CZvException>([&] { bytes(xml, static_cast<XmlEncoding>(unknown)); }),
                  "Unknown Encoding, select UTF-8 (contact our support team)");
}

// A file is its stream with a mark in front, also where it is written while the text is being made.
TEST(EntryPoints, WriteTheSameToStreamsAndFilesPlainAndCompressed) {
    std::string script = "(a";
    for (int i = 0; i < 5000; ++i)
        script += "(b '\xC3\xA4" + std::to_string(i) + "')";
    CSmartPtr<WrittenObject> const object(new WrittenObject(Script(script + ")")));
    TemporaryFile const file;
    for (Format const& format : kFormats) {
        for (XmlEncoding const encoding :
             {XmlEncoding_UTF8, XmlEncoding_UTF16, XmlEncoding_UTF16NoDeclaration}) {
            std::string const what = format.name + std::to_string(encoding);
            std::string const plain = TextOf(format.toStream(*object, encoding, CompressionType_None));
            for (CompressionType const type : {CompressionType_GZip, CompressionType_ZLib}) {
                CBinaryData const packed = format.toStream(*object, encoding, type);
                CBinaryData unpacked;
                ASSERT_TRUE(CZvZip::TryDecompress(packed.GetData(), packed.GetLength(), unpacked)) << what;
                EXPECT_TRUE(TextOf(unpacked) == plain) << what;
                EXPECT_EQ(packed.GetData()[0], type == CompressionType_GZip ? 0x1F : 0x78) << what;
            }
            for (bool const isAsync : {false, true}) {
                AsyncToXmlFile(isAsync);
                format.toFile(*object, file.Path(), encoding, CompressionType_None);
                bool const isMarked = format.hasMark && encoding != XmlEncoding_UTF8;
                EXPECT_TRUE(file.Content() == (isMarked ? "\xFF\xFE" : "") + plain) << what << isAsync;
                format.toFile(*object, file.Path(), encoding, CompressionType_GZip);
                EXPECT_TRUE(file.Content() ==
                            TextOf(format.toStream(*object, encoding, CompressionType_GZip)))
                    << what << isAsync;
            }
            AsyncToXmlFile(false);
        }
    }
}

TEST(EntryPoints, SayWhichFilesTheyCannotWrite) {
    CSmartPtr<WrittenObject> const object(new WrittenObject(Script("(a)")));
    TemporaryFile const file("before");
    for (Format const& format : kFormats) {
        auto const failure = [&](char const* name, CompressionType type) {
            return MessageOf<CZvException>([&] { format.toFile(*object, name, XmlEncoding_UTF8, type); });
        };
        for (bool const isAsync : {false, true}) {
            AsyncToXmlFile(isAsync);
            EXPECT_EQ(failure("/nowhere/at all", CompressionType_None),
                      "Failed to write data to the file [/nowhere/at all] error [0x00000002]")
                << format.name;
            EXPECT_EQ(failure(file.Path(), CompressionType_ZLib),
                      "ZLIB Compression only available for To Stream methods.")
                << format.name;
        }
        AsyncToXmlFile(false);
        EXPECT_EQ(file.Content(), "before");
    }
}

} // namespace
