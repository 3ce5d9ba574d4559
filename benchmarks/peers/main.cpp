// The library beside a program written by hand and beside other libraries: time by that of the program
// written by hand, which reads and writes XML, as medians and as the best rounds; memory; growth; threads.
// "--quick" takes fewer rounds and no document of 50 MB. "--json" prints the figures for picture.py instead.
#include "benchmarks/MedianRatio.h"
#include "benchmarks/MemoryInUse.h"
#include "benchmarks/peers/Peers.h"

#include <zvxmllib/ZvXmlLib.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <thread>
#include <utility>

#include <sys/wait.h>
#include <unistd.h>

using namespace peers;

namespace {

using bench::SecondsOf;

struct Contestant {
    char const* name;
    Form form;
    std::unique_ptr<Program> (*make)();
};

constexpr char kFormNames[][13] = {"XML", "JSON", "Fast Infoset"};

template <auto Make>
std::unique_ptr<Program> Struct() {
    return Make();
}
template <auto Make, Form form>
std::unique_ptr<Program> Of() {
    return Make(form);
}

// The first is what the others are compared with.
constexpr Contestant kContestants[] = {
    {"by hand (expat)", Form::kXml, &Struct<&ByHand>},
    {"zvxmllib, generated", Form::kXml, &Of<&Generated, Form::kXml>},
    {"zvxmllib, tables", Form::kXml, &Of<&Tables, Form::kXml>},
    {"gSOAP", Form::kXml, &Struct<&Gsoap>},
    {"pugixml", Form::kXml, &Struct<&Pugixml>},
    {"libxml2", Form::kXml, &Struct<&LibXml2>},
    {"zvxmllib, generated", Form::kJson, &Of<&Generated, Form::kJson>},
    {"zvxmllib, tables", Form::kJson, &Of<&Tables, Form::kJson>},
    {"RapidJSON", Form::kJson, &Struct<&RapidJson>},
    {"nlohmann/json", Form::kJson, &Struct<&Nlohmann>},
    {"zvxmllib, generated", Form::kFastInfoset, &Of<&Generated, Form::kFastInfoset>},
    {"zvxmllib, tables", Form::kFastInfoset, &Of<&Tables, Form::kFastInfoset>},
};
constexpr std::size_t kCount = std::size(kContestants);

void Require(bool holds, std::string const& message) {
    if (holds)
        return;
    std::fprintf(stderr, "%s\n", message.c_str());
    std::exit(1);
}

// The document of the same orders in each form, from the classes of the schema.
std::string DocumentOf(Orders const& orders, Form form) {
    std::unique_ptr<StructProgram> const byHand = ByHand();
    byHand->Set(orders);
    std::string const xml = byHand->Write();
    if (form == Form::kXml)
        return xml;
    return Rewritten(xml, form);
}

// What a document holds, by a reader that is not the one that is tested.
Orders Holds(std::string const& document, Form form) {
    std::unique_ptr<StructProgram> const reader = form == Form::kJson ? RapidJson() : ByHand();
    reader->Read(form == Form::kFastInfoset ? Rewritten(document, Form::kXml) : document);
    return reader->Get();
}

// Each reads its document, and what it writes holds the same orders.
void CheckAll(Orders const& orders) {
    for (Contestant const& contestant : kContestants) {
        std::unique_ptr<Program> const program = contestant.make();
        program->Read(DocumentOf(orders, contestant.form));
        Require(Holds(program->Write(), contestant.form) == orders,
                std::string(contestant.name) + " does not keep the orders as " +
                    kFormNames[static_cast<int>(contestant.form)]);
    }
}

struct Ratio {
    double median = 0;
    double best = 0;
};

// By contestant: rounds in which each does its work in turn.
using Ratios = std::array<Ratio, kCount>;

template <class Work>
Ratios Measure(Work const& work, int rounds) {
    double const once = std::max(1e-7, SecondsOf(1, [&] { work(0); }));
    int const repetitions = std::max(1, static_cast<int>(0.02 / once));
    std::array<std::vector<double>, kCount> seconds;
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t i = 0; i < kCount; ++i)
            seconds[i].push_back(SecondsOf(repetitions, [&] { work(i); }));
    }
    Ratios ratios;
    double const base = *std::min_element(seconds[0].begin(), seconds[0].end());
    for (std::size_t i = 0; i < kCount; ++i) {
        std::vector<double> byRound;
        for (int round = 0; round < rounds; ++round)
            byRound.push_back(seconds[i][static_cast<std::size_t>(round)] /
                              seconds[0][static_cast<std::size_t>(round)]);
        std::nth_element(byRound.begin(), byRound.begin() + rounds / 2, byRound.end());
        ratios[i] = {byRound[static_cast<std::size_t>(rounds / 2)],
                     *std::min_element(seconds[i].begin(), seconds[i].end()) / base};
    }
    return ratios;
}

