// Inputs that are made to become large: each is read by a process that may take a certain amount of memory
// and no more. The amounts are small multiples of the inputs, or of what the limits allow.
#include "zvxmllib/collections/Element.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/streams/DecompressionLimit.h"
#include "zvxmllib/streams/TextStream.h"
#include "zvxmllib/streams/ZvZip.h"
#include "zvxmllib/values/binary/BinaryData.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <string>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace ZvXmlLib16;

namespace {

constexpr std::size_t kMiB = 1 << 20;

// The address space in use.
std::size_t InUse() {
    std::size_t pages = 0;
    if (std::FILE* const file = std::fopen("/proc/self/statm", "r")) {
        if (std::fscanf(file, "%zu", &pages) != 1)
            pages = 0;
        std::fclose(file);
    }
    return pages * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
}

// Whether a process that may take `mebibytes` beyond what it has does `action` without an exception.
bool FitsInto(std::size_t mebibytes, std::function<void()> const& action) {
    pid_t const child = ::fork();
    if (child == 0) {
        std::size_t const most = InUse() + mebibytes * kMiB;
        rlimit const limit{most, most};
        bool fits = ::setrlimit(RLIMIT_AS, &limit) == 0;
        try {
            action();
        } catch (...) {
            fits = false;
        }
        std::_Exit(fits ? 0 : 1);
    }
    int status = 0;
    return ::waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

void Load(std::string const& xml) {
    CXmlDocument document;
    document.LoadXmlStream(reinterpret_cast<unsigned char const*>(xml.data()),
                           static_cast<std::uint32_t>(xml.size()));
}

// How many bytes of memory a process needs at most for `action` beyond what it has.
std::size_t PeakOf(std::function<void()> const& action) {
    auto const peak = [] {
        rusage usage{};
        ::getrusage(RUSAGE_SELF, &usage);
        return static_cast<std::size_t>(usage.ru_maxrss) * 1024;
    };
    int ends[2];
    std::size_t bytes = ~std::size_t{0};
    if (::pipe(ends) != 0)
        return bytes;
    pid_t const child = ::fork();
    if (child == 0) {
        std::size_t const before = peak();
        action();
        bytes = peak() - before;
        std::_Exit(::write(ends[1], &bytes, sizeof bytes) == sizeof bytes ? 0 : 1);
    }
    ::close(ends[1]);
    if (::read(ends[0], &bytes, sizeof bytes) != sizeof bytes)
        bytes = ~std::size_t{0};
    ::close(ends[0]);
    ::waitpid(child, nullptr, 0);
    return bytes;
}

std::string Repeated(std::string const& text, int times) {
    std::string result;
    for (int i = 0; i < times; ++i)
        result += text;
    return result;
}

TEST(MemoryCap, OfDefaultAttributes) {
    std::string declarations;
    for (int i = 0; i < 50; ++i)
        declarations += " a" + std::to_string(i) + " CDATA '" + std::string(1000, 'x') + "'";
    std::string const xml =
        "<!DOCTYPE r [<!ATTLIST a" + declarations + ">]><r>" + Repeated("<a/>", 20'000) + "</r>";
    // A million attributes, of 64 bytes each; with values of their own they would take a thousand.
    EXPECT_TRUE(FitsInto(128, [&] { Load(xml); })) << xml.size();
}

TEST(MemoryCap, OfNamesInALongNamespace) {
    std::string const uri(50'000, 'u');
    std::string names;
    for (int i = 0; i < 9'000; ++i)
        names += "<p:a" + std::to_string(i) + "/>";
    std::string const distinct = "<r xmlns:p='" + uri + "'>" + names + "</r>";
    EXPECT_TRUE(FitsInto(32, [&] { Load(distinct); })) << distinct.size();

    std::string const equal =
        "<r xmlns:p='" + uri + "'>" + Repeated("<p:a p:x=''><p:b/></p:a>", 3'000) + "</r>";
    EXPECT_TRUE(FitsInto(32, [&] {
        CSmartPtr<CElement> const element(new CElement(""));
        element->FromXml(equal.c_str());
        CSmartPtr<CElement> const clone = element->Clone();
    })) << equal.size();
}

// The blocks of a sink are freed as they are joined; they do not stand beside the whole result.
TEST(MemoryCap, OfATextThatIsMovedOut) {
    auto const write = [](auto take) {
        CTextStream sink(XmlEncoding_UTF8);
        std::string const line(1000, 'x');
        while (sink.GetLength() < 64 * kMiB)
            sink.Append(line);
        take(sink);
    };
    EXPECT_LT(PeakOf([&] { write([](CTextStream& sink) { sink.GetEncodedData(); }); }), 80 * kMiB);
    EXPECT_LT(PeakOf([&] { write([](CTextStream& sink) { sink.TakeText(); }); }), 80 * kMiB);
    EXPECT_LT(PeakOf([&] { write([](CTextStream& sink) { sink.GetText(); }); }), 80 * kMiB);
}

TEST(MemoryCap, OfDecompressionUpToTheLimit) {
    CBinaryData data(std::string(39 * kMiB, 'x').c_str());
    CZvZip::Compress(data, CompressionType_GZip);
    SetDecompressionLimit(40 * kMiB);
    // The room doubles to 32 MiB and grows to 40 then; both stand while one is copied.
    EXPECT_TRUE(FitsInto(80, [&] {
        CBinaryData content;
        CZvZip::TryDecompress(data.GetData(), data.GetLength(), content);
    }));
    SetDecompressionLimit(~std::uint64_t{0});
}

} // namespace
