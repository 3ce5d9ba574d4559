// The list of bound objects: places, events and their order, bounds, failures.
#include "tests/support/MessageOf.h"
#include "tests/support/WrittenObject.h"
#include "zvxmllib/collections/XmlCollection.h"
#include "zvxmllib/collections/ZvIterator.h"

#include <gmock/gmock.h>

#include <stdexcept>
#include <vector>

using namespace ZvXmlLib16;
using testing::ElementsAre;

namespace {

// A collection as generated code has it, with everything in reach.
class Items : public CXmlCollection {
public:
    explicit Items(int minOccurs = 0, int maxOccurs = -1)
        : CXmlCollection("item", "u", minOccurs, maxOccurs) {}

    using CXmlCollection::AddAfterItem;
    using CXmlCollection::AddBeforeItem;
    using CXmlCollection::AddItemAt;
    using CXmlCollection::AppendItem;
    using CXmlCollection::GetNodeAtIndex;
    using CXmlCollection::GetTargetNamespace;
    using CXmlCollection::PrependItem;

    CZvIterator<WrittenObject> begin() const { return CZvIterator<WrittenObject>(m_pHead); }
    CZvIterator<WrittenObject> end() const { return CZvIterator<WrittenObject>(nullptr); }

    // The names forwards, and the same backwards to see that both chains agree.
    std::string Names() const {
        std::string forwards;
        for (WrittenObject* const item : *this)
            forwards += item->GetElementName();
        std::string backwards;
        int count = 0;
        for (CNode* node = m_pTail; node != nullptr; node = node->m_pPrev, ++count)
            backwards =
                static_cast<WrittenObject*>(static_cast<CXmlObjectBase*>(node->m_item))->GetElementName() +
                backwards;
        EXPECT_EQ(forwards, backwards);
        EXPECT_EQ(count, GetCount());
        EXPECT_EQ(m_pHead == nullptr, m_pTail == nullptr);
        return forwards;
    }

protected:
    ~Items() override = default;
    void ToXml_Int(CXmlWriter*, bool, char const*, CSerializationContext const&, bool) const override {}
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* current, CSerializationContext const&,
                             bool) override {
        return current;
    }
};

CSmartPtr<WrittenObject> Item(char const* name) {
    CSmartPtr<WrittenObject> item(new WrittenObject);
    item->SetElementName(name);
    return item;
}

CSmartPtr<Items> Abc() {
    CSmartPtr<Items> items(new Items);
    for (char const* name : {"a", "b", "c"})
        items->AppendItem(Item(name));
    return items;
}

// Writes down what it hears, and may throw at one of the events.
class Log : public IEventSink {
public:
    std::vector<std::string> m_events;
    int m_throwAt = -1;

    void OnEvent(CXmlObjectBase* sender, MsgType type, void* data) override {
        auto const& collection = static_cast<CXmlCollectionBase&>(*sender);
        bool const isAdd = type == MsgCollectionAdd || type == MsgCollectionAddComplete;
        std::string const item =
            isAdd ? static_cast<WrittenObject*>(static_cast<CXmlObjectBase*>(data))->GetElementName()
                  : std::string(data == nullptr ? "-" : "index");
        m_events.push_back(std::to_string(type) + item + std::to_string(collection.GetCount()));
        if (static_cast<int>(m_events.size()) - 1 == m_throwAt)
            throw std::runtime_error("refused");
    }
};

TEST(Collection, TellsEachChangeBeforeAndAfter) {
    Log log;
    CSmartPtr<Items> const items(new Items);
    items->AddEventListener(&log);
    items->AppendItem(Item("a"));
    EXPECT_THAT(log.m_events, ElementsAre("1a0", "2a1", "0-1"));
    log.m_events.clear();
    items->AddItemAt(0, Item("b"));
    EXPECT_THAT(log.m_events, ElementsAre("1b1", "2b2", "0-2"));
    log.m_events.clear();
    items->AddItemAt(2, Item("c"));
    EXPECT_THAT(log.m_events, ElementsAre("1c2", "2c3", "0-3")) << "an append is told once";
    log.m_events.clear();
    items->Remove(1);
    EXPECT_THAT(log.m_events, ElementsAre("3-3", "4-2", "0-2")) << "the list does not know its index";
    log.m_events.clear();
    items->Clear();
    EXPECT_THAT(log.m_events, ElementsAre("3-2", "4-1", "0-1", "3-1", "4-0", "0-0"));
    log.m_events.clear();
    items->Clear();
    EXPECT_THAT(log.m_events, ElementsAre());
}

