// The samples of the guide that need no schema: untyped content, large files, encodings.
#include <zvxmllib/ZvXmlLib.h>

#include <cstdio>
#include <fstream>
#include <iostream>
#include <string>

using namespace ZvXmlLib16;

namespace {

void Heading(char const* title) {
    std::cout << "== " << title << '\n';
}

void Untyped() {
    Heading("untyped");
    CSerializationContext ctx;
    ctx.SetStrict(true);
    CSmartPtr<CElement> const page = new CElement("");
    page->FromXml("<p>Tea is <b>hot</b>, and <i>green</i>.</p>", ctx);
    for (CSmartPtr<CElement> const& child : *page->GetChildElements())
        std::cout << child->GetName() << ": " << child->GetText() << '\n';
    page->GetAttributes()->Add("lang", "en");
    page->GetChildElements()->Item(1)->SetText("black");
    std::cout << page->ToXml(false, false, EOLType_LF, ctx) << '\n';
}

void WriteLarge(char const* file, int records) {
    std::ofstream out(file);
    out << "<log>\n";
    for (int i = 1; i <= records; ++i)
        out << "  <record level='" << (i % 1000 == 0 ? "error" : "info") << "'><text>Event " << i
            << "</text></record>\n";
    out << "</log>\n";
}

int s_errors = 0;

// Called at the end of each element. True removes it from the tree, so that memory stays small.
bool CountErrors(CXmlElement* element) {
    if (element->GetLocalName() != "record")
        return false; // a part of a record: kept until its record has been seen
    if (element->GetAttribute("level", "") == "error" && ++s_errors == 1)
        std::cout << "the first: " << element->GetFirstElement()->GetText() << '\n';
    return true;
}

void LargeFiles() {
    Heading("large files");
    WriteLarge("log.xml", 10000);
    AsyncFromXmlFile(true); // parse one part while the next one is read
    CXmlDocument document(CountErrors);
    document.Load("log.xml");
    AsyncFromXmlFile(false);
    std::remove("log.xml");
    std::cout << s_errors << " errors\n";
}

void Encodings() {
    Heading("encodings");
    CSmartPtr<CElement> const note = new CElement("note");
    note->SetText("Gr\xC3\xBC\xC3\x9F"
                  "e"); // UTF-8 in the source: u and e with diaeresis, sharp s
    CSerializationContext ctx;
    CBinaryData const utf16 =
        note->ToXmlStream(true, false, XmlEncoding_UTF16, EOLType_LF, ctx, CompressionType_None);
    std::cout << utf16.GetLength() << " bytes of UTF-16\n";
    CXmlDocument document;
    document.LoadXmlStream(utf16.GetData(), utf16.GetLength());
    std::cout << document.GetDocumentElement()->GetText() << '\n';
    document.LoadXml("<?xml version='1.0' encoding='ISO-8859-1'?><note>Gr\xFC\xDF"
                     "e</note>");
    std::cout << document.GetDocumentElement()->GetText() << '\n';
}

} // namespace

int main() {
    try {
        SetGeneratorVersion(16, 1);
        SetLocalCharEncoding(65001); // texts of this program are UTF-8
        Untyped();
        LargeFiles();
        Encodings();
        return 0;
    } catch (CZvException const& failure) {
        std::cerr << failure.GetFullMessage() << '\n';
        return 1;
    }
}
