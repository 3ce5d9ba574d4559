// Untyped elements and attributes as an editable tree: making, restrictions, clones, counts.
#include "zvxmllib/collections/Element.h"
#include "tests/support/MessageOf.h"
#include "tests/support/QuietWriter.h"
#include "tests/support/Script.h"
#include "tests/support/WrittenObject.h"

#include <gmock/gmock.h>

using namespace ZvXmlLib16;

namespace {

constexpr char const* kNull = nullptr;

std::string PlainXmlOf(CElement& element) {
    return element.ToXml(false, false, EOLType_LF, CSerializationContext::GetDefaultContext());
}

using ElementPtr = CSmartPtr<CElement>;

TEST(UntypedElement, IsMadeWithANameAndANamespaceThatFits) {
    struct Row {
        std::function<ElementPtr()> make;
        char const* message;
    };
    Row const rows[] = {
        {[] { return new CElement(kNull); }, "Element Name must have a value"},
        {[] { return new CElement("a", kNull); }, "Element Namespace must have a value"},
        {[] { return new CElement("a", "u", kNull, "t"); }, "Namespace Restriction must have a value"},
        {[] { return new CElement("a", "u", "u", kNull); }, "Target Namespace must have a value"},
        {[] { return new CElement("a", "##any"); }, "Invalid Namespace [##any]."},
        {[] { return new CElement("a", "##other"); }, "Invalid Namespace [##other]."},
        {[] { return new CElement("a", "##local"); }, "Invalid Namespace [##local]."},
        {[] { return new CElement("a", "##targetNamespace"); }, "Invalid Namespace [##targetNamespace]."},
        {[] { return new CElement("a", "u", "v w", "t"); },
         "Invalid namespace [u]. The namespace must be one of [v w] where the target namespace is [t]."},
        {[] { return new CElement("a"); }, "nothing was thrown"},
        {[] { return new CElement("a", ""); }, "nothing was thrown"},
        {[] { return new CElement("a", "u"); }, "nothing was thrown"},
        {[] { return new CElement("a", "u", "v u", "t"); }, "nothing was thrown"}};
    for (Row const& row : rows)
        EXPECT_EQ(MessageOf<CZvInvalidNamespaceException>([&] { row.make(); }), row.message);
}

TEST(UntypedElement, WritesAttributesThenChildrenThenText) {
    ElementPtr const root(new CElement("r", "u"));
    root->SetText("a<b");
    root->GetAttributes()->Add("x");
    root->GetAttributes()->Add("y", "1");
    root->GetAttributes()->Add("z", "2", "");
    root->GetChildElements()->Add("c", "")->SetText("t");
    root->GetChildElements()->Add("d");
    EXPECT_EQ(PlainXmlOf(*root), R"(<AA:r xmlns:AA="u" AA:x="" AA:y="1" z="2"><c>t</c><AA:d/>a&lt;b</AA:r>)");
    EXPECT_TRUE(root->HasAttributes() && root->HasChildElements());

    root->SetName("q");
    root->SetNamespace("v");
    root->SetText("");
    root->GetAttributes()->Remove(0);
    root->GetChildElements()->Item(0)->SetText("");
    root->GetAttributes()->Item(0)->SetName("Y");
    root->GetAttributes()->Item(0)->SetNamespace("");
    root->GetAttributes()->Item(0)->SetValue("3");
    EXPECT_EQ(PlainXmlOf(*root), R"(<AA:q xmlns:AA="v" Y="3" z="2"><c/><AB:d xmlns:AB="u"/></AA:q>)");
}

TEST(AttributeCol, TakesItsNamespaceFromItsList) {
    struct Row {
        char const* ns;
        char const* allowed;
        char const* used;
    };
    Row const rows[] = {
        {"", "uri1 uri2", "uri1"}, {"", "uri1", "uri1"}, {"", "u uri2", ""}, {"", "##any", ""},
        {"", "a#b", ""},           {"v", "##any", "v"},  {"", "#", ""}};
    for (Row const& row : rows) {
        CSmartPtr<CAttributeCol> const attributes(new CAttributeCol(row.ns, row.allowed, "t"));
        EXPECT_EQ(attributes->GetNamespace(), row.used) << row.allowed;
        EXPECT_EQ(attributes->Add("x")->GetNamespace(), row.used) << row.allowed;
    }
}

TEST(AttributeCol, TestsWhatIsAddedByText) {
    CSmartPtr<CAttributeCol> const attributes(new CAttributeCol("", "##other", "t"));
    EXPECT_EQ(
        MessageOf<CZvInvalidNamespaceException>([&] { attributes->Add("x", "1", "t"); }),
        "Invalid namespace [t]. The namespace must be one of [##other] where the target namespace is [t].");
    EXPECT_EQ(attributes->GetCount(), 0);
    CSmartPtr<CAttribute> const a = attributes->Add("a", "1", "u");
    CSmartPtr<CAttribute> const b = a->Clone();
    b->SetNamespace("t");
    b->SetName("b");
    EXPECT_EQ(attributes->Add(b), b) << "as it is";
    CSmartPtr<CAttribute> const c = a->Clone();
    c->SetName("c");
    attributes->AddAfter(a, c);
    attributes->AddBefore(nullptr, a->Clone());
    CSmartPtr<CAttributeCol> const clone = attributes->Clone();
    c->SetName("changed");
    std::string names;
    for (CAttribute* const attribute : *clone)
        names += attribute->GetName() + attribute->GetNamespace() + ' ';
    EXPECT_EQ(names, "au cu bt au ");
    EXPECT_EQ(MessageOf<CZvInvalidParamException>([&] { clone->Item(4); }),
              "Index 4 is out of range, use 0 - 4");
}

TEST(ElementCol, TakesTheNamespaceOfItsItemsFromItsArguments) {
    CSmartPtr<CElementCol> const any(new CElementCol("", "##any", "t", 0, -1));
    EXPECT_EQ(any->Add("a")->GetNamespace(), "##any");
    CSmartPtr<CElementCol> const named(new CElementCol("u", "v u", "t", 0, -1));
    EXPECT_EQ(named->Add("a")->GetNamespace(), "u");
    EXPECT_EQ(named->Add("a", "anything")->GetNamespace(), "anything") << "the list was for the constructor";
    EXPECT_EQ(named->GetNamespace(), "t");
    ElementPtr const first(new CElement("first"));
    ElementPtr const second(new CElement("second"));
    named->AddAfter(nullptr, second);
    named->AddBefore(second, first);
    EXPECT_EQ(named->Item(0), first);
    EXPECT_EQ(named->Item(1), second);
    CSmartPtr<CElementCol> const none(new CElementCol("", "uri1", "t", 1, 5));
    EXPECT_EQ(MessageOf<CZvInvalidStateException>([&] { none->Add("a"); }),
              "A Namespace has not been set for this Collection");
    EXPECT_EQ(none->GetMinOccurs(), 0);
    EXPECT_EQ(none->GetMaxOccurs(), -1);
    EXPECT_EQ(MessageOf<CZvInvalidNamespaceException>([] { new CElementCol("u", "v", "t", 0, -1); }),
              "Invalid namespace [u]. The namespace must be one of [v] where the target namespace is [t].");
}

TEST(ElementCol, KeepsTheNamespaceThatItsElementWasMadeWith) {
    for (char const* original : {"u", ""}) {
        ElementPtr const element(new CElement("a", original));
        element->SetNamespace("v");
        element->SetNamespace("w");
        EXPECT_EQ(element->GetAttributes()->GetNamespace(), original);
        EXPECT_EQ(element->GetChildElements()->Add("b")->GetNamespace(),
                  *original == '\0' ? "##any" : original);
        ElementPtr const copy(new CElement("c"));
        *copy = *ElementPtr(new CElement("a", original));
        copy->SetNamespace("v");
        ElementPtr const copyOfChanged(new CElement("d", "x"));
        *copyOfChanged = *copy;
        for (ElementPtr const& changed : {copy, copyOfChanged})
            EXPECT_EQ(changed->GetAttributes()->GetNamespace(), original);
    }
}

TEST(UntypedElement, ClonesAndCopiesWithoutSharing) {
    ElementPtr const root(new CElement("r", "u"));
    root->SetText("t");
    root->GetAttributes()->Add("x", "1");
    root->GetChildElements()->Add("c")->GetChildElements()->Add("d");
    std::string const xml = PlainXmlOf(*root);
    ElementPtr const assigned(new CElement("other"));
    assigned->GetAttributes()->Add("gone");
    *assigned = *root;
    assigned->GetAttributes();
    CElement const& same = *assigned;
    *assigned = same;
    ElementPtr const part(root->Clone());
    *part = *part->GetChildElements()->Item(0);
    EXPECT_EQ(PlainXmlOf(*part), R"(<AA:c xmlns:AA="u"><AA:d/></AA:c>)") << "also from a part of itself";
    ElementPtr const copies[] = {root->Clone(), new CElement(*root), assigned};
    root->GetAttributes()->Item(0)->SetValue("2");
    root->GetChildElements()->Item(0)->GetChildElements()->Clear();
    root->SetText("changed");
    for (ElementPtr const& copy : copies)
        EXPECT_EQ(PlainXmlOf(*copy), xml);
    EXPECT_EQ(copies[0]->GetChildElements()->Add("e")->GetNamespace(), "u");
}

TEST(UntypedElement, RefusesToCloneWhatIsNoLongerAllowed) {
    ElementPtr const made(new CElement("a", "u"));
    ElementPtr const assigned(new CElement("b"));
    *assigned = *made;
    for (ElementPtr const& element : {made, assigned}) {
        element->SetNamespace("v");
        EXPECT_EQ(
            MessageOf<CZvInvalidNamespaceException>([&] { element->Clone(); }),
            "Invalid namespace [v]. The namespace must be one of [u] where the target namespace is [].");
    }
}

TEST(UntypedElement, TestsATreeAgainstARestriction) {
    ElementPtr const root(new CElement("r", "u"));
    root->GetAttributes()->Add("x", "1", "u");
    ElementPtr const child = root->GetChildElements()->Add("c", "u");
    root->SetNamespaceRestrictions("u", "t");
    child->GetAttributes()->Add("y", "1", "v");
    try {
        root->SetNamespaceRestrictions("u w", "t");
        FAIL();
    } catch (CZvInvalidNamespaceException const& failure) {
        EXPECT_EQ(failure.GetMessage(), "The namespace u in the class r is invalid against restriction u w");
        EXPECT_EQ(failure.GetPath(), "");
        EXPECT_EQ(failure.GetInnerException()->GetMessage(),
                  "The namespace u in the class c is invalid against restriction u w");
        EXPECT_EQ(
            failure.GetInnerException()->GetInnerException()->GetMessage(),
            "Invalid namespace [v]. The namespace must be one of [u w] where the target namespace is [t].");
    }
    root->GetChildElements()->Add("anything", "goes");
}

// Counts its hooks.
class Watched : public CElement {
public:
    using CElement::CElement;
    std::string m_heard;

protected:
    void FireOnChangeName(char const* name) override { m_heard += GetName() + '>' + name + ' '; }
    void FireOnChangeNamespace(char const* ns) override { m_heard += GetNamespace() + '>' + ns + ' '; }
    void FireOnChangeText(char const* text) override { m_heard += GetText() + '>' + text + ' '; }
};

TEST(UntypedElement, CallsItsHooksAheadOfAChange) {
    CSmartPtr<Watched> const element(new Watched("a", "u"));
    element->SetName("b");
    element->SetNamespace("v");
    element->SetText("t");
    EXPECT_EQ(element->m_heard, "a>b u>v >t ");
}

std::string Counts() {
    std::string const state = CInstanceMonitor::DumpState();
    return state.substr(state.find('\n') + 1);
}

TEST(UntypedElement, CountsItsCollectionsWhetherMadeOrNot) {
    // The additional root attributes of the default context are alive or not, as tests before have it.
    CInstanceMonitor::Cleanup();
    {
        ElementPtr const a(new CElement("a"));
        EXPECT_EQ(Counts(), "--> CElement = 1/1\n--> CAttributeCol = 1/1\n--> CElementCol = 1/1");
        a->GetChildElements()->Add("b", "")->GetAttributes();
        EXPECT_EQ(Counts(), "--> CElement = 2/2\n--> CAttributeCol = 2/2\n--> CElementCol = 2/2");
        *a = *ElementPtr(a->GetChildElements()->Item(0));
        EXPECT_THAT(Counts(), testing::StartsWith("--> CElement = 1/3\n--> CAttributeCol = 1/"));
    }
    EXPECT_THAT(Counts(), testing::StartsWith("    CElement = 0/3\n    CAttributeCol = 0/"));
    EXPECT_THAT(Counts(), testing::HasSubstr("\n    CElementCol = 0/"));
}

TEST(UntypedElement, EndsAtAnyDepth) {
    ElementPtr root(new CElement("a"));
    ElementPtr innermost = root;
    for (int i = 0; i < 100000; ++i)
        innermost = innermost->GetChildElements()->Add("a", "");
    char const* const tooDeep = "The nesting of elements exceeds the limit of 1000 levels.";
    EXPECT_EQ(MessageOf<CZvException>([&] { root->Clone(); }), tooDeep);
    EXPECT_EQ(MessageOf<CZvException>([&] { PlainXmlOf(*root); }), tooDeep);
    innermost = nullptr;
    root = nullptr;
    EXPECT_THAT(CInstanceMonitor::DumpState(), testing::HasSubstr("    CElement = 0/"));
}

CSmartPtr<WrittenObject> Order() {
    return new WrittenObject(
        Script("*d (d|order @id=7 (e|item @http://www.w3.org/XML/1998/namespace|lang=en 'x'))"));
}

TEST(UntypedElement, HoldsTheXmlOfAnObject) {
    ElementPtr const tree(new CElement(Order(), kNull));
    EXPECT_EQ(PlainXmlOf(*tree),
              R"(<AA:order xmlns:AA="d" id="7"><AB:item xmlns:AB="e" xml:lang="en">x</AB:item></AA:order>)");
    EXPECT_EQ(tree->GetChildElements()->Item(0)->GetAttributes()->GetNamespace(), "") << "as it was made";
    EXPECT_EQ(
        MessageOf<CZvInvalidParamException>([] { new CElement(static_cast<CXmlObjectBase*>(nullptr), "d"); }),
        "The element to read from may not be NULL");
}

TEST(UntypedElement, WritesAFragmentWithItsOwnDefaultNamespace) {
    ElementPtr const root(new CElement("r", "u"));
    root->GetAttributes()->Add("a", "1", "");
    ElementPtr const fragment(new CElement(Order(), "d"));
    fragment->GetAttributes()->Add("xmlns", "d", "");
    root->GetChildElements()->Add(fragment);
    std::string const text =
        R"(<order xmlns="d" id="7"><AA:item xmlns:AA="e" xml:lang="en">x</AA:item></order>)";
    EXPECT_EQ(PlainXmlOf(*root), R"(<AA:r xmlns:AA="u" a="1">)" + text + "</AA:r>");
    EXPECT_EQ(PlainXmlOf(*fragment), text);
    // Its last line end and that of the line that it is spliced in as.
    EXPECT_EQ(root->ToXml(false, true, EOLType_CRLF, CSerializationContext()),
              "<AA:r xmlns:AA=\"u\" a=\"1\">\r\n<order xmlns=\"d\" id=\"7\">\r\n"
              "\t<AA:item xmlns:AA=\"e\" xml:lang=\"en\">x</AA:item>\r\n</order>\r\n\r\n</AA:r>\r\n");
    EXPECT_EQ(
        PlainXmlOf(*fragment->Clone()),
        R"(<AA:order xmlns:AA="d" id="7" xmlns="d"><AB:item xmlns:AB="e" xml:lang="en">x</AB:item></AA:order>)")
        << "a clone is no fragment";
}

// A writer of another format, which takes the names down.
class NameWriter : public QuietWriter {
public:
    void WriteElementStart(std::string const& name, std::string const&) override { m_names += '<' + name; }
    void WriteElementValue(std::string const& text, ItemType, bool) override { m_names += '=' + text; }
    void WriteElementEnd() override { m_names += '>'; }
    void WriteAttribute(std::string const& name, std::string const&, std::string const&, ItemType) override {
        m_names += '@' + name;
    }
    std::string m_names;
};

TEST(UntypedElement, WritesAFragmentLikeAnyElementInAnotherFormat) {
    ElementPtr const fragment(new CElement(Order(), "d"));
    NameWriter writer;
    WrittenObject::Write(fragment, writer);
    EXPECT_EQ(writer.m_names, "<order@id<item@lang=x>=>");
}

} // namespace