struct Size {
    char const* name;
    std::size_t bytes;
    int rounds;
};

struct Speed {
    Ratios read;
    Ratios write;
};

Speed MeasureSpeed(Size const& size) {
    Orders const orders = MakeOrders(size.bytes);
    std::array<std::string, 3> documents;
    for (Form const form : {Form::kXml, Form::kJson, Form::kFastInfoset})
        documents[static_cast<std::size_t>(form)] = DocumentOf(orders, form);
    auto const documentOf = [&](std::size_t i) -> std::string const& {
        return documents[static_cast<std::size_t>(kContestants[i].form)];
    };
    Speed speed;
    speed.read = Measure([&](std::size_t i) { kContestants[i].make()->Read(documentOf(i)); }, size.rounds);
    std::array<std::unique_ptr<Program>, kCount> programs;
    for (std::size_t i = 0; i < kCount; ++i) {
        programs[i] = kContestants[i].make();
        programs[i]->Read(documentOf(i));
    }
    speed.write = Measure([&](std::size_t i) { programs[i]->Write(); }, size.rounds);
    return speed;
}

// The most memory that `work` needs beyond that of what `prepare` gives, in a process of its own.
template <class Prepare, class Work>
double PeakOf(Prepare prepare, Work work) {
    int ends[2];
    Require(::pipe(ends) == 0, "no pipe");
    std::fflush(stdout);
    pid_t const child = ::fork();
    Require(child >= 0, "no process");
    if (child == 0) {
        auto prepared = prepare();
        bench::ReleaseFreeMemory();
        std::size_t const before = bench::ResetPeakMemory();
        work(prepared);
        auto const peak = static_cast<double>(bench::PeakMemory() - before);
        ::_exit(::write(ends[1], &peak, sizeof peak) == sizeof peak ? 0 : 1);
    }
    double peak = 0;
    Require(::read(ends[0], &peak, sizeof peak) == sizeof peak, "a process failed");
    ::waitpid(child, nullptr, 0);
    ::close(ends[0]);
    ::close(ends[1]);
    return peak;
}

struct Memory {
    double read = 0;  // bytes for each byte of the document
    double write = 0; // likewise
};

Memory MeasureMemory(Contestant const& contestant, std::size_t bytes) {
    std::string const document = DocumentOf(MakeOrders(bytes), contestant.form);
    auto const length = static_cast<double>(document.size());
    double const read = PeakOf([&] { return contestant.make(); },
                               [&](std::unique_ptr<Program> const& program) { program->Read(document); });
    double const write = PeakOf(
        [&] {
            std::unique_ptr<Program> program = contestant.make();
            program->Read(document);
            return program;
        },
        [](std::unique_ptr<Program> const& program) { program->Write(); });
    return {read / length, write / length};
}

double SecondsOfReading(Contestant const& contestant, std::string const& document) {
    double best = std::numeric_limits<double>::max();
    for (int i = 0; i < 5; ++i)
        best = std::min(best, SecondsOf(1, [&] { contestant.make()->Read(document); }));
    return best;
}

// Ten times the input, by the time and the memory of one.
void PrintGrowth() {
    std::printf("\nTen times the input (5 and 50 MB): times the time and times the memory of reading\n\n");
    for (Contestant const& contestant : kContestants) {
        double seconds[2];
        double peaks[2];
        for (int i = 0; i < 2; ++i) {
            std::size_t const bytes = (i == 0 ? 5U : 50U) << 20U;
            std::string const document = DocumentOf(MakeOrders(bytes), contestant.form);
            seconds[i] = SecondsOfReading(contestant, document);
            peaks[i] = PeakOf([&] { return contestant.make(); },
                              [&](std::unique_ptr<Program> const& program) { program->Read(document); });
        }
        std::printf("%-13s %-20s %6.1f %6.1f\n", kFormNames[static_cast<int>(contestant.form)],
                    contestant.name, seconds[1] / seconds[0], peaks[1] / peaks[0]);
    }
}

