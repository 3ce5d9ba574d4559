// The most memory that reading typed objects takes beyond the document, and writing them beyond the objects,
// in bytes for each byte of the document. Each figure is taken in a process of its own, by its resident
// pages. With a number, for a document of so many megabytes alone; fails if a figure is above its limit.
#include "benchmarks/MemoryInUse.h"
#include "benchmarks/typed/RecordProgram.h"

#include <cstdio>
#include <fstream>
#include <utility>

#include <sys/wait.h>
#include <unistd.h>

using namespace ZvXmlLib16;
using namespace bench;

namespace {

struct Format {
    char const* name;
    double mostForReading;
    double mostForWriting;
    CBinaryData (*write)(CRecords& records);
    void (*read)(CRecords& records, CBinaryData const& document);
};

constexpr Format kFormats[] = {
    {"XML", 4.5, 3, WriteRecordsAsXml,
     [](CRecords& records, CBinaryData const& document) {
         records.FromXmlStream(document, RecordContext());
     }},
    {"JSON", 5.5, 3,
     [](CRecords& records) {
         return records.ToJsonStream(false, XmlEncoding_UTF8, EOLType_LF, RecordContext(),
                                     CompressionType_None);
     },
     [](CRecords& records, CBinaryData const& document) {
         records.FromJsonStream(document, RecordContext());
     }},
    {"Fast Infoset", 8.5, 4,
     [](CRecords& records) {
         return records.ToFastInfosetStream(FInfoDecl_None, RecordContext(), CompressionType_None);
     },
     [](CRecords& records, CBinaryData const& document) {
         records.FromXmlStream(document, RecordContext());
     }},
};

// The pages that `work` needs at most beyond those of `prepare`'s result, and the size of the document.
template <class Prepare, class Work>
std::pair<double, double> Measure(Prepare prepare, Work work) {
    int ends[2];
    Require(::pipe(ends) == 0, "no pipe");
    std::fflush(stdout);
    pid_t const child = ::fork();
    Require(child >= 0, "no process");
    if (child == 0) {
        auto prepared = prepare();
        ReleaseFreeMemory();
        std::size_t const before = ResetPeakMemory();
        double const length = work(prepared);
        double const figures[2] = {static_cast<double>(PeakMemory() - before), length};
        bool const isSent = ::write(ends[1], figures, sizeof figures) == sizeof figures;
        ::_exit(isSent ? 0 : 1);
    }
    double figures[2];
    Require(::read(ends[0], figures, sizeof figures) == sizeof figures, "a process failed");
    ::waitpid(child, nullptr, 0);
    ::close(ends[0]);
    ::close(ends[1]);
    return {figures[0], figures[1]};
}

double BytesOfReading(Format const& format, std::size_t bytes) {
    auto const [peak, length] = Measure([&] { return format.write(*ReadRecords(MakeRecords(bytes))); },
                                        [&](CBinaryData const& document) {
                                            CSmartPtr<CRecords> const records(new CRecords);
                                            format.read(*records, document);
                                            return static_cast<double>(document.GetLength());
                                        });
    return peak / length;
}

double BytesOfWriting(Format const& format, std::size_t bytes) {
    auto const [peak, length] = Measure([&] { return ReadRecords(MakeRecords(bytes)); },
                                        [&](CSmartPtr<CRecords> const& records) {
                                            return static_cast<double>(format.write(*records).GetLength());
                                        });
    return peak / length;
}

// Whether the figures are within the limits.
bool PrintRow(Format const& format, char const* name, std::size_t bytes) {
    double const reading = BytesOfReading(format, bytes);
    double const writing = BytesOfWriting(format, bytes);
    std::printf("%-14s %-8s %8.2f%c %8.2f%c\n", format.name, name, reading,
                Mark(reading, format.mostForReading), writing, Mark(writing, format.mostForWriting));
    return reading <= format.mostForReading && writing <= format.mostForWriting;
}

} // namespace

int main(int argc, char** argv) {
    SetGeneratorVersion(kLibraryMajorVersion, kLibraryMinorVersion);
    SetLocalCharEncoding(65001);
    std::puts("Peak memory in bytes for each byte of the document, beyond the document or the objects.\n"
              "'!' is above the limit.\n");
    std::printf("%-14s %-8s %8s  %8s\n", "format", "document", "read", "write");
    bool isWithin = true;
    for (Format const& format : kFormats) {
        if (argc > 1) {
            isWithin = PrintRow(format, argv[1], std::stoul(argv[1]) << 20U) && isWithin;
            continue;
        }
        for (RecordSize const& size : kRecordSizes)
            PrintRow(format, size.name, size.bytes);
    }
    return isWithin ? 0 : 1;
}
