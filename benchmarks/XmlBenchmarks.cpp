// Reading and writing XML text, in bytes per second, with the bare parser beside it.
#include "benchmarks/Documents.h"
#include "benchmarks/ExpatBaseline.h"

#include <benchmark/benchmark.h>

using namespace ZvXmlLib16;

namespace {

constexpr std::size_t kMegabyte = 1U << 20U;

bench::Document const& DocumentOf(benchmark::State const& state) {
    static bench::Document const documents[] = {bench::RealDocument("ubl-invoice.xml"),
                                                bench::RealDocument("citygml-lod2-buildings.gml"),
                                                bench::Records(10 * kMegabyte)};
    return documents[state.range(0)];
}

void Finish(benchmark::State& state, bench::Document const& document) {
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(document.text.size()));
    state.SetLabel(document.name);
}

void ParserAlone(benchmark::State& state) {
    bench::Document const& document = DocumentOf(state);
    for (auto _ : state)
        bench::ParseOnly(document.text);
    Finish(state, document);
}

void ReadTree(benchmark::State& state) {
    bench::Document const& document = DocumentOf(state);
    for (auto _ : state) {
        CXmlDocument tree;
        bench::Load(tree, document.text);
        benchmark::DoNotOptimize(tree.GetDocumentElement());
    }
    Finish(state, document);
}

void ReadUntypedObject(benchmark::State& state) {
    bench::Document const& document = DocumentOf(state);
    for (auto _ : state)
        benchmark::DoNotOptimize(bench::ReadObject(document.text));
    Finish(state, document);
}

void WriteUntypedObject(benchmark::State& state) {
    bench::Document const& document = DocumentOf(state);
    CSmartPtr<bench::CRootElement> const object = bench::ReadObject(document.text);
    for (auto _ : state)
        benchmark::DoNotOptimize(bench::WriteObject(*object));
    Finish(state, document);
}

void CompressUntypedObject(benchmark::State& state) {
    bench::Document const& document = DocumentOf(state);
    CSmartPtr<bench::CRootElement> const object = bench::ReadObject(document.text);
    for (auto _ : state)
        benchmark::DoNotOptimize(object->ToXmlStream(false, false, XmlEncoding_UTF8, EOLType_LF,
                                                     CSerializationContext::GetDefaultContext(),
                                                     CompressionType_GZip));
    Finish(state, document);
}

bool SetUp() {
    SetGeneratorVersion(kLibraryMajorVersion, kLibraryMinorVersion);
    SetLocalCharEncoding(65001);
    return true;
}
bool const isSetUp = SetUp();

} // namespace

BENCHMARK(ParserAlone)->DenseRange(0, 2)->Unit(benchmark::kMicrosecond);
BENCHMARK(ReadTree)->DenseRange(0, 2)->Unit(benchmark::kMicrosecond);
BENCHMARK(ReadUntypedObject)->DenseRange(0, 2)->Unit(benchmark::kMicrosecond);
BENCHMARK(WriteUntypedObject)->DenseRange(0, 2)->Unit(benchmark::kMicrosecond);
BENCHMARK(CompressUntypedObject)->DenseRange(0, 2)->Unit(benchmark::kMicrosecond);
