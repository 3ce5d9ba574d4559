// gzip and zlib: each row by the usual rules and by the strict ones.
#include "zvxmllib/streams/ZvZip.h"

#include "tests/support/Bytes.h"
#include "tests/support/MessageOf.h"
#include "zvxmllib/collections/Element.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/XmlDocument.h"

#include <gtest/gtest.h>

#include <string>

namespace ZvXmlLib16 {
namespace {

std::string Packed(std::string const& text, CompressionType type = CompressionType_GZip) {
    CBinaryData data = DataOf(text);
    CZvZip::Compress(data, type, true);
    return TextOf(data);
}

std::string ContentOf(std::string const& bytes, bool strict) {
    CBinaryData const data = DataOf(bytes);
    CBinaryData result;
    std::string content;
    std::string const failure = MessageOf<CZvException>([&] {
        content = CZvZip::TryDecompress(data.GetData(), data.GetLength(), result, strict) ? TextOf(result)
                                                                                          : "another format";
    });
    return failure == "nothing was thrown" ? content : failure;
}

TEST(StrictCompression, RefusesAStreamThatIsNotWhole) {
    std::string const gzip = Packed("<a>first</a>");
    std::string const zlib = Packed("<a>first</a>", CompressionType_ZLib);
    auto const changed = [](std::string bytes, std::size_t fromEnd) {
        bytes[bytes.size() - fromEnd] = static_cast<char>(bytes[bytes.size() - fromEnd] ^ 1);
        return bytes;
    };
    std::string const kOther = "another format";
    std::string const kCut = "Failed to decompress data. [Error Code: -5]";
    std::string const kDamaged = "Failed to decompress data. [Error Code: -3]";
    struct Row {
        std::string bytes;
        std::string usual;
        std::string strict;
    };
    int number = 0;
    for (Row const& row : {
             Row{gzip, "<a>first</a>", "<a>first</a>"},
             Row{zlib, "<a>first</a>", "<a>first</a>"},
             Row{gzip.substr(0, gzip.size() - 4), kOther, kCut},
             Row{gzip.substr(0, gzip.size() - 20), kOther, kCut},
             Row{gzip.substr(0, 3), kOther, kCut},
             Row{zlib.substr(0, zlib.size() - 1), kOther, kCut},
             Row{changed(gzip, 7), kOther, kDamaged}, // the check sum
             Row{changed(gzip, 1), kOther, kDamaged}, // the length
             Row{changed(zlib, 1), kOther, kDamaged},
             Row{std::string("\x78\xBB\x00\x00\x00\x01", 6), kOther, kDamaged}, // a dictionary
             Row{gzip + Packed(" and second") + Packed(""), "<a>first</a>", "<a>first</a> and second"},
             Row{gzip + Packed("second").substr(0, 12), "<a>first</a>", kCut},
             Row{gzip + "junk", "<a>first</a>", kDamaged},
             Row{gzip + std::string(1, '\0'), "<a>first</a>", kDamaged},
             Row{zlib + zlib, "<a>first</a>", kDamaged},
             Row{"<a/>", kOther, kOther},
             Row{"\x1F\x8B\x07 another method", kOther, kOther},
             Row{"h\x81 is a zlib header of 16 KiB", kOther, kOther},
             Row{"", kOther, kOther},
         }) {
        ++number;
        EXPECT_EQ(ContentOf(row.bytes, false), row.usual) << number;
        EXPECT_EQ(ContentOf(row.bytes, true), row.strict) << number;
    }
}

TEST(StrictCompression, KeepsADocumentThatDoesNotShrink) {
    CSerializationContext usual;
    CSerializationContext strict;
    strict.SetStrict(true);
    constexpr char const* kRefused = "Failed to compress data. [Error Code: 0]";
    using Write = CBinaryData (*)(CElement&, CSerializationContext const&, CompressionType);
    for (Write const write : {
             Write([](CElement&e, CSerializationContext const&ctx, CompressionType type) {
                 return e.ToXmlStream(false, false, XmlEncoding_UTF8, EOLType_LF, ctx, type);
             }),
             Write([](CElement&e, CSerializationContext const&ctx, CompressionType type) {
                 return e.ToJsonStream(false, XmlEncoding_UTF8, EOLType_LF, ctx, type);
             }),
             Write([](CElement&e, CSerializationContext const&ctx, CompressionType type) {
                 return e.ToFastInfosetStream(FInfoDecl_None, ctx, type);
             }),
         }) {
        for (CompressionType const type : {CompressionType_GZip, CompressionType_ZLib}) {
            CSmartPtr<CElement> const small(new CElement("a"));
            EXPECT_EQ(MessageOf<CZvException>([&] { write(*small, usual, type); }), kRefused);
            std::string const plain = TextOf(write(*small, strict, CompressionType_None));
            EXPECT_EQ(ContentOf(TextOf(write(*small, strict, type)), true), plain);
        }
    }
}

TEST(StrictCompression, IsThatOfEveryWayIn) {
    std::string const xml = Packed("<a>first</a>");
    std::string const json = Packed("{\"a\":1}");
    for (bool const strict : {false, true}) {
        CSerializationContext ctx;
        ctx.SetStrict(strict);
        char const* const failure =
            strict ? "Failed to decompress data. [Error Code: -3]" : "nothing was thrown";
        CBinaryData const xmlBytes = DataOf(xml + "junk");
        CBinaryData const jsonBytes = DataOf(json + "junk");
        CXmlDocument document(ctx);
        EXPECT_EQ(MessageOf<CZvException>(
                      [&] { document.LoadXmlStream(xmlBytes.GetData(), xmlBytes.GetLength()); }),
                  failure);
        EXPECT_EQ(MessageOf<CZvException>(
                      [&] { document.LoadJsonStream(jsonBytes.GetData(), jsonBytes.GetLength()); }),
                  failure);
        CSmartPtr<CElement> const element(new CElement("a"));
        EXPECT_EQ(MessageOf<CZvException>([&] {
                      element->FromJsonStream(const_cast<unsigned char*>(jsonBytes.GetData()),
                                              jsonBytes.GetLength(), ctx);
                  }),
                  failure);
    }
}

} // namespace
} // namespace ZvXmlLib16
