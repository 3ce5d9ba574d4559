// Writes a document of many megabytes by an object that generates its content, reads it by the callback, both
// with asynchronous transfers, and reports the peak memory of the process. Fails above 64 MB. Usage:
// bench_large_file [MEGABYTES], 2048 without.
#include "benchmarks/MemoryInUse.h"
#include "zvxmllib/ZvXmlLib.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>

using namespace ZvXmlLib16;

namespace {

constexpr std::size_t kMost = 64U << 20U;
constexpr double kMegabyte = 1U << 20U;
constexpr std::size_t kContent = 1000; // characters of each record, which no white space follows

class Records : public CXmlObjectBase {
public:
    explicit Records(std::uint64_t count) : m_count(count) {}
    using CXmlObjectBase::GetBase;
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() override { return std::string(); }

protected:
    ~Records() override = default;
    std::string GetTargetNamespace() override { return std::string(); }
    void ToXml_Int(CXmlWriter* writer, bool, char const*, CSerializationContext const&, bool) const override {
        std::string content(kContent, 'x');
        writer->WriteElementStart("records", "");
        for (std::uint64_t i = 0; i < m_count; ++i) {
            writer->WriteElementStart("record", "");
            writer->WriteAttribute("id", "", std::to_string(i), ItemType_ui8);
            content[i % kContent] = static_cast<char>('a' + i % 26);
            writer->WriteElementValue(content, ItemType_string, false);
            writer->WriteElementEnd();
        }
        writer->WriteElementEnd();
    }
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* current, CSerializationContext const&,
                             bool) override {
        return current;
    }

private:
    std::uint64_t m_count;
};

std::uint64_t recordsRead = 0;

bool TakeRecord(CXmlElement* element) {
    if (element->GetParentElm() == nullptr)
        return false;
    if (element->GetAttribute("id", "") == std::to_string(recordsRead) &&
        element->GetText().size() == kContent)
        ++recordsRead;
    return true;
}

struct RemoveAtEnd {
    std::filesystem::path file;
    ~RemoveAtEnd() {
        std::error_code ignored;
        std::filesystem::remove(file, ignored);
    }
};

template <class Work>
bool Measure(char const* what, Work work) {
    auto const start = std::chrono::steady_clock::now();
    work();
    std::chrono::duration<double> const seconds = std::chrono::steady_clock::now() - start;
    std::size_t const peak = bench::PeakMemory();
    std::printf("%s: %.1f s, at most %.1f MB of memory (limit %.0f)\n", what, seconds.count(),
                static_cast<double>(peak) / kMegabyte, static_cast<double>(kMost) / kMegabyte);
    return peak != 0 && peak <= kMost;
}

} // namespace

int main(int argc, char** argv) {
    SetLocalCharEncoding(65001);
    SetGeneratorVersion(16, 1);
    AsyncToXmlFile(true);
    AsyncFromXmlFile(true);
    std::uint64_t const records = (argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 2048) << 10U;
    RemoveAtEnd const document{std::filesystem::temp_directory_path() /
                               ("zvxmllib-large-" + std::to_string(std::random_device()()) + ".xml")};
    try {
        bool isGood = Measure("written", [&] {
            CSmartPtr<Records> const object(new Records(records));
            object->ToXmlFile(document.file.c_str(), true, false, XmlEncoding_UTF8, EOLType_LF,
                              CSerializationContext(), CompressionType_None);
        });
        std::printf("the document has %.0f MB\n",
                    static_cast<double>(std::filesystem::file_size(document.file)) / kMegabyte);
        isGood &= Measure("read", [&] {
            CXmlDocument tree(&TakeRecord);
            tree.Load(document.file.c_str());
        });
        if (recordsRead != records)
            std::fprintf(stderr, "%llu records were read\n", static_cast<unsigned long long>(recordsRead));
        return isGood && recordsRead == records ? 0 : 1;
    } catch (CZvException const& failure) {
        std::fprintf(stderr, "%s\n", failure.GetFullMessage().c_str());
        return 1;
    }
}
