// CInstanceMonitor: counts by class name, and the report at the end.
#include "zvxmllib/foundation/InstanceMonitor.h"
#include "zvxmllib/foundation/DebugTrace.h"

#include <gmock/gmock.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr char kHeader[] = "Instances of classes still in existence/Total Number of instances created\n";

// Hears the announcement: it is attached before ordinary static objects are made.
struct EarlyListener {
    static char heard[256];
    EarlyListener() {
        ZvXmlLib16::SetDebugTraceSink(
            [](char const* text) { std::strncat(heard, text, sizeof heard - std::strlen(heard) - 1); });
    }
};
char EarlyListener::heard[256] = "";
[[gnu::init_priority(101)]] EarlyListener earlyListener;

struct Named : CInstanceMonitor {
    explicit Named(char const* name) : CInstanceMonitor(name) {}
};

CInstanceMonitor::Registration widgetRegistration("Widget");
struct Widget : CInstanceMonitor {
    Widget() : CInstanceMonitor(widgetRegistration) {}
};

std::string Lines() {
    std::string const state = CInstanceMonitor::DumpState();
    EXPECT_EQ(state.rfind(kHeader, 0), 0U);
    return state.substr(std::strlen(kHeader));
}

class InstanceMonitor : public testing::Test {
protected:
    void SetUp() override { CInstanceMonitor::Cleanup(); }
};

TEST_F(InstanceMonitor, AnnouncesItselfWhenTheLibraryIsLoaded) {
    EXPECT_STREQ(EarlyListener::heard, "Starting to track Class instances\n");
    ZvXmlLib16::SetDebugTraceSink(nullptr);
}

TEST_F(InstanceMonitor, ListsClassesInOrderOfFirstCreation) {
    {
        Named const second("Zebra");
        Widget const first;
        std::string const copiedName = std::string("Ze") + "bra"; // names count as text, not as addresses
        Named const again(copiedName.c_str());
        EXPECT_EQ(Lines(), "--> Zebra = 2/2\n--> Widget = 1/1");
    }
    Widget const another;
    EXPECT_EQ(Lines(), "    Zebra = 0/2\n--> Widget = 1/2");
}

TEST_F(InstanceMonitor, CountsCopiesButNotAssignments) {
    Widget const one;
    Widget two(one);
    two = one;
    EXPECT_EQ(Lines(), "--> Widget = 2/2");
}

TEST_F(InstanceMonitor, CountsAnewAfterCleanup) {
    auto late = std::make_unique<Widget>();
    CInstanceMonitor::Cleanup();
    Widget const fresh;
    EXPECT_EQ(Lines(), "--> Widget = 1/1");
    late.reset(); // its record is gone from the list and is still its own
    EXPECT_EQ(Lines(), "--> Widget = 1/1");
}

TEST(InstanceMonitorDeathTest, ReportsWhenTheLibraryIsUnloaded) {
    auto const leaveOneAlive = [] {
        CInstanceMonitor::Cleanup();
        static Widget* const survivor = new Widget;
        { Named const gone("Gone"); }
        ZvXmlLib16::SetDebugTraceSink([](char const* text) { std::fputs(text, stderr); });
        std::exit(survivor != nullptr ? 0 : 1);
    };
    EXPECT_EXIT(leaveOneAlive(), testing::ExitedWithCode(0),
                testing::HasSubstr(std::string("Dumping Class instances\n") + kHeader +
                                   "--> Widget = 1/1\n    Gone = 0/1\n"));
}

} // namespace
