// Inputs that are made to become large: each is read by a process that may take a certain amount of memory
// and no more. The amounts are small multiples of the inputs, or of what the limits allow.
#include "zvxmllib/collections/Element.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/streams/DecompressionLimit.h"
#include "zvxmllib/streams/ZvZip.h"

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
