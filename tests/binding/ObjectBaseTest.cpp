// Counting, deletion and nesting of bound objects, and the order of their slots.
#include "tests/support/MessageOf.h"
#include "tests/support/Slots.h"
#include "tests/support/WrittenObject.h"
#include "zvxmllib/binding/XmlCollectionBase.h"

#include <gmock/gmock.h>

#include <thread>
#include <vector>

using namespace ZvXmlLib16;

namespace {

// Holds another one, and counts how many are alive.
class Link : public WrittenObject {
public:
    explicit Link(CSmartPtr<CXmlObjectBase> next) : m_next(std::move(next)) { ++s_alive; }
    Link(Link const& other) : WrittenObject(other), m_next(other.m_next) { ++s_alive; }
    Link& operator=(Link const&) = default;
    static int s_alive;

protected:
    ~Link() override { --s_alive; }
    void ToXml_Int(CXmlWriter* writer, bool isRoot, char const* ns, CSerializationContext const& ctx,
                   bool optionalChoice) const override {
        writer->WriteElementStart("a", "");
        if (m_next != nullptr)
            CXmlObjectBase::ToXml_Int(m_next, writer, false, ns, ctx, optionalChoice);
        writer->WriteElementEnd();
        static_cast<void>(isRoot);
    }

private:
    CSmartPtr<CXmlObjectBase> m_next;
};

int Link::s_alive = 0;

CSmartPtr<Link> Chain(int length) {
    CSmartPtr<Link> chain;
    for (int i = 0; i < length; ++i)
        chain = new Link(static_cast<CXmlObjectBase*>(chain));
    return chain;
}

TEST(ObjectBase, IsDeletedWithItsLastReference) {
    Link* const object = new Link(nullptr);
    EXPECT_EQ(object->AddRef(), 1);
    EXPECT_EQ(object->AddRef(), 2);
    EXPECT_EQ(object->Release(), 1);
    EXPECT_EQ(Link::s_alive, 1);
    EXPECT_EQ(object->Release(), 0);
    EXPECT_EQ(Link::s_alive, 0);
}

TEST(ObjectBase, CopiesItsNameButNotItsCount) {
    CSmartPtr<Link> const object(new Link(nullptr));
    object->SetElementName("a");
    CSmartPtr<Link> const copy(new Link(*object));
    EXPECT_EQ(copy->GetElementName(), "a");
    object->SetElementName("b");
    *copy = *object;
    EXPECT_EQ(copy->GetElementName(), "b");
    EXPECT_EQ(copy->AddRef(), 2);
    EXPECT_EQ(copy->Release(), 1);
}

TEST(ObjectBase, CountsReferencesOfManyThreads) {
    CSmartPtr<Link> object(new Link(nullptr));
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([object] {
            for (int n = 0; n < 10000; ++n)
                CSmartPtr<Link> const other(object);
        });
    object = nullptr;
    for (std::thread& thread : threads)
        thread.join();
    threads.clear();
    EXPECT_EQ(Link::s_alive, 0);
}

TEST(ObjectBase, EndsAChainOfAnyLengthWithoutADeepStack) {
    CSmartPtr<Link> chain = Chain(1000000);
    EXPECT_EQ(Link::s_alive, 1000000);
    chain = nullptr;
    EXPECT_EQ(Link::s_alive, 0) << "all of it has ended before Release returns";
}

// Refers to itself while it ends, as a listener may that is told of the end.
class Reviving : public WrittenObject {
protected:
    ~Reviving() override { CSmartPtr<CXmlObjectBase> const again(GetBase()); }
};

TEST(ObjectBase, IsDeletedOnceAlsoWhenReferredToWhileItEnds) {
    CSmartPtr<Reviving>(new Reviving);
}

TEST(Nesting, IsLimitedOnWriting) {
    CSerializationContext const ctx;
    EXPECT_EQ(Chain(1001)->ToXml(false, false, EOLType_LF, ctx).size(), 1000 * 7u + 4);
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(MessageOf<CZvException>([&] { Chain(1002)->ToXml(false, false, EOLType_LF, ctx); }),
                  "The nesting of elements exceeds the limit of 1000 levels.")
            << "each time, and never for a tree in the limit:";
    EXPECT_EQ(Chain(1001)->ToXml(false, false, EOLType_LF, ctx).size(), 1000 * 7u + 4);
    EXPECT_EQ(Link::s_alive, 0);
}

class ObjectSlots : public WrittenObject {
public:
    static std::vector<std::size_t> All() {
        using P = ObjectSlots;
        using B = CXmlObjectBase;
        using C = CSerializationContext const&;
        return {SlotOf(&P::OnEvent),
                SlotOf(static_cast<B* (WrittenObject::*)()>(&P::GetBase)),
                SlotOf(&P::ToXmlFile),
                SlotOf(&P::ToFastInfosetFile),
                SlotOf(&P::ToJsonFile),
                SlotOf(&P::ToXml),
                SlotOf(&P::ToJson),
                SlotOf(&P::ToXmlStream),
                SlotOf(&P::ToFastInfosetStream),
                SlotOf(&P::ToJsonStream),
                SlotOf(&P::FromXmlFile),
                SlotOf(&P::FromJsonFile),
                SlotOf(static_cast<void (B::*)(wchar_t const*, C)>(&P::FromXml)),
                SlotOf(static_cast<void (B::*)(char const*, C)>(&P::FromXml)),
                SlotOf(static_cast<void (B::*)(wchar_t const*, C)>(&P::FromJson)),
                SlotOf(static_cast<void (B::*)(char const*, C)>(&P::FromJson)),
                SlotOf(static_cast<void (B::*)(CBinaryData const&, C)>(&P::FromXmlStream)),
                SlotOf(static_cast<void (B::*)(unsigned char*, std::uint32_t, C)>(&P::FromXmlStream)),
                SlotOf(static_cast<void (B::*)(CBinaryData const&, C)>(&P::FromJsonStream)),
                SlotOf(static_cast<void (B::*)(unsigned char*, std::uint32_t, C)>(&P::FromJsonStream)),
                SlotOf(static_cast<void (B::*)(CElement const*, C)>(&P::FromXmlElement)),
                SlotOf(static_cast<void (B::*)(CXmlElement const*, C)>(&P::FromXmlElement)),
                SlotOf(&P::GetTargetNamespace),
                SlotOf(&P::GetNamespace),
                SlotOf(static_cast<void (B::*)(CXmlWriter*, C) const>(&P::AttributesToXml_Int)),
                SlotOf(&P::ToXml_Int),
                SlotOf(&P::FromXml_Int)};
    }
};

TEST(ObjectBase, KeepsTheOrderOfItsSlots) {
    std::vector<std::size_t> expected;
    for (std::size_t slot = 0; slot < 29; ++slot) {
        if (slot != 22 && slot != 23) // the destructor
            expected.push_back(slot);
    }
    EXPECT_EQ(ObjectSlots::All(), expected);
}

TEST(CollectionBase, KeepsTheOrderOfItsSlots) {
    using C = CXmlCollectionBase;
    std::vector<std::size_t> const slots = {SlotOf(&C::GetCount), SlotOf(&C::Clear), SlotOf(&C::Remove),
                                            SlotOf(&C::ValidateCount), SlotOf(&C::IsValidCount)};
    EXPECT_THAT(slots, testing::ElementsAre(29u, 30u, 31u, 32u, 33u));
}

} // namespace
