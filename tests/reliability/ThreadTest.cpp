// Reading and writing on many threads at once, with shared metadata.
#include "Scenarios.h"

#include "zvxmllib/collections/Element.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/values/binary/BinaryData.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

using namespace ZvXmlLib16;

namespace {

constexpr int kThreads = 8;
constexpr int kRounds = 100;

template <class Work>
void OnManyThreads(Work work) {
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i)
        threads.emplace_back([work, i] { work(i); });
    for (std::thread& thread : threads)
        thread.join();
}

TEST(Threads, ReadAndWriteWithSharedMetadata) {
    std::vector<Scenario> const& scenarios = MemoryScenarios();
    std::vector<std::string> expected;
    for (Scenario const& scenario : scenarios)
        expected.push_back(scenario.run());
    std::atomic<int> differences{0};
    OnManyThreads([&](int thread) {
        for (int i = 0; i < kRounds; ++i) {
            std::size_t const which = static_cast<std::size_t>(thread + i) % scenarios.size();
            if (scenarios[which].run() != expected[which])
                ++differences;
        }
    });
    EXPECT_EQ(differences, 0);
}

// Such a read switches the context to ignoring namespaces for its length.
TEST(Threads, ReadJsonWithOneContext) {
    CSerializationContext const shared;
    std::atomic<int> differences{0};
    OnManyThreads([&](int) {
        for (int i = 0; i < kRounds; ++i) {
            CSmartPtr<CElement> const element(new CElement(""));
            element->FromJson(R"({"a":{"b":1}})", shared);
            if (element->ToXml(false, false, EOLType_LF, CSerializationContext()) != "<b>1</b>")
                ++differences;
        }
    });
    EXPECT_EQ(differences, 0);
}

TEST(Threads, ShareOneBlockOfBytes) {
    CBinaryData const shared(std::string(10000, 'x').c_str());
    std::atomic<int> differences{0};
    OnManyThreads([&](int thread) {
        for (int i = 0; i < 1000; ++i) {
            CBinaryData copy(shared);
            CBinaryData const second(copy);
            copy.Append(static_cast<unsigned char>(thread));
            if (copy.GetLength() != 10001 || second.GetLength() != 10000 || second.GetData()[9999] != 'x')
                ++differences;
        }
    });
    EXPECT_EQ(differences, 0);
    EXPECT_EQ(shared.GetLength(), 10000u);
}

} // namespace
