// What all writers share: the stack of open elements, its counts, the states of collections.
#include "tests/support/QuietWriter.h"
#include "tests/support/Script.h"
#include "tests/support/Slots.h"
#include "zvxmllib/streams/TextStream.h"
#include "zvxmllib/xml/XmlTextWriter.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

using namespace ZvXmlLib16;
using testing::ElementsAre;

namespace {

// A format with arrays, reduced to what the base class does for it.
class ArrayWriter : public QuietWriter {
public:
    void WriteElementStart(std::string const&, std::string const&) override { PushContext(); }
    void WriteElementEnd() override { PopContext(); }

    void OpenArray() {
        m_pContext->m_collectionState = 2;
        m_pContext->m_arrayOpen = true;
    }
    int State() const { return m_pContext->m_collectionState; }
    int m_closedArrays = 0;

    static std::vector<std::size_t> Slots() {
        using W = ArrayWriter;
        return {SlotOf(&W::Open),
                SlotOf(&W::Close),
                SlotOf(&W::SetDefaultNamespace),
                SlotOf(&W::AddNamespaceAlias),
                SlotOf(&W::WriteComment),
                SlotOf(&W::WriteProcessingInstruction),
                SlotOf(&W::WriteInlineSchema),
                SlotOf(&W::WriteElementStart),
                SlotOf(&W::WriteElementValue),
                SlotOf(&W::WriteElementEnd),
                SlotOf(&W::WriteAttribute),
                SlotOf(&W::WriteTypeAttribute),
                SlotOf(&W::WriteNilAttribute),
                SlotOf(&W::CloseOpenArray)};
    }

protected:
    void CloseOpenArray() override {
        ++m_closedArrays;
        m_pContext->m_arrayOpen = false;
        m_pContext->m_collectionState = 0;
    }
};

TEST(XmlWriter, KeepsTheOrderOfItsSlots) {
    // The destructor takes the first two.
    EXPECT_THAT(ArrayWriter::Slots(),
                ElementsAre(2u, 3u, 4u, 5u, 6u, 7u, 8u, 9u, 10u, 11u, 12u, 13u, 14u, 15u));
}

TEST(XmlWriter, ClosesAnArrayThatTheNextCollectionFindsOpen) {
    ArrayWriter writer;
    writer.SetCollectionState(1); // nothing without an element
    writer.WriteElementStart("a", "");
    EXPECT_EQ(writer.State(), 0);

    writer.SetCollectionState(1);
    EXPECT_EQ(writer.State(), 1);
    writer.SetCollectionState(3);
    EXPECT_EQ(writer.State(), 0) << "no array was opened, so none is to be closed";

    writer.SetCollectionState(1);
    writer.OpenArray();
    writer.SetCollectionState(3);
    EXPECT_EQ(writer.State(), 3);
    EXPECT_EQ(writer.m_closedArrays, 0);
    writer.SetCollectionState(1);
    EXPECT_EQ(writer.State(), 1);
    EXPECT_EQ(writer.m_closedArrays, 1);
    writer.WriteElementEnd();
}

std::string ContextCounts() {
    std::string const state = CInstanceMonitor::DumpState();
    std::size_t const at = state.find("CXmlWriterContext = ");
    return at == std::string::npos ? "" : state.substr(at, state.find('\n', at) - at);
}

TEST(XmlWriter, CountsOneContextForEachElement) {
    CInstanceMonitor::Cleanup();
    {
        ArrayWriter writer;
        Script("(a")(writer);
        EXPECT_EQ(ContextCounts(), "CXmlWriterContext = 1/1");
        Script("(b)(c))")(writer);
        EXPECT_EQ(ContextCounts(), "CXmlWriterContext = 0/3");
        Script("(a(b")(writer);
    }
    EXPECT_EQ(ContextCounts(), "CXmlWriterContext = 0/5") << "also for elements that were left open";
}

TEST(XmlWriter, FindsAndMakesAliasesAmongVeryMany) {
    // Copying or searching them all for each would take longer than a test may run.
    int const count = 100000;
    CTextStream sink(XmlEncoding_None);
    CXmlTextWriter writer(&sink);
    writer.WriteElementStart("r", "");
    for (int i = 0; i < count; ++i)
        writer.WriteAttribute("x", "u" + std::to_string(i), "", ItemType_string);
    for (int i = 0; i < count; ++i) {
        writer.WriteElementStart("a", "v" + std::to_string(i));
        writer.WriteElementEnd();
    }
    writer.WriteElementEnd();
    std::string const end = "\t<EQYE:a xmlns:EQYE=\"v99999\"/>\n</r>\n";
    ASSERT_GT(sink.GetLength(), end.size());
    EXPECT_EQ(sink.GetText() + sink.GetLength() - end.size(), end);
}

} // namespace
