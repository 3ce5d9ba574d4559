// CSmartPtr on an object that counts its references.
#include "zvxmllib/foundation/SmartPtr.h"
#include "zvxmllib/foundation/Assert.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

namespace {

// Begins without a reference; the last one deletes it.
struct Counted {
    explicit Counted(int* liveCount) : live(liveCount) { ++*live; }
    ~Counted() { --*live; }
    void AddRef() { ++references; }
    void Release() {
        if (--references == 0)
            delete this;
    }

    int* live;
    int references = 0;
    CSmartPtr<Counted> next;
};

using Pointer = CSmartPtr<Counted>;

TEST(SmartPtr, HoldsOneReferenceOnItsTarget) {
    int live = 0;
    {
        Pointer const first(new Counted(&live));
        Pointer const copy(first);
        EXPECT_EQ(first->references, 2);
        Pointer moved;
        {
            Pointer temporary(first);
            moved = std::move(temporary);
            EXPECT_EQ(static_cast<Counted*>(temporary), nullptr);
        }
        EXPECT_EQ((*first).references, 3);
        moved = nullptr;
        EXPECT_EQ(first->references, 2);
    }
    EXPECT_EQ(live, 0);
}

TEST(SmartPtr, SurvivesAssignmentOfItself) {
    int live = 0;
    {
        Pointer pointer(new Counted(&live));
        Pointer& same = pointer;
        pointer = same;
        EXPECT_EQ(pointer->references, 1);
        pointer = static_cast<Counted*>(same);
        EXPECT_EQ(pointer->references, 1);
        pointer = std::move(same);
        ASSERT_EQ(live, 1);
        EXPECT_EQ(pointer->references, 1);
    }
    EXPECT_EQ(live, 0);
}

TEST(SmartPtr, SurvivesAssignmentOfWhatOnlyTheOldTargetKeepsAlive) {
    int live = 0;
    {
        Pointer pointer(new Counted(&live));
        pointer->next = new Counted(&live);
        pointer = pointer->next;
        EXPECT_EQ(live, 1);
        EXPECT_EQ(pointer->references, 1);
        pointer->next = new Counted(&live);
        pointer = static_cast<Counted*>(pointer->next);
        EXPECT_EQ(live, 1);
    }
    EXPECT_EQ(live, 0);
}

#ifndef NDEBUG
std::string asserted;

TEST(SmartPtr, AssertsThatItIsNotNullWhereItIsFollowed) {
    auto const before = ZvXmlLib16::SetAssertionHandler(
        [](char const* condition, char const*, int) { asserted += condition; });
    Pointer const null;
    EXPECT_EQ(null.operator->(), nullptr);
    EXPECT_EQ(static_cast<Counted*>(null), nullptr);
    ZvXmlLib16::SetAssertionHandler(before);
    EXPECT_EQ(asserted, "p != 0");
}
#endif

} // namespace
