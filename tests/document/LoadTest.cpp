// Ways into a document, and their failures.
#include "Documents.h"

#include "tests/support/Bytes.h"
#include "tests/support/TemporaryFile.h"
#include "zvxmllib/streams/AsyncFiles.h"
#include "zvxmllib/streams/ZvZip.h"

namespace ZvXmlLib16 {
namespace {

void LoadBytes(CXmlDocument& document, std::string const& bytes) {
    document.LoadXmlStream(reinterpret_cast<unsigned char const*>(bytes.data()),
                           static_cast<std::uint32_t>(bytes.size()));
}

std::string Compressed(std::string const& text, CompressionType type) {
    CBinaryData data = DataOf(text);
    CZvZip::Compress(data, type);
    return TextOf(data);
}

std::string const kXml = "<a>" + std::string(200, 'x') + "</a>";

TEST(DocumentLoad, RecognisesCompressionInFilesAndStreams) {
    for (std::string const& bytes :
         {kXml, Compressed(kXml, CompressionType_GZip), Compressed(kXml, CompressionType_ZLib),
          Compressed(kXml, CompressionType_GZip) + "behind the stream"}) {
        CXmlDocument document;
        LoadBytes(document, bytes);
        EXPECT_EQ(At(document, {}).GetText(), std::string(200, 'x'));
        TemporaryFile const file(bytes);
        for (int pass = 0; pass < 2; ++pass) {
            document.Load(file.Path());
            EXPECT_EQ(At(document, {}).GetText(), std::string(200, 'x'));
        }
    }
}

TEST(DocumentLoad, HandsDamagedCompressionToTheParser) {
    std::string const gzip = Compressed(kXml, CompressionType_GZip);
    std::string damaged = gzip;
    damaged[gzip.size() / 2] = static_cast<char>(~damaged[gzip.size() / 2]);
    for (std::string const& bytes : {gzip.substr(0, gzip.size() - 1), gzip.substr(0, 12), damaged}) {
        CXmlDocument document;
        EXPECT_EQ(MessageOf([&] { LoadBytes(document, bytes); }),
                  "not well-formed (invalid token) at line 1");
    }
}

TEST(DocumentLoad, ReadsTheEncodingsOfTheParser) {
    CXmlDocument document;
    LoadBytes(document, "<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE4</a>");
    EXPECT_EQ(At(document, {}).GetText(), "\xC3\xA4");
    LoadBytes(document, "\xEF\xBB\xBF<a>\xC3\xA4</a>");
    EXPECT_EQ(At(document, {}).GetText(), "\xC3\xA4");
    document.LoadXml(L"<a>\x20AC\x1F600</a>");
    EXPECT_EQ(At(document, {}).GetText(), "\xE2\x82\xAC\xF0\x9F\x98\x80");
    document.LoadXml(u"<?xml version='1.0' encoding='UTF-16'?><a>\u20AC</a>");
    EXPECT_EQ(At(document, {}).GetText(), "\xE2\x82\xAC");
}

TEST(DocumentLoad, ReportsWhatIsWrongWithTheText) {
    struct Row {
        std::string xml;
        char const* message;
    };
    std::string const manyLines(500'000, '\n');
    for (Row const& row :
         {Row{"<a><b></a>", "mismatched tag at line 1"}, Row{"<a>\n<b>\n</a>", "mismatched tag at line 3"},
          Row{"<a>", "no element found at line 1"}, Row{"plain", "syntax error at line 1"},
          Row{"<a>&undeclared;</a>", "undefined entity at line 1"},
          Row{"<a x='' x=''/>", "duplicate attribute at line 1"}, Row{"<p:a/>", "unbound prefix at line 1"},
          Row{"<a>\xC3</a>", "not well-formed (invalid token) at line 1"},
          Row{"<?xml version='1.0' encoding='EBCDIC-X'?><a/>", "unknown encoding at line 1"},
          Row{"<a/>" + manyLines + "<b/>", "junk after document element at line 500001"},
          Row{"<a>" + manyLines + "<b></a>", "mismatched tag at line 500001"}}) {
        CXmlDocument document;
        EXPECT_EQ(MessageOf([&] { document.LoadXml(row.xml.c_str()); }), row.message)
            << row.xml.substr(0, 60);
        // The next load finds a clean document.
        document.LoadXml("<ok/>");
        EXPECT_EQ(At(document, {}).GetLocalName(), "ok");
    }
    CXmlDocument document;
    EXPECT_EQ(MessageOf([&] { document.LoadXml(u"<?xml version='1.0' encoding='UTF-8'?><a/>"); }),
              "encoding specified in XML declaration is incorrect at line 1");
    // The parser joins names with this character, so it cannot stand in a URI.
    EXPECT_EQ(MessageOf([&] { document.LoadXml("<a xmlns='u|v'/>"); }), "syntax error at line 1");
}

TEST(DocumentLoad, StopsTheExpansionOfEntities) {
    std::string xml = "<!DOCTYPE a [<!ENTITY e0 'xxxxxxxxxx'>";
    for (int i = 1; i < 12; ++i) {
        std::string const inner = "&e" + std::to_string(i - 1) + ";";
        xml += "<!ENTITY e" + std::to_string(i) + " '";
        for (int j = 0; j < 10; ++j)
            xml += inner;
        xml += "'>";
    }
    xml += "]><a>&e11;</a>";
    CXmlDocument document;
    EXPECT_EQ(MessageOf([&] { document.LoadXml(xml.c_str()); }),
              "limit on input amplification factor (from DTD and entities) breached at line 1");
}

TEST(DocumentLoad, RefusesEmptyInput) {
    CXmlDocument document;
    EXPECT_EQ(MessageOf([&] { document.LoadXml(""); }), "XML String is empty!");
    EXPECT_EQ(MessageOf([&] { document.LoadXml(L""); }), "XML String is empty!");
    EXPECT_EQ(MessageOf([&] { document.LoadXml(u""); }), "XML String is empty!");
    EXPECT_EQ(MessageOf([&] { LoadBytes(document, ""); }), "XML Stream is empty!");
    TemporaryFile const empty("");
    EXPECT_EQ(MessageOf([&] { document.Load(empty.Path()); }), "no element found at line 1");
}

TEST(DocumentLoad, NamesTheFileThatCannotBeRead) {
    CXmlDocument document;
    for (bool const isOverlapped : {false, true}) {
        AsyncFromXmlFile(isOverlapped);
        EXPECT_EQ(MessageOf([&] { document.Load("/nowhere/at/all.xml"); }),
                  "Failed to open the file [/nowhere/at/all.xml] Error [0x00000002]");
        EXPECT_EQ(MessageOf([&] { document.Load(nullptr); }),
                  "Failed to open the file [] Error [0x00000002]");
        EXPECT_EQ(MessageOf([&] { document.Load("/tmp"); }),
                  "Failed to open the file [/tmp] Error [0x00000015]");
    }
    // A file that opens and cannot be read.
    EXPECT_EQ(MessageOf([&] { document.Load("/proc/self/mem"); }),
              "Failed to read the contents of the file [/proc/self/mem] Error [0x00000005]");
    AsyncFromXmlFile(false);
    TemporaryFile const large("");
    std::filesystem::resize_file(large.Path(), 0x100000000u);
    EXPECT_EQ(MessageOf([&] { document.Load(large.Path()); }),
              std::string("Failed to get the size of the file [") + large.Path() + "] Error [0x0000001b]");
}

} // namespace
} // namespace ZvXmlLib16
