// The text sink that writes its file while text is still coming.
#include "zvxmllib/streams/FileTextStream.h"

#include "tests/support/MessageOf.h"
#include "tests/support/TemporaryFile.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace ZvXmlLib16;

namespace {

TEST(FileTextStream, WritesPortionsInOrder) {
    TemporaryFile const file;
    std::string expected;
    CFileTextStream stream(file.Path(), XmlEncoding_UTF8);
    stream.Open();
    stream.Flush(); // nothing to send
    for (int i = 0; i < 300; ++i) {
        std::string const portion(static_cast<std::size_t>(1 + i * 37 % 9000),
                                  static_cast<char>('a' + i % 26));
        stream.Append(portion);
        stream.Flush();
        expected += portion;
    }
    stream.Append("the rest");
    stream.Close();
    EXPECT_TRUE(file.Content() == expected + "the rest");

    // The same sink again: the file begins anew, without what was left in the buffer.
    stream.Append("left");
    stream.Open();
    stream.Append("\xC3\xA4");
    stream.Close();
    EXPECT_EQ(file.Content(), "\xC3\xA4");
}

TEST(FileTextStream, WritesToAPipe) {
    TemporaryFile const pipe;
    ASSERT_EQ(::mkfifo(pipe.Path(), 0600), 0);
    int const reader = ::open(pipe.Path(), O_RDWR); // so that neither end waits for the other
    CFileTextStream stream(pipe.Path(), XmlEncoding_UTF8);
    stream.Open();
    for (char const* portion : {"in ", "order"}) {
        stream.Append(portion);
        stream.Flush();
    }
    stream.Close();
    char received[100];
    EXPECT_EQ(std::string(received, static_cast<std::size_t>(::read(reader, received, sizeof received))),
              "in order");
    ::close(reader);
}

TEST(FileTextStream, SaysWhyItCannotWrite) {
    CFileTextStream absent("/nowhere/at/all", XmlEncoding_UTF8);
    EXPECT_EQ(MessageOf<CZvException>([&] { absent.Open(); }),
              "Failed to write data to the file [/nowhere/at/all] error [0x00000002]");
    CFileTextStream unnamed(nullptr, XmlEncoding_UTF8);
    EXPECT_EQ(MessageOf<CZvException>([&] { unnamed.Open(); }),
              "Failed to write data to the file [] error [0x00000002]");

    // The failure of a write comes with what waits for it: the next portion, or the end.
    char const* const kFull = "Failed to write data to the file. Error [0x0000001C]";
    CFileTextStream full("/dev/full", XmlEncoding_UTF8);
    full.Open();
    full.Append("x");
    full.Flush();
    full.Append("y");
    EXPECT_EQ(MessageOf<CZvException>([&] { full.Flush(); }), kFull);
    CFileTextStream atEnd("/dev/full", XmlEncoding_UTF8);
    atEnd.Open();
    atEnd.Append("x");
    EXPECT_EQ(MessageOf<CZvException>([&] { atEnd.Close(); }), kFull);

    // Neither before the file is open, nor after a failure.
    for (bool const hasFailed : {false, true}) {
        CFileTextStream closed("/dev/full", XmlEncoding_UTF8);
        if (hasFailed) {
            closed.Open();
            closed.Append("x");
            EXPECT_THROW(closed.Close(), CZvException);
        }
        closed.Append("x");
        EXPECT_EQ(MessageOf<CZvException>([&] { closed.Flush(); }),
                  "Failed to write data to the file. Error [0x00000009]");
    }
}

TEST(FileTextStream, KeepsWhatWasFlushedWhenItIsNotClosed) {
    TemporaryFile const file;
    {
        CFileTextStream stream(file.Path(), XmlEncoding_UTF8);
        stream.Open();
        stream.Append("sent");
        stream.Flush();
        stream.Append("kept back");
    }
    EXPECT_EQ(file.Content(), "sent");
    CFileTextStream noEncoding(file.Path(), XmlEncoding_None);
    noEncoding.Open();
    noEncoding.Append("x");
    EXPECT_EQ(MessageOf<CZvException>([&] { noEncoding.Close(); }),
              "Unknown Encoding, select UTF-8 (contact our support team)");
}

} // namespace