// What two threads do in the time in which one does one part.
void PrintThreads() {
    std::printf("\nTwo threads that read 1 MB: times the work of one thread in the same time\n\n");
    constexpr int kTimes = 30;
    for (Contestant const& contestant : kContestants) {
        std::string const document = DocumentOf(MakeOrders(std::size_t{1} << 20U), contestant.form);
        auto const read = [&] {
            for (int i = 0; i < kTimes; ++i)
                contestant.make()->Read(document);
        };
        double best = 0;
        for (int round = 0; round < 5; ++round) {
            double const one = SecondsOf(1, read);
            double const two = SecondsOf(1, [&] {
                std::thread other(read);
                read();
                other.join();
            });
            best = std::max(best, 2 * one / two);
        }
        std::printf("%-13s %-20s %6.2f\n", kFormNames[static_cast<int>(contestant.form)], contestant.name,
                    best);
    }
}

void PrintTable(std::vector<Size> const& sizes, std::vector<Speed> const& speeds,
                std::array<Memory, kCount> const& memory) {
    std::printf("Time by that of the program written by hand: median (best) of rounds in turn. Memory: the "
                "most bytes for\n"
                "each byte of the document, beyond the document or the objects, with %s.\n\n%-13s %-20s",
                sizes.back().name, "", "");
    for (char const* const direction : {"read", "write"}) {
        for (Size const& size : sizes)
            std::printf(" %5s %-7s", direction, size.name);
    }
    std::printf("  memory read/write\n");
    for (std::size_t i = 0; i < kCount; ++i) {
        std::printf("%-13s %-20s", kFormNames[static_cast<int>(kContestants[i].form)], kContestants[i].name);
        for (bool const isReading : {true, false}) {
            for (Speed const& speed : speeds) {
                Ratio const& ratio = (isReading ? speed.read : speed.write)[i];
                std::printf("  %5.2f (%4.2f)", ratio.median, ratio.best);
            }
        }
        std::printf("  %6.1f %6.1f\n", memory[i].read, memory[i].write);
    }
}

void PrintJson(std::vector<Size> const& sizes, std::vector<Speed> const& speeds,
               std::array<Memory, kCount> const& memory) {
    std::printf("[");
    for (std::size_t i = 0; i < kCount; ++i) {
        std::printf("%s\n{\"form\": \"%s\", \"name\": \"%s\", \"memory\": [%.2f, %.2f]", i == 0 ? "" : ",",
                    kFormNames[static_cast<int>(kContestants[i].form)], kContestants[i].name, memory[i].read,
                    memory[i].write);
        for (std::size_t k = 0; k < sizes.size(); ++k)
            std::printf(", \"%s\": [%.3f, %.3f]", sizes[k].name, speeds[k].read[i].best,
                        speeds[k].write[i].best);
        std::printf("}");
    }
    std::printf("\n]\n");
}

} // namespace

int main(int argc, char** argv) {
    bool isQuick = false;
    bool isJson = false;
    for (int i = 1; i < argc; ++i) {
        isQuick = isQuick || std::strcmp(argv[i], "--quick") == 0;
        isJson = isJson || std::strcmp(argv[i], "--json") == 0;
    }
    ZvXmlLib16::SetGeneratorVersion(ZvXmlLib16::kLibraryMajorVersion, ZvXmlLib16::kLibraryMinorVersion);
    ZvXmlLib16::SetLocalCharEncoding(65001);
    CheckAll(MakeOrders(100000));
    std::vector<Size> sizes = {{"10 KB", 10000, isQuick ? 7 : 21},
                               {"1 MB", std::size_t{1} << 20U, isQuick ? 5 : 15}};
    if (!isQuick)
        sizes.push_back({"50 MB", std::size_t{50} << 20U, 5});
    std::vector<Speed> speeds;
    for (Size const& size : sizes)
        speeds.push_back(MeasureSpeed(size));
    std::array<Memory, kCount> memory;
    for (std::size_t i = 0; i < kCount; ++i)
        memory[i] = MeasureMemory(kContestants[i], sizes.back().bytes);
    if (isJson) {
        PrintJson(sizes, speeds, memory);
        return 0;
    }
    PrintTable(sizes, speeds, memory);
    if (!isQuick) {
        PrintGrowth();
        PrintThreads();
    }
    return 0;
}
