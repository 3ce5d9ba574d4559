// The streaming mode of the document.
#include "Documents.h"

#include <stdexcept>
#include <vector>

namespace ZvXmlLib16 {
namespace {

std::vector<std::string> s_seen;

bool TakeAll(CXmlElement* element) {
    s_seen.push_back(element->GetXPath() + "=" + element->GetText() + "@" +
                     std::to_string(element->GetAttributes().size()));
    return true;
}

class DocumentCallback : public testing::Test {
protected:
    void SetUp() override { s_seen.clear(); }
};

TEST_F(DocumentCallback, SeesEachElementCompleteAtItsEnd) {
    CXmlDocument document(TakeAll);
    document.LoadXml("<r a='1'>x<b>1<c/>2</b>y<b p='' q=''>3</b>z</r>");
    EXPECT_THAT(s_seen, testing::ElementsAre("/r/b/c=@0", "/r/b=12@0", "/r/b=3@2", "/r=xyz@1"));
    CXmlElement& root = At(document, {});
    EXPECT_EQ(root.GetText(), "xyz");
    EXPECT_EQ(root.GetAttribute("a", ""), "1");
    EXPECT_EQ(root.GetFirstElement(), nullptr);
}

TEST_F(DocumentCallback, LeavesWhatItRefuses) {
    CXmlDocument document([](CXmlElement* element) { return element->GetLocalName() == "x"; });
    document.LoadXml("<r><a>1</a><x><a>2</a><x/></x><b>3<x>4</x><c>5</c>6</b><x/><x/><a>7</a></r>");
    EXPECT_EQ(CountChildren(At(document, {})), 3);
    EXPECT_EQ(At(document, {0}).GetText(), "1");
    EXPECT_EQ(At(document, {1}).GetText(), "36");
    EXPECT_EQ(At(document, {1, 0}).GetText(), "5");
    EXPECT_EQ(At(document, {2}).GetText(), "7");
    EXPECT_EQ(At(document, {2}).GetXPath(), "/r/a[2]");
}

TEST_F(DocumentCallback, KeepsWhatWasAskedOfEnclosingElements) {
    // The strings of enclosing elements are asked for while storage behind them comes and goes.
    CXmlDocument document([](CXmlElement* element) {
        CXmlElement const* parent = element->GetParentElm();
        if (parent == nullptr)
            return false;
        s_seen.push_back(parent->GetText() + "|" + parent->GetAttribute("a", "") + "|" + element->GetText() +
                         "|" + element->GetAttribute("v", ""));
        return true;
    });
    std::string xml = "<r a='root'>";
    for (int i = 0; i < 300; ++i)
        xml += "." + std::string("<e v='") + std::string(50, static_cast<char>('a' + i % 26)) + "'>" +
               std::to_string(i) + "</e>";
    document.LoadXml((xml + "</r>").c_str());
    ASSERT_EQ(s_seen.size(), 300u);
    for (int i = 0; i < 300; ++i)
        ASSERT_EQ(s_seen[static_cast<std::size_t>(i)], std::string(static_cast<std::size_t>(i) + 1, '.') +
                                                           "|root|" + std::to_string(i) + "|" +
                                                           std::string(50, static_cast<char>('a' + i % 26)));
    EXPECT_EQ(At(document, {}).GetText(), std::string(300, '.'));
}

// What an element leaves behind is used again, unless it is too small for what comes.
TEST_F(DocumentCallback, SeesTextsOfAnySizeInAnyOrder) {
    CXmlDocument document(TakeAll);
    std::string xml = "<r>";
    std::vector<std::string> expected;
    for (int const size : {1, 5000, 10, 300'000, 3000, 20'000, 1'000'000, 2}) {
        std::string const text(static_cast<std::size_t>(size), static_cast<char>('a' + size % 26));
        xml += "<e><f>" + text + "</f>" + text + "</e>";
        expected.insert(expected.end(), {"/r/e/f=" + text + "@0", "/r/e=" + text + "@0"});
    }
    document.LoadXml((xml + "</r>").c_str());
    expected.push_back("/r=@0");
    EXPECT_TRUE(s_seen == expected);
}

TEST_F(DocumentCallback, PassesItsExceptionToTheCallerOfTheLoad) {
    CXmlDocument document([](CXmlElement* element) -> bool {
        s_seen.push_back(element->GetLocalName());
        if (element->GetLocalName() == "bad")
            throw std::runtime_error("from the callback");
        return true;
    });
    // What follows in the text is not even looked at.
    EXPECT_THAT([&] { document.LoadXml("<r><a/><bad/><b/>&broken"); },
                testing::ThrowsMessage<std::runtime_error>("from the callback"));
    EXPECT_THAT(s_seen, testing::ElementsAre("a", "bad"));
}

} // namespace
} // namespace ZvXmlLib16