TEST(Collection, TellsListenersInTheirOrderAsOftenAsTheyStandThere) {
    Log first;
    Log second;
    CSmartPtr<Items> const items(new Items);
    items->AddEventListener(&second);
    items->AddEventListener(&first);
    items->AddEventListener(&second);
    items->RemoveEventListener(nullptr);
    items->AppendItem(Item("a"));
    EXPECT_THAT(second.m_events, ElementsAre("1a0", "1a0", "2a1", "2a1", "0-1", "0-1"));
    second.m_throwAt = 6;
    EXPECT_THROW(items->AppendItem(Item("b")), std::runtime_error);
    EXPECT_EQ(first.m_events.size(), 3u) << "it stands behind the one that threw";
    items->RemoveEventListener(&second);
    items->AppendItem(Item("c"));
    EXPECT_EQ(second.m_events.size(), 7u);
    EXPECT_EQ(items->Names(), "ac");
}

TEST(Collection, StaysAsItWasWhenAListenerRefuses) {
    Log log;
    log.m_throwAt = 0;
    CSmartPtr<Items> const items = Abc();
    items->AddEventListener(&log);
    EXPECT_THROW(items->AppendItem(Item("d")), std::runtime_error);
    log.m_events.clear();
    EXPECT_THROW(items->Remove(0), std::runtime_error);
    EXPECT_EQ(items->Names(), "abc");
}

TEST(Collection, TellsOfItsEndAndNeverThrowsThen) {
    Log log;
    CSmartPtr<Items> items = Abc();
    items->AddEventListener(&log);
    items = nullptr;
    EXPECT_THAT(log.m_events, ElementsAre("3-3", "4-2", "0-2", "3-2", "4-1", "0-1", "3-1", "4-0", "0-0"));

    log.m_events.clear();
    log.m_throwAt = 4;
    CSmartPtr<WrittenObject> const kept = Item("k");
    items = Abc();
    items->AppendItem(kept);
    items->AddEventListener(&log);
    items = nullptr;
    EXPECT_EQ(log.m_events.size(), 5u) << "the rest goes silently";
    EXPECT_EQ(kept->AddRef(), 2) << "the collection has given its reference back";
    kept->Release();
}

TEST(Collection, PutsItemsInTheirPlaces) {
    CSmartPtr<WrittenObject> const x = Item("x");
    CSmartPtr<WrittenObject> const y = Item("y");
    struct Row {
        std::function<void(Items&)> operation;
        char const* names;
    };
    Row const rows[] = {
        {[&](Items& i) { i.AppendItem(x); }, "abcx"},
        {[&](Items& i) { i.PrependItem(x); }, "xabc"},
        {[&](Items& i) { i.AddItemAt(0, x); }, "xabc"},
        {[&](Items& i) { i.AddItemAt(1, x); }, "axbc"},
        {[&](Items& i) { i.AddItemAt(3, x); }, "abcx"},
        {[&](Items& i) { i.AddAfterItem(nullptr, x); }, "xabc"},
        {[&](Items& i) { i.AddBeforeItem(nullptr, x); }, "abcx"},
        {[&](Items& i) { i.AppendItem(x), i.AddAfterItem(x, y); }, "abcxy"},
        {[&](Items& i) { i.PrependItem(x), i.AddAfterItem(x, y); }, "xyabc"},
        {[&](Items& i) { i.PrependItem(x), i.AddBeforeItem(x, y); }, "yxabc"},
        {[&](Items& i) { i.AppendItem(x), i.AddBeforeItem(x, y); }, "abcyx"},
        {[&](Items& i) { i.PrependItem(x), i.AppendItem(x), i.AddAfterItem(x, y); }, "xyabcx"},
        {[&](Items& i) { i.Remove(0); }, "bc"},
        {[&](Items& i) { i.Remove(1); }, "ac"},
        {[&](Items& i) { i.Remove(2); }, "ab"},
        {[&](Items& i) { i.Remove(0), i.Remove(0), i.Remove(0); }, ""},
        {[&](Items& i) { i.Clear(), i.AppendItem(x); }, "x"}};
    for (Row const& row : rows) {
        CSmartPtr<Items> const items = Abc();
        row.operation(*items);
        EXPECT_EQ(items->Names(), row.names);
    }
    EXPECT_EQ(x->AddRef(), 2) << "every node has given its reference back";
    x->Release();
}

