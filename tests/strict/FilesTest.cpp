// The reading of files by the usual rules and by the strict ones.
#include "tests/strict/Twice.h"
#include "tests/support/Bytes.h"
#include "tests/support/TemporaryFile.h"
#include "zvxmllib/collections/Element.h"
#include "zvxmllib/document/XmlElement.h"
#include "zvxmllib/streams/AsyncFiles.h"

#include <gtest/gtest.h>

#include <thread>

#include <fcntl.h>
#include <sys/stat.h>

using namespace entries;

namespace {

std::string RootOf(char const* path, CSerializationContext const& ctx) {
    CXmlDocument document(ctx);
    try {
        document.Load(path);
        return document.GetDocumentElement()->GetText();
    } catch (CZvException const& failure) {
        return failure.GetMessage().substr(0, failure.GetMessage().find(" at line"));
    }
}

// Larger than what is read at once.
std::string LongText() {
    std::string text;
    for (int i = 0; text.size() < 300000; ++i)
        text += std::to_string(i * 7919LL % 1000003);
    return text;
}

TEST(StrictFiles, AreRecognisedAlsoWhereTheyAreReadByChunks) {
    std::string const text = LongText();
    CSmartPtr<CElement> const element(new CElement("r"));
    element->SetText(text.c_str());
    CSerializationContext const strict = Strict();
    std::string const xml =
        TextOf(element->ToXmlStream(true, false, XmlEncoding_UTF8, EOLType_LF, strict, CompressionType_None));
    auto const packed = [&](CompressionType type) {
        return TextOf(element->ToXmlStream(true, false, XmlEncoding_UTF8, EOLType_LF, strict, type));
    };
    auto const infoset = [&](CompressionType type) {
        return TextOf(element->ToFastInfosetStream(FInfoDecl_Version10, strict, type));
    };
    struct Row {
        std::string bytes;
        std::string usual;
        std::string strict;
    };
    std::string const malformed = "not well-formed (invalid token)";
    std::string const gzip = packed(CompressionType_GZip);
    AsyncFromXmlFile(true);
    int number = 0;
    for (Row const& row : {
             Row{xml, text, text},
             Row{gzip, malformed, text},
             Row{packed(CompressionType_ZLib), malformed, text},
             Row{infoset(CompressionType_None), "unknown encoding", text},
             Row{infoset(CompressionType_GZip), malformed, text},
             Row{gzip.substr(0, gzip.size() - 1), malformed, "Failed to decompress data. [Error Code: -5]"},
             Row{"", "no element found", "no element found"},
         }) {
        ++number;
        TemporaryFile const file(row.bytes);
        EXPECT_EQ(RootOf(file.Path(), CSerializationContext()), row.usual) << number;
        EXPECT_EQ(RootOf(file.Path(), strict), row.strict) << number;
    }
    AsyncFromXmlFile(false);
}

TEST(StrictFiles, ArePipesAsWell) {
    std::string const text = LongText();
    for (bool const isJson : {false, true}) {
        TemporaryFile const pipe;
        ASSERT_EQ(::mkfifo(pipe.Path(), 0600), 0);
        std::string const content = isJson ? "{\"r\": \"" + text + "\"}" : "<r>" + text + "</r>";
        std::thread writer([&] { std::ofstream(pipe.Path(), std::ios::binary) << content; });
        CSmartPtr<CElement> const element(new CElement(""));
        if (isJson)
            element->FromJsonFile(pipe.Path(), Strict());
        else
            element->FromXmlFile(pipe.Path(), Strict());
        writer.join();
        EXPECT_EQ(element->GetText(), text);
    }
    TemporaryFile const pipe;
    ASSERT_EQ(::mkfifo(pipe.Path(), 0600), 0);
    int const writer = ::open(pipe.Path(), O_RDWR); // so that neither end waits for the other
    EXPECT_EQ(RootOf(pipe.Path(), CSerializationContext()), "no element found");
    ::close(writer);
}

} // namespace
