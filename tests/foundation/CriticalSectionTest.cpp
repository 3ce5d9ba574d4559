// The recursive lock: between threads, and ahead of all dynamic initialisation.
#include "zvxmllib/foundation/CriticalSection.h"
#include "zvxmllib/driver/XmlGeneratedClass.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace {

struct Tables : ZvXmlLib16::CXmlGeneratedClass {
    using CXmlGeneratedClass::m_csInit;
};

// As a bound object of static storage does whose tables are made when it is constructed.
struct EarlyObject {
    EarlyObject() {
        Tables::m_csInit.Enter();
        Tables::m_csInit.Enter();
        Tables::m_csInit.Leave();
        Tables::m_csInit.Leave();
        isMade = true;
    }
    bool isMade = false;
};
__attribute__((init_priority(101))) EarlyObject earlyObject;

TEST(CriticalSection, IsReadyBeforeDynamicInitialisation) {
    EXPECT_TRUE(earlyObject.isMade);
}

TEST(CriticalSection, LetsOneThreadInAsOftenAsItLikes) {
    CZVCriticalSection section;
    long count = 0;
    std::vector<std::thread> threads;
    for (int number = 0; number < 4; ++number) {
        threads.emplace_back([&] {
            for (int i = 0; i < 2000; ++i) {
                section.Enter();
                section.Enter();
                ++count;
                section.Leave();
                ++count;
                section.Leave();
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(count, 16000);
}

} // namespace
