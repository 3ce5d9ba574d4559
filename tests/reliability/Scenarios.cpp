// Representative reads and writes, one of each kind and format.
#include "Scenarios.h"

#include "examples/cap_alert/CapAlert.h"
#include "tests/support/TemporaryFile.h"
#include "zvxmllib/ZvXmlLib.h"

using namespace ZvXmlLib16;

namespace {

constexpr char kUntyped[] =
    "<?xml version='1.0'?><!-- untyped --><a:order xmlns:a='urn:a' xmlns='urn:b' a:id='7' note='x &amp; y'>"
    "<item>1</item><item n='2'><![CDATA[<two>]]></item>text <a:last/></a:order>";

std::string const& AlertText() {
    static std::string const text = [] {
        std::ifstream file(ZV_EXAMPLE_DATA_DIR "/cap-tsunami.xml", std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }();
    return text;
}

CSerializationContext AlertContext() {
    CSerializationContext ctx;
    ctx.SetDefaultNamespaceURI(cap::kNamespace);
    return ctx;
}

CSmartPtr<cap::CAlert> Alert(CSerializationContext const& ctx) {
    CSmartPtr<cap::CAlert> alert(new cap::CAlert);
    alert->FromXml(AlertText().c_str(), ctx);
    return alert;
}

std::string ReadTyped() {
    CSerializationContext const ctx = AlertContext();
    return Alert(ctx)->ToXml(true, true, EOLType_LF, ctx);
}

std::string ReadUntyped() {
    CSmartPtr<CElement> const element(new CElement("order"));
    element->FromXml(kUntyped);
    CSerializationContext ctx;
    ctx.GetNamespaceAliases().Add("p", "urn:a");
    ctx.GetAdditionalRootAttributes()->Add("added", "value");
    ctx.GetProcessingInstructions().push_back("target data");
    return element->ToXml(true, true, EOLType_CRLF, ctx);
}

std::string RefuseInvalid() {
    CSerializationContext const ctx = AlertContext();
    std::string text = AlertText();
    text.replace(text.find("<severity>") + 10, 1, "?");
    try {
        CSmartPtr<cap::CAlert> const alert(new cap::CAlert);
        alert->FromXml(text.c_str(), ctx);
    } catch (CZvException const& failure) {
        return failure.GetFullMessage();
    }
    return "accepted";
}

template <CompressionType type, XmlEncoding encoding>
std::string ThroughBytes() {
    CSerializationContext const ctx = AlertContext();
    CBinaryData const bytes = Alert(ctx)->ToXmlStream(true, false, encoding, EOLType_LF, ctx, type);
    CSmartPtr<cap::CAlert> const copy(new cap::CAlert);
    copy->FromXmlStream(bytes, ctx);
    return copy->ToXml(false, false, EOLType_LF, ctx);
}

template <bool isSuggested>
std::string ThroughFastInfoset() {
    CSerializationContext ctx = AlertContext();
    if (isSuggested)
        ctx.GetFIContext().SetSuggestedValues();
    // The alphabet of dates has no plus, which the zones of alerts have.
    ctx.GetFIContext().SetEncoding(ItemType_datetime, {CFastInfosetContext::EncodingType_String, 0});
    CBinaryData const bytes = Alert(ctx)->ToFastInfosetStream(FInfoDecl_None, ctx, CompressionType_None);
    CSmartPtr<cap::CAlert> const copy(new cap::CAlert);
    copy->FromXmlStream(bytes, ctx);
    return copy->ToXml(false, false, EOLType_LF, ctx);
}

std::string WriteJson() {
    CSerializationContext const ctx = AlertContext();
    return Alert(ctx)->ToJson(true, EOLType_LF, ctx);
}

// A plain text, which is read straight, and one that has to go by way of XML text.
std::string ThroughJson() {
    CSerializationContext const ctx = AlertContext();
    std::string const json = Alert(ctx)->ToJson(true, EOLType_LF, ctx);
    CSmartPtr<cap::CAlert> const copy(new cap::CAlert);
    copy->FromJson(json.c_str(), ctx);
    CSmartPtr<CElement> const element(new CElement(""));
    element->FromJson("{\"a\":{\"@b\":\"\\t\\ud83d\\ude00\",\"c\":[1,{\"d\":null}]}}", ctx);
    return copy->ToXml(false, false, EOLType_LF, ctx) + element->ToXml(false, false, EOLType_LF, ctx);
}

std::string CopyObject() {
    CSerializationContext const ctx = AlertContext();
    CSerializationContext const copied(ctx);
    ZvVariant text;
    text.SetString("a value that is too long to be kept in place, whatever the string class");
    ZvVariant const other(text);
    ZvVariant number;
    number.FromString("123456789012345678901234567890.5", ItemType_decimal,
                      CWhitespaceUtils::WhitespaceRule_Collapse);
    ZvVariant const sameNumber(number);
    return Alert(copied)->ToXml(false, false, EOLType_LF, copied) + other.ToString(nullptr) +
           sameNumber.ToString(nullptr);
}

class OverlappedFiles {
public:
    explicit OverlappedFiles(bool isOn) {
        AsyncToXmlFile(isOn);
        AsyncFromXmlFile(isOn);
    }
    ~OverlappedFiles() {
        AsyncToXmlFile(false);
        AsyncFromXmlFile(false);
    }
};

template <CompressionType type, bool isOverlapped>
std::string ThroughFile() {
    OverlappedFiles const overlapped(isOverlapped);
    CSerializationContext const ctx = AlertContext();
    TemporaryFile const file;
    Alert(ctx)->ToXmlFile(file.Path(), true, false, XmlEncoding_UTF16, EOLType_LF, ctx, type);
    CSmartPtr<cap::CAlert> const copy(new cap::CAlert);
    copy->FromXmlFile(file.Path(), ctx);
    return copy->ToXml(false, false, EOLType_LF, ctx);
}

// The other formats have their steps before the file in common with the scenarios in memory: a small
// document.
template <CompressionType type, bool isOverlapped>
std::string ThroughFilesOfOtherFormats() {
    OverlappedFiles const overlapped(isOverlapped);
    CSerializationContext const& ctx = CSerializationContext::GetDefaultContext();
    CSmartPtr<CElement> element(new CElement(""));
    // Large enough to be worth compressing.
    element->FromXml(
        ("<order number='7'><item>" + std::string(500, 'x') + "</item><item/>text</order>").c_str());
    TemporaryFile const file;
    element->ToJsonFile(file.Path(), true, XmlEncoding_UTF8, EOLType_LF, ctx, type);
    element = new CElement("");
    element->FromJsonFile(file.Path(), ctx);
    element->ToFastInfosetFile(file.Path(), FInfoDecl_Version10, ctx, type);
    element = new CElement("");
    // A document that is read in overlapped transfers is XML text.
    AsyncFromXmlFile(false);
    element->FromXmlFile(file.Path(), ctx);
    return element->ToXml(false, false, EOLType_LF, ctx);
}

} // namespace

std::vector<Scenario> const& MemoryScenarios() {
    static std::vector<Scenario> const scenarios = {
        {"typed XML text", ReadTyped},
        {"untyped XML text", ReadUntyped},
        {"XML that the facets refuse", RefuseInvalid},
        {"XML bytes", ThroughBytes<CompressionType_None, XmlEncoding_UTF16>},
        {"compressed XML bytes", ThroughBytes<CompressionType_GZip, XmlEncoding_UTF8>},
        {"Fast Infoset", ThroughFastInfoset<false>},
        {"Fast Infoset with suggested encodings", ThroughFastInfoset<true>},
        {"JSON text", WriteJson},
        {"JSON", ThroughJson},
        {"copies", CopyObject}};
    return scenarios;
}

std::vector<Scenario> const& FileScenarios() {
    static std::vector<Scenario> const scenarios = {
        {"an XML file", ThroughFile<CompressionType_None, false>},
        {"a compressed XML file", ThroughFile<CompressionType_GZip, false>},
        {"an XML file by overlapped transfers", ThroughFile<CompressionType_None, true>},
        {"a JSON and a Fast Infoset file", ThroughFilesOfOtherFormats<CompressionType_None, false>},
        {"the same compressed", ThroughFilesOfOtherFormats<CompressionType_GZip, false>},
        {"the same by overlapped transfers", ThroughFilesOfOtherFormats<CompressionType_None, true>}};
    return scenarios;
}
