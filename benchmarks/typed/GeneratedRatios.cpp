// Generated classes against the classes written by hand for the same vocabulary: time as medians of ratios,
// and allocations for each record. "SIDE-FORMAT-DIRECTION-MODE TIMES" does one half of it with an 11 KB
// document, for a count of instructions, for instance "generated-xml-read-strict 100". SIDE is generated or
// hand, FORMAT xml, json or fi, DIRECTION read, use or write, MODE strict or lax. "allocations" fails if
// generated classes allocate more often than those by hand, or if an empty object holds anything.
#include "benchmarks/AllocationCount.h"
#include "benchmarks/typed/RecordProgram.h"

#include "records.h"

#include <cstdio>
#include <string>
#include <utility>

using namespace ZvXmlLib16;
using namespace bench;

namespace {

constexpr double kMostTime = 1;
constexpr std::size_t kBytes = std::size_t{1} << 20U;

struct Format {
    char const* name;
    std::string (*write)(CXmlObjectBase&, CSerializationContext const&);
    CSmartPtr<CRecords> (*readByHand)(std::string const&, CSerializationContext const&);
    CSmartPtr<generated_records::CRecords> (*read)(std::string const&, CSerializationContext const&);
};

std::string ToText(CBinaryData const& data) {
    return std::string(TextOf(data));
}

unsigned char const* Bytes(std::string const& text) {
    return reinterpret_cast<unsigned char const*>(text.data());
}

CSmartPtr<CRecords> ReadStreamByHand(std::string const& octets, CSerializationContext const& ctx) {
    CSmartPtr<CRecords> records(new CRecords);
    records->FromXmlStream(const_cast<unsigned char*>(Bytes(octets)),
                           static_cast<std::uint32_t>(octets.size()), ctx);
    return records;
}

CSmartPtr<generated_records::CRecords> ReadStream(std::string const& octets,
                                                  CSerializationContext const& ctx) {
    return generated_records::ReadRecords(Bytes(octets), octets.size(), ctx);
}

Format const kFormats[] = {{"xml",
                            [](CXmlObjectBase& object, CSerializationContext const& ctx) {
                                return object.ToXml(false, false, EOLType_LF, ctx);
                            },
                            &ReadStreamByHand, &ReadStream},
                           {"json",
                            [](CXmlObjectBase& object, CSerializationContext const& ctx) {
                                return object.ToJson(false, EOLType_LF, ctx);
                            },
                            [](std::string const& text, CSerializationContext const& ctx) {
                                CSmartPtr<CRecords> records(new CRecords);
                                records->FromJson(text.c_str(), ctx);
                                return records;
                            },
                            [](std::string const& text, CSerializationContext const& ctx) {
                                return generated_records::ReadRecordsJson(text, ctx);
                            }},
                           {"fi",
                            [](CXmlObjectBase& object, CSerializationContext const& ctx) {
                                return ToText(
                                    object.ToFastInfosetStream(FInfoDecl_None, ctx, CompressionType_None));
                            },
                            &ReadStreamByHand, &ReadStream}};

// Lax is what the library does unless it is told to be strict. Generated classes validate in both.
CSerializationContext ContextOf(bool isStrict) {
    CSerializationContext ctx(RecordContext()); // NOLINT(performance-unnecessary-copy-initialization)
    ctx.SetStrict(isStrict);
    return ctx;
}

// Of all values: a program that reads a document wants them, too.
double SumOf(generated_records::CRecords const& records) {
    double sum = 0;
    for (generated_records::CRecord const& r : records.GetRecord())
        sum += static_cast<double>(r.GetName().size() + r.GetCity().size() + r.GetMail().size() +
                                   r.GetNote().size()) +
               r.GetId() + r.GetQuantity() + static_cast<double>(r.GetStock()) + r.GetPrice() +
               r.GetWeight() + (r.GetActive() ? 1 : 0) + r.GetRating() + static_cast<double>(r.GetCategory());
    return sum;
}

double SumOf(CRecords const& records) {
    double sum = 0;
    records.GetRecords()->ForEach([&sum](CRecord const& record) {
        Record const& r = record.GetFields();
        sum += static_cast<double>(r.name.size() + r.city.size() + r.mail.size() + r.note.size()) + r.id +
               r.quantity + static_cast<double>(r.stock) + r.price + r.weight + (r.active ? 1 : 0) +
               r.rating + static_cast<double>(r.category);
    });
    return sum;
}

// Documents of both kinds of objects, and both again as objects.
struct Subject {
    Subject(Format const& of, bool isStrict, std::string const& xml)
        : format(of), ctx(ContextOf(isStrict)), byHand(ReadRecords(xml)),
          generated(generated_records::ReadRecordsXml(xml)), document(format.write(*byHand, ctx)) {
        Require(format.write(*generated, ctx) == document, "the two do not write the same");
        Require(SumOf(*format.read(document, ctx)) == SumOf(*format.readByHand(document, ctx)),
                "the two do not read the same");
    }

