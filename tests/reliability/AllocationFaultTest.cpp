// Every allocation of a read or write fails once: an exception reaches the caller, nothing is lost, and the
// same call succeeds afterwards.
#include "Scenarios.h"

#include "zvxmllib/foundation/Exceptions.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define HAS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define HAS_SANITIZER 1
#endif
#endif

namespace {

// How many more allocations of this thread succeed before one fails; negative for all.
thread_local long successesLeft = -1;

bool MustFail() noexcept {
    return successesLeft >= 0 && successesLeft-- == 0;
}

} // namespace

#ifdef HAS_SANITIZER

// The sanitizer owns malloc, so only what C++ allocates can be made to fail. Not inlined, since the compiler
// would then see memory of malloc deleted, and memory of new freed.
[[gnu::noinline]] void* operator new(std::size_t size) {
    void* const memory = MustFail() ? nullptr : std::malloc(size != 0 ? size : 1);
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}
[[gnu::noinline]] void operator delete(void* memory) noexcept {
    std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

#else

// Ahead of the C library's, also for the libraries below: expat, zlib and the pattern matcher.
extern "C" {

// NOLINTBEGIN(bugprone-reserved-identifier): the C library's names
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
// NOLINTEND(bugprone-reserved-identifier)

void* malloc(std::size_t size) {
    return MustFail() ? nullptr : __libc_malloc(size);
}
void* calloc(std::size_t count, std::size_t size) {
    return MustFail() ? nullptr : __libc_calloc(count, size);
}
void* realloc(void* memory, std::size_t size) {
    return MustFail() ? nullptr : __libc_realloc(memory, size);
}

} // extern "C"

#endif

namespace {

enum class Outcome { kSame, kThrew, kOther };

// Runs with the allocation of this number failing; `reached` tells whether there was one.
Outcome RunWithFault(Scenario const& scenario, std::string const& expected, long number, bool& reached) {
    Outcome outcome = Outcome::kOther;
    successesLeft = number;
    try {
        std::string const result = scenario.run();
        reached = successesLeft < 0;
        successesLeft = -1;
        outcome = result == expected ? Outcome::kSame : Outcome::kOther;
    } catch (std::bad_alloc const&) {
        outcome = Outcome::kThrew;
        reached = true;
    } catch (ZvXmlLib16::CZvException const&) {
        outcome = Outcome::kThrew;
        reached = true;
    }
    successesLeft = -1;
    return outcome;
}

void FailEachAllocation(Scenario const& scenario) {
    SCOPED_TRACE(scenario.name);
    std::string const expected = scenario.run();
    long faults = 0;
    for (bool reached = true; reached; ++faults) {
        ASSERT_NE(RunWithFault(scenario, expected, faults, reached), Outcome::kOther)
            << "allocation " << faults;
        ASSERT_EQ(scenario.run(), expected) << "behind the fault of allocation " << faults;
    }
    EXPECT_GT(faults, 20);
    std::printf("%6ld allocations failed: %s\n", faults - 1, scenario.name);
}

TEST(AllocationFault, LeavesReadingAndWritingInMemoryWhole) {
    for (Scenario const& scenario : MemoryScenarios())
        FailEachAllocation(scenario);
}

TEST(AllocationFault, LeavesReadingAndWritingOfFilesWhole) {
    for (Scenario const& scenario : FileScenarios())
        FailEachAllocation(scenario);
}

} // namespace
