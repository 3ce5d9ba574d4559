// Reads a generated document of 200 MB element by element and reports the memory that this took beyond the
// document's own bytes. Fails above 64 MB.
#include "benchmarks/Documents.h"
#include "benchmarks/MemoryInUse.h"

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

using namespace ZvXmlLib16;

namespace {

constexpr std::size_t kDocumentBytes = 200U << 20U;
constexpr std::size_t kMostBeyond = 64U << 20U;

std::uint64_t elements = 0;
std::uint64_t records = 0;

// Everything but the root goes at once.
bool TakeElement(CXmlElement* element) {
    ++elements;
    if (element->GetLocalName() == "record" && !element->GetAttribute("id", "").empty())
        ++records;
    return element->GetParentElm() != nullptr;
}

struct RemoveAtEnd {
    std::filesystem::path file;
    ~RemoveAtEnd() {
        std::error_code ignored;
        std::filesystem::remove(file, ignored);
    }
};

} // namespace

int main() {
    SetLocalCharEncoding(65001);
    RemoveAtEnd const document{std::filesystem::temp_directory_path() /
                               ("zvxmllib-records-" + std::to_string(std::random_device()()) + ".xml")};
    {
        std::ofstream stream(document.file, std::ios::binary);
        bench::WriteRecords(stream, kDocumentBytes);
        if (!stream.flush()) {
            std::fprintf(stderr, "%s: cannot be written\n", document.file.c_str());
            return 1;
        }
    }
    std::size_t const size = std::filesystem::file_size(document.file);
    std::size_t const before = bench::PeakMemory();
    try {
        CXmlDocument tree(&TakeElement);
        tree.Load(document.file.c_str());
    } catch (CZvException const& e) {
        std::fprintf(stderr, "%s\n", e.GetFullMessage().c_str());
        return 1;
    }
    std::size_t const peak = bench::PeakMemory();
    if (before == 0 || records == 0) {
        std::fprintf(stderr, "nothing was measured\n");
        return 1;
    }
    double const megabyte = 1U << 20U;
    std::size_t const beyond = peak - before > size ? peak - before - size : 0;
    std::printf(
        "callback mode: %.0f MB, %llu elements, %.1f MB of memory beyond the document's bytes (limit %.0f)\n",
        static_cast<double>(size) / megabyte, static_cast<unsigned long long>(elements),
        static_cast<double>(beyond) / megabyte, static_cast<double>(kMostBeyond) / megabyte);
    return beyond <= kMostBeyond ? 0 : 1;
}
