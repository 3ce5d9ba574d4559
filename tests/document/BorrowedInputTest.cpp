// Input that the tree borrows while objects are read, and input that a document does not keep.
#include "zvxmllib/collections/Element.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/XmlAttribute.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/document/XmlElement.h"
#include "zvxmllib/streams/ZvZip.h"
#include "zvxmllib/values/binary/BinaryData.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace ZvXmlLib16;

namespace {

// Objects read the child of the root.
char const* const kXml[] = {
    "<w><a b='1' c='&lt;2\t'>one</a></w>",
    "<w><a>one &amp; two</a></w>",
    "<w><a>one\r\ntwo\rthree</a></w>",
    "<w><a>\n  <b>x</b>\n  <b>y</b>\n  <b>z</b>\n</a></w>",
    "<w><a>one<![CDATA[<two>]]>three<!-- c -->four</a></w>",
    "<w><a>\xC3\xA9\xE2\x82\xAC</a></w>",
    "<!DOCTYPE w [<!ENTITY e 'two'>]><w><a b='&e;'>one &e; three</a></w>",
};

CSmartPtr<CElement> NewElement() {
    return CSmartPtr<CElement>(new CElement("a"));
}

std::string TextOf(CElement& element) {
    return element.ToXml(false, false, EOLType_LF, CSerializationContext::GetDefaultContext());
}

// The document as XML, in both packed forms and as Fast Infoset.
std::vector<std::string> Forms(std::string const& xml) {
    CSmartPtr<CElement> const element = NewElement();
    element->FromXml(xml.c_str());
    std::vector<std::string> forms{xml};
    for (CompressionType const type : {CompressionType_GZip, CompressionType_ZLib}) {
        CBinaryData packed(xml.c_str());
        packed.Append(std::string(2000, ' ')); // so that it shrinks
        CZvZip::Compress(packed, type, true);
        forms.emplace_back(reinterpret_cast<char const*>(packed.GetData()), packed.GetLength());
    }
    CBinaryData const octets = element->ToFastInfosetStream(
        FInfoDecl_None, CSerializationContext::GetDefaultContext(), CompressionType_None);
    forms.emplace_back(reinterpret_cast<char const*>(octets.GetData()), octets.GetLength());
    return forms;
}

TEST(BorrowedInput, IsNotNeededByObjectsThatHaveBeenRead) {
    for (char const* const xml : kXml) {
        CSmartPtr<CElement> const expected = NewElement();
        expected->FromXml(xml, CSerializationContext::GetDefaultContext());
        for (std::string form : Forms(xml)) {
            CSmartPtr<CElement> const element = NewElement();
            element->FromXmlStream(reinterpret_cast<unsigned char*>(form.data()),
                                   static_cast<std::uint32_t>(form.size()),
                                   CSerializationContext::GetDefaultContext());
            form.assign(form.size(), '#');
            EXPECT_EQ(TextOf(*element), TextOf(*expected)) << xml;
        }
    }
}

TEST(BorrowedInput, IsNotWhatADocumentKeeps) {
    for (char const* const xml : kXml) {
        CXmlDocument whole;
        whole.LoadXml(xml);
        CXmlElement const& expected = *whole.GetDocumentElement()->GetFirstElement();
        for (std::string form : Forms(xml)) {
            CXmlDocument document;
            document.LoadXmlStream(reinterpret_cast<unsigned char const*>(form.data()),
                                   static_cast<std::uint32_t>(form.size()));
            form.assign(form.size(), '#');
            CXmlElement const& a = *document.GetDocumentElement()->GetFirstElement();
            EXPECT_EQ(a.GetText(), expected.GetText()) << xml;
            EXPECT_EQ(a.GetAttribute("b", ""), expected.GetAttribute("b", "")) << xml;
        }
        std::string text = xml;
        CXmlDocument document;
        document.LoadXml(text.c_str());
        text.assign(text.size(), '#');
        EXPECT_EQ(document.GetDocumentElement()->GetFirstElement()->GetText(), expected.GetText()) << xml;
    }
}

// Overwrites the data that it is read from.
class Overwriting : public CElement {
public:
    explicit Overwriting(CBinaryData& data) : CElement("a"), m_data(data) {}

protected:
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* current, CSerializationContext const& ctx,
                             bool optionalChoice) override {
        for (std::uint32_t i = 0; i < m_data.GetLength(); ++i)
            m_data[i] = '#';
        return CElement::FromXml_Int(element, current, ctx, optionalChoice);
    }

private:
    CBinaryData& m_data;
};

TEST(BorrowedInput, StaysWhileTheObjectOverwritesIt) {
    CBinaryData data("<w><a b='1'>a text that lies in the data</a></w>");
    CSmartPtr<Overwriting> const element(new Overwriting(data));
    element->FromXmlStream(data, CSerializationContext::GetDefaultContext());
    EXPECT_EQ(data[0], '#');
    EXPECT_EQ(TextOf(*element), "<a b=\"1\">a text that lies in the data</a>");
}

} // namespace