TEST(Collection, RefusesPlacesThatItDoesNotHave) {
    Log log;
    CSmartPtr<Items> const items = Abc();
    CSmartPtr<WrittenObject> const x = Item("x");
    CSmartPtr<WrittenObject> const stranger = Item("s");
    items->AddEventListener(&log);
    for (int const index : {-1, 3})
        EXPECT_EQ(MessageOf<CZvInvalidParamException>([&] { items->Remove(index); }),
                  "Index " + std::to_string(index) + " is out of range, use 0 - 3");
    for (int const index : {-1, 4})
        EXPECT_EQ(MessageOf<CZvInvalidParamException>([&] { items->AddItemAt(index, x); }),
                  "Index out of range");
    EXPECT_THAT(log.m_events, ElementsAre());
    char const* const notFound = "The object was not found in the collection";
    EXPECT_EQ(MessageOf<CZvInvalidParamException>([&] { items->AddAfterItem(stranger, x); }), notFound);
    EXPECT_EQ(MessageOf<CZvInvalidParamException>([&] { items->AddBeforeItem(stranger, x); }), notFound);
    EXPECT_THAT(log.m_events, ElementsAre("1x3", "1x3")) << "it was told of what does not come";
    EXPECT_EQ(items->Names(), "abc");
    EXPECT_EQ(MessageOf<CZvException>([&] { items->GetTargetNamespace(); }),
              "CXmlCollectionBase::GetTargetNamespace Should not be used from within a Collection (program "
              "logic error)");
}

TEST(Collection, ChecksItsBoundsWhenAsked) {
    struct Row {
        int minOccurs;
        int maxOccurs;
        int count;
        char const* message;
    };
    Row const rows[] = {{0, -1, 3, ""},
                        {3, 3, 3, ""},
                        {0, 2, 3, "The Maximum number of [item] elements allowed in this collection is 2"},
                        {0, 0, 1, "The Maximum number of [item] elements allowed in this collection is 0"},
                        {2, -1, 1, "The Minimum number of [item] elements allowed in this collection is 2"},
                        {4, 2, 3, "The Maximum number of [item] elements allowed in this collection is 2"}};
    CSerializationContext ignoring;
    ignoring.SetIgnoreInvalidCollectionCounts(true);
    CSerializationContext const ctx;
    for (Row const& row : rows) {
        CSmartPtr<Items> const items(new Items(row.minOccurs, row.maxOccurs));
        for (int i = 0; i < row.count; ++i)
            items->AppendItem(Item("a"));
        bool const isValid = *row.message == '\0';
        EXPECT_EQ(items->IsValidCount(ctx), isValid);
        EXPECT_EQ(MessageOf<CZvValidationException>([&] { items->ValidateCount(ctx); }),
                  isValid ? "nothing was thrown" : row.message);
        EXPECT_TRUE(items->IsValidCount(ignoring));
        items->ValidateCount(ignoring);
    }
}

TEST(Iterator, ComparesItemsAndEndsAtTheEnd) {
    CSmartPtr<Items> const items = Abc();
    CZvIterator<WrittenObject> at = items->begin();
    EXPECT_EQ((*at)->GetElementName(), "a");
    EXPECT_FALSE(at != items->begin());
    ++at;
    EXPECT_TRUE(at != items->begin());
    ++ ++at;
    EXPECT_FALSE(at != items->end());
    EXPECT_TRUE(items->begin() != items->end());
    EXPECT_EQ(MessageOf<CZvException>([&] { ++at; }), "No More Elements in the Collection");

    items->AddItemAt(0, *items->begin());
    at = items->begin();
    ++at;
    EXPECT_FALSE(at != items->begin()) << "two places with one item";
}

} // namespace
