// Documents into untyped elements and out again.
#include "tests/support/LocalEncoding.h"
#include "tests/support/MessageOf.h"
#include "tests/support/TemporaryFile.h"
#include "tests/support/Vectors.h"
#include "tests/support/WrittenObject.h"
#include "zvxmllib/collections/Element.h"
#include "zvxmllib/document/XmlAttribute.h"
#include "zvxmllib/document/XmlDocument.h"

#include <gmock/gmock.h>

using namespace ZvXmlLib16;

namespace {

using ElementPtr = CSmartPtr<CElement>;

// With what the library uses from inside in reach.
class Element : public CElement {
public:
    using CElement::CElement;
    using CElement::CopyXmlElement;
    using CElement::FromXml_Int;
};

class Elements : public CElementCol {
public:
    using CElementCol::CElementCol;
    using CElementCol::FromXml_Int;
    using CElementCol::FromXmlLockElementName_Int;
};

class Attributes : public CAttributeCol {
public:
    using CAttributeCol::CAttributeCol;
    using CAttributeCol::FromXml_Int;
};

CSerializationContext const ctx;

std::string XmlOf(CElement& element) {
    return element.ToXml(false, false, EOLType_LF, ctx);
}

std::string Rewritten(char const* xml) {
    ElementPtr const element(new CElement("any"));
    element->FromXml(xml);
    return XmlOf(*element);
}

TEST(UntypedReading, KeepsNamesTextsAndNamespacesButNotPrefixes) {
    for (auto const& row : Vectors("xml.txt", "untyped elements"))
        EXPECT_EQ(Rewritten(row[0].c_str()), row[1]);
}

TEST(UntypedReading, ReadsTheFirstChildOfADocumentThroughTheGeneralForms) {
    ElementPtr const element(new CElement("any"));
    element->FromXml("<r><x a='1'>t</x><y/></r>", ctx);
    EXPECT_EQ(XmlOf(*element), "<x a=\"1\">t</x>");
    element->FromXmlStream(CBinaryData("<r><z/></r>"), ctx);
    EXPECT_EQ(XmlOf(*element), "<z a=\"1\"/>") << "reading adds to what is there";
    element->FromXml("<r/>", ctx);
    EXPECT_EQ(element->GetName(), "z") << "nothing to read changes nothing";
    element->FromXmlFile(TemporaryFile("<r><f/></r>").Path(), ctx);
    EXPECT_EQ(element->GetName(), "f");
    element->FromXml(L"<r><v/></r>", ctx);
    EXPECT_EQ(element->GetName(), "v");
    element->FromXml(u"<r><w/></r>", ctx);
    EXPECT_EQ(element->GetName(), "w");
}

TEST(UntypedReading, LeavesToOthersWhatIsNotAllowed) {
    CXmlDocument document(ctx);
    document.LoadXml("<r xmlns:p='u' xmlns:q='v'><p:a/><q:b/><c/><p:a/></r>");
    CXmlElement* const root = document.GetDocumentElement();
    CXmlElement* const first = root->GetFirstElement();
    CXmlElement* const second = first->GetNextSiblingElement();

    CSmartPtr<Element> const element(new Element("x", "v", "v", ""));
    EXPECT_EQ(element->FromXml_Int(root, first, ctx, false), first);
    EXPECT_EQ(element->GetName(), "x");
    EXPECT_EQ(element->FromXml_Int(root, second, ctx, false), second->GetNextSiblingElement());
    EXPECT_EQ(element->GetName(), "b");
    EXPECT_EQ(element->FromXml_Int(root, nullptr, ctx, false), nullptr);

    CSmartPtr<Elements> const all(new Elements("", "##any", "", 0, -1));
    EXPECT_EQ(all->FromXml_Int(root, first, ctx, false), nullptr);
    EXPECT_EQ(all->GetCount(), 4);

    CSmartPtr<Elements> const locked(new Elements("", "##any", "", 0, -1));
    EXPECT_EQ(locked->FromXmlLockElementName_Int("a", "u", root, first, ctx), second);
    EXPECT_EQ(locked->FromXmlLockElementName_Int("b", "u", root, second, ctx), second);
    EXPECT_EQ(locked->GetCount(), 1);
    EXPECT_EQ(locked->Item(0)->GetNamespace(), "u");
}

TEST(UntypedReading, RefusesAttributesThatAreNotAllowed) {
    CXmlDocument document(ctx);
    document.LoadXml("<r xmlns:p='u'><a x='1' p:y='2'/></r>");
    CXmlElement* const element = document.GetDocumentElement()->GetFirstElement();
    CSmartPtr<Attributes> const attributes(new Attributes("", "##local", ""));
    EXPECT_EQ(MessageOf<CZvInvalidNamespaceException>(
                  [&] { attributes->FromXml_Int(element, nullptr, ctx, false); }),
              "Invalid Attribute [y]. The attributes namespace is Inappropriate.\nPath: /r/a");
    EXPECT_EQ(attributes->GetCount(), 1);
}

TEST(UntypedReading, ReadsAnAttributeOnlyWithItsCollection) {
    CSmartPtr<CAttributeCol> const attributes(new CAttributeCol("", "##any", ""));
    CSmartPtr<CAttribute> const attribute = attributes->Add("a");
    EXPECT_EQ(MessageOf<CZvException>([&] { attribute->FromXml("<a/>", ctx); }),
              "This should be done by the collection");
}

TEST(UntypedReading, CopiesAParsedElement) {
    CSerializationContext noNamespaces;
    noNamespaces.SetSchemaType(SchemaType_NoNamespaces);
    CXmlDocument document(noNamespaces);
    document.LoadXml("<r><a xmlns='d' x='1'>t<b/></a></r>");
    CSmartPtr<Element> const element(new Element("old"));
    element->GetAttributes()->Add("gone");
    element->GetChildElements()->Add("gone", "");
    element->CopyXmlElement(document.GetDocumentElement()->GetFirstElement());
    EXPECT_EQ(element->GetAttributes()->GetCount(), 2);
    EXPECT_EQ(XmlOf(*element), R"(<a xmlns="d" x="1"><b/>t</a>)") << "a fragment, from its declaration";
}

TEST(UntypedReading, FillsAnObjectFromAnUntypedElement) {
    LocalEncoding const local(28591);
    ElementPtr const element(new CElement("r"));
    element->GetChildElements()->Add("a", "")->SetText("\xE4");
    CSmartPtr<WrittenObject> const object(new WrittenObject);
    object->FromXmlElement(element, ctx);
    EXPECT_EQ(object->m_readElement, "r");
    EXPECT_EQ(object->m_readCurrent, "a");
    ElementPtr const copy(new CElement("any"));
    copy->FromXmlElement(element, ctx);
    EXPECT_EQ(copy->GetText(), "\xE4") << "by way of UTF-8";
    CXmlDocument document(ctx);
    document.LoadXml("<s><b/></s>");
    object->FromXmlElement(document.GetDocumentElement(), ctx);
    EXPECT_EQ(object->m_readElement + object->m_readCurrent, "sb");
    for (auto const& read : std::initializer_list<std::function<void()>>{
             [&] { object->FromXmlElement(static_cast<CElement const*>(nullptr), ctx); },
             [&] { object->FromXmlElement(static_cast<CXmlElement const*>(nullptr), ctx); }})
        EXPECT_EQ(MessageOf<CZvInvalidParamException>(read), "The element to read from may not be NULL");
}

// What a class has replaced is called, as the two operations by which an untyped element is read say it.
TEST(UntypedReading, CallsTheOperationsThatAClassHasReplaced) {
    class Writer : public CElement {
    public:
        using CElement::CElement;
        std::string ToXml(bool, bool, EOLType, CSerializationContext const&) override { return "<own/>"; }
    };
    class Reader : public WrittenObject {
    public:
        using WrittenObject::FromXml;
        void FromXml(char const* text, CSerializationContext const&) override { m_text = text; }
        std::string m_text;
    };
    ElementPtr const plain(new CElement("plain"));
    ElementPtr const writer(new Writer("plain"));
    CSmartPtr<Reader> const reader(new Reader);
    reader->FromXmlElement(plain, ctx);
    EXPECT_EQ(reader->m_text, "<plain/>");
    CSmartPtr<WrittenObject> const object(new WrittenObject);
    object->FromXmlElement(writer, ctx);
    EXPECT_EQ(object->m_readElement, "own");
}

std::string Nested(int levels) {
    std::string xml;
    for (int i = 0; i < levels; ++i)
        xml += "<a b=\"c\">";
    for (int i = 0; i < levels; ++i)
        xml += "</a>";
    return xml;
}

TEST(UntypedReading, ReadsWritesAndClonesAThousandLevelsBelowTheRoot) {
    std::string const xml = Nested(1001);
    ElementPtr const element(new CElement("any"));
    element->FromXml(xml.c_str());
    std::string const written = XmlOf(*element);
    EXPECT_EQ(written.size(), xml.size() - 3) << "but that the innermost one is one tag";
    EXPECT_EQ(XmlOf(*element->Clone()), written);
    CXmlDocument document(ctx);
    document.LoadXml(xml.c_str());
    CSmartPtr<Element> const copy(new Element("any"));
    copy->CopyXmlElement(document.GetDocumentElement()->GetFirstElement());
    EXPECT_EQ(XmlOf(*copy).size(), written.size() - Nested(1).size());
}

TEST(UntypedReading, RefusesOneLevelMoreAndAnyNumberOfThem) {
    for (int const levels : {1002, 100000}) {
        std::string const xml = Nested(levels);
        ElementPtr const element(new CElement("any"));
        EXPECT_EQ(MessageOf<CZvException>([&] { element->FromXml(xml.c_str()); }),
                  "The nesting of elements exceeds the limit of 1000 levels.");
    }
    EXPECT_EQ(Rewritten("<x/>"), "<x/>");
}

} // namespace