    void Read() const { format.read(document, ctx); }
    void ReadByHand() const { format.readByHand(document, ctx); }
    void ReadAndUse() const { SumOf(*format.read(document, ctx)); }
    void ReadAndUseByHand() const { SumOf(*format.readByHand(document, ctx)); }
    void Write() const { format.write(*generated, ctx); }
    void WriteByHand() const { format.write(*byHand, ctx); }

    Format const& format;
    CSerializationContext const ctx;
    CSmartPtr<CRecords> const byHand;
    CSmartPtr<generated_records::CRecords> const generated;
    std::string const document;
};

using Work = void (Subject::*)() const;
struct Pair {
    char const* name;
    Work generated;
    Work byHand;
};
constexpr Pair kPairs[] = {{"read", &Subject::Read, &Subject::ReadByHand},
                           {"use", &Subject::ReadAndUse, &Subject::ReadAndUseByHand},
                           {"write", &Subject::Write, &Subject::WriteByHand}};

double AllocationsFor(Subject const& subject, Work work, int records) {
    std::size_t const before = AllocationCount();
    (subject.*work)();
    return static_cast<double>(AllocationCount() - before) / records;
}

void PrintRow(Subject const& subject, Pair const& pair, char const* mode, int records) {
    double const time = MedianRatio([&] { (subject.*pair.generated)(); }, [&] { (subject.*pair.byHand)(); });
    std::printf("%-6s %-6s %-6s %8.2f%c %8.2f %8.2f\n", subject.format.name, pair.name, mode, time,
                Mark(time, kMostTime), AllocationsFor(subject, pair.generated, records),
                AllocationsFor(subject, pair.byHand, records));
    std::fflush(stdout);
}

void Print() {
    std::printf("time: generated classes by the time of classes by hand (limit %.1f; '!' is above it)\n"
                "new:  allocations for each record, generated and by hand\n"
                "use:  reading, and taking each value once\n\n"
                "%-6s %-6s %-6s %8s  %8s %8s\n",
                kMostTime, "format", "what", "mode", "time", "new", "by hand");
    std::string const xml = MakeRecords(kBytes);
    int records = 0;
    ReadRecords(xml)->GetRecords()->ForEach([&records](CRecord const&) { ++records; });
    for (bool const isStrict : {true, false}) {
        for (Format const& format : kFormats) {
            Subject const subject(format, isStrict, xml);
            for (Pair const& pair : kPairs)
                PrintRow(subject, pair, isStrict ? "strict" : "lax", records);
        }
    }
}

// Allocations are the same on every machine.
int CheckAllocations() {
    generated_records::NewRecords(); // prepares the schema
    std::size_t const before = AllocationCount();
    CSmartPtr<generated_records::CRecords> const empty = generated_records::NewRecords();
    std::size_t const forEmpty = AllocationCount() - before;
    std::printf("an empty object: %zu allocation(s), %zu children\n", forEmpty, empty->ContentNodes().size());
    bool isRight = forEmpty == 1 && empty->ContentNodes().empty() && empty->AllAttributes().empty();
    constexpr int kRecords = 100;
    std::string const xml = MakeRecords(std::size_t{kRecords} * 300);
    for (bool const isStrict : {true, false}) {
        for (Format const& format : kFormats) {
            Subject const subject(format, isStrict, xml);
            for (Pair const& pair : {kPairs[0], kPairs[2]}) {
                double const generated = AllocationsFor(subject, pair.generated, kRecords);
                double const byHand = AllocationsFor(subject, pair.byHand, kRecords);
                std::printf("%s %s %s: %.2f, by hand %.2f\n", format.name, pair.name,
                            isStrict ? "strict" : "lax", generated, byHand);
                isRight = isRight && generated <= byHand;
            }
        }
    }
    return isRight ? 0 : 1;
}

void Repeat(std::string const& what, std::string const& xml, int times) {
    for (Format const& format : kFormats) {
        for (Pair const& pair : kPairs) {
            for (bool const isStrict : {true, false}) {
                std::string const name =
                    std::string(format.name) + "-" + pair.name + (isStrict ? "-strict" : "-lax");
                if (what != "generated-" + name && what != "hand-" + name)
                    continue;
                Subject const subject(format, isStrict, xml);
                for (int i = 0; i < times; ++i)
                    (subject.*(what[0] == 'g' ? pair.generated : pair.byHand))();
                return;
            }
        }
    }
    Require(false, "there is no such work");
}

} // namespace

int main(int argc, char** argv) {
    if (argc == 2 && std::string(argv[1]) == "allocations") {
        SetGeneratorVersion(kLibraryMajorVersion, kLibraryMinorVersion);
        SetLocalCharEncoding(65001);
        return CheckAllocations();
    }
    return RunRecordProgram(argc, argv, Repeat, Print);
}
