// Ratios that do not depend on the machine, as medians over alternating runs, with the limits that hold.
#include "benchmarks/Documents.h"
#include "benchmarks/ExpatBaseline.h"
#include "benchmarks/MedianRatio.h"
#include "benchmarks/MemoryInUse.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

using namespace ZvXmlLib16;

namespace {

constexpr double kMostForTree = 1.6;  // times the parser alone
constexpr double kMostForWriting = 1; // times building the tree of what is written
constexpr double kMostMemory = 6;     // bytes for each byte of the document
constexpr std::size_t kBytesOfMemoryRun = 4U << 20U;

void LoadTree(std::string const& text) {
    CXmlDocument document;
    bench::Load(document, text);
}

// The bytes held by the result of `make` per byte of `text`: the mean over many small ones, so that the
// allocator's reserves do not count.
template <class Make>
double MemoryOf(std::string const& text, Make make) {
    std::vector<decltype(make())> all(std::max(std::size_t{1}, kBytesOfMemoryRun / text.size()));
    std::size_t const before = bench::MemoryInUse();
    for (auto& one : all)
        one = make();
    std::size_t const held = bench::MemoryInUse() - before;
    return static_cast<double>(held) / static_cast<double>(text.size() * all.size());
}

double MemoryOfTree(std::string const& text) {
    return MemoryOf(text, [&] {
        auto document = std::make_unique<CXmlDocument>();
        bench::Load(*document, text);
        return document;
    });
}

double MemoryOfObject(std::string const& text) {
    return MemoryOf(text, [&] { return bench::ReadObject(text); });
}

void PrintRow(bench::Document const& document) {
    std::string const& text = document.text;
    CSmartPtr<bench::CRootElement> const object = bench::ReadObject(text);
    CBinaryData const written = bench::WriteObject(*object);
    std::string const compact(reinterpret_cast<char const*>(written.GetData()), written.GetLength());

    double const tree = bench::MedianRatio([&] { LoadTree(text); }, [&] { bench::ParseOnly(text); });
    double const reading =
        bench::MedianRatio([&] { bench::ReadObject(text); }, [&] { bench::ParseOnly(text); });
    double const writing =
        bench::MedianRatio([&] { bench::WriteObject(*object); }, [&] { LoadTree(compact); });
    double const memory = MemoryOfTree(text);
    std::printf("%-28s %10zu %8.2f%c %8.2f  %8.2f%c %8.2f%c %8.2f\n", document.name.c_str(), text.size(),
                tree, bench::Mark(tree, kMostForTree), reading, writing,
                bench::Mark(writing, kMostForWriting), memory, bench::Mark(memory, kMostMemory),
                MemoryOfObject(text));
    std::fflush(stdout);
}

} // namespace

int main() {
    SetGeneratorVersion(kLibraryMajorVersion, kLibraryMinorVersion);
    SetLocalCharEncoding(65001);
    std::printf(
        "tree:    building the tree, by the time of the parser with empty handlers (limit %.1f)\n"
        "object:  the same and an untyped object of it, by the time of the parser\n"
        "write:   writing the object, by the time of building the tree of what is written (limit %.1f)\n"
        "memory:  bytes of the tree for each byte of the document (limit %.1f)\n"
        "untyped: bytes of the untyped object for each byte of the document\n"
        "'!' is above the limit.\n\n",
        kMostForTree, kMostForWriting, kMostMemory);
    std::printf("%-28s %10s %8s  %8s  %8s  %8s  %8s\n", "document", "bytes", "tree", "object", "write",
                "memory", "untyped");
    for (bench::Document const& document : bench::AllDocuments())
        PrintRow(document);
    return 0;
}
