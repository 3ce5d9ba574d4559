// Real documents and typed objects to Fast Infoset and back, under every setting that changes the octets.
#include "Octets.h"

#include "benchmarks/typed/Record.h"
#include "examples/cap_alert/CapAlert.h"
#include "examples/purchase_order/PurchaseOrder.h"
#include "tests/support/Bytes.h"
#include "tests/support/LocalEncoding.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>

namespace ZvXmlLib16 {
namespace {

std::string ReadFile(std::filesystem::path const& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

// An untyped object that stands for a whole document.
class CWholeDocument : public CElement {
public:
    explicit CWholeDocument(CXmlDocument const& document) : CElement("") {
        CXmlElement* const root = document.GetDocumentElement();
        FromXml_Int(root, root, CSerializationContext::GetDefaultContext(), false);
    }

protected:
    ~CWholeDocument() override = default;
};

std::string ToFastInfoset(CXmlObjectBase& object, CSerializationContext const& ctx,
                          CompressionType compression = CompressionType_None,
                          FInfoDecl declaration = FInfoDecl_None) {
    return TextOf(object.ToFastInfosetStream(declaration, ctx, compression));
}

std::string TreeUnder(CSerializationContext const& ctx, std::string const& octets) {
    CXmlDocument document(ctx);
    Load(document, octets);
    return TreeText(document);
}

// All names of a document and its short values, as an application knows them in advance.
void Learn(CXmlElement const& element, CFIVocabulary& vocabulary) {
    vocabulary.AddElement("", element.GetNamespaceURI(), element.GetLocalName());
    for (CXmlAttribute const* attribute : element.GetAttributes())
        vocabulary.AddAttribute(attribute->GetNamespaceURI().empty() ? "" : "p", attribute->GetNamespaceURI(),
                                attribute->GetLocalName());
    for (CXmlElement const* child = element.GetFirstElement(); child != nullptr;
         child = child->GetNextSiblingElement())
        Learn(*child, vocabulary);
}

TEST(FastInfosetRoundTrip, KeepsRealDocumentsUnderEverySetting) {
    LocalEncoding const local(65001);
    int count = 0;
    for (auto const& entry : std::filesystem::directory_iterator(ZV_EXAMPLE_DATA_DIR)) {
        if (entry.path().extension() == ".md")
            continue;
        ++count;
        CXmlDocument source;
        source.Load(entry.path().c_str());
        std::string const tree = TreeText(source);
        CSmartPtr<CWholeDocument> const object(new CWholeDocument(source));
        struct Setting {
            char const* name;
            std::function<void(CFastInfosetContext&)> apply;
        };
        // How much is indexed is varied below.
        for (Setting const& setting :
             {Setting{"default", [](CFastInfosetContext&) {}},
              Setting{"suggested encodings", [](CFastInfosetContext& fi) { fi.SetSuggestedValues(); }},
              Setting{"shared vocabulary", [&](CFastInfosetContext& fi) {
                          Learn(*source.GetDocumentElement(), *fi.GetVocabulary());
                          fi.GetVocabulary()->AddElementValue("true");
                          fi.GetVocabulary()->AddAttributeValue("1");
                          fi.SetUseGeneratedVocabulary(true);
                          fi.SetExternalVocabularyURI("urn:example:vocabulary");
                      }}}) {
            CSerializationContext ctx;
            setting.apply(ctx.GetFIContext());
            for (auto const& [compression, declaration] :
                 {std::pair(CompressionType_None, FInfoDecl_None),
                  std::pair(CompressionType_GZip, FInfoDecl_Version10),
                  std::pair(CompressionType_ZLib, FInfoDecl_Version11StandaloneYes)}) {
                std::string const octets = ToFastInfoset(*object, ctx, compression, declaration);
                EXPECT_TRUE(TreeUnder(ctx, octets) == tree) << entry.path() << ", " << setting.name;
            }
        }
    }
    EXPECT_GE(count, 6);
}

TEST(FastInfosetRoundTrip, KeepsNamesAndValuesOfEveryLengthAndNumber) {
    LocalEncoding const local(65001);
    std::string xml = "<r>";
    for (int i = 0; i < 9000; ++i) {
        std::string const number = std::to_string(i);
        xml += "<e" + number + " a" + number + "='" + number + "'>" + number + "</e" + number + ">";
        xml += "<e" + std::to_string(i / 2) + " a" + std::to_string(i / 3) + "='" + std::to_string(i / 4) +
               "'/>";
    }
    for (std::size_t const length :
         {1U, 2U, 3U, 8U, 9U, 64U, 65U, 258U, 259U, 264U, 265U, 320U, 321U, 70000U}) {
        std::string const text(length, 't');
        xml += "<" + text + " x='" + text + "'>" + text + "</" + text + ">";
    }
    CXmlDocument source;
    source.LoadXml((xml + "</r>").c_str());
    CSmartPtr<CWholeDocument> const object(new CWholeDocument(source));
    for (std::uint32_t const limit : {0U, 6U, 0xFFFFFFFFU}) {
        CSerializationContext ctx;
        ctx.GetFIContext().SetAttributeMaxAddLength(limit);
        ctx.GetFIContext().SetElementMaxAddLength(limit);
        EXPECT_TRUE(TreeUnder(ctx, ToFastInfoset(*object, ctx)) == TreeText(source)) << limit;
    }
}

// Written from the object that `xml` gives, read into a fresh one, and written as XML text again.
template <class Class>
void ExpectTypedRoundTrip(std::string const& xml, char const* ns) {
    LocalEncoding const local(65001);
    for (bool const isSuggested : {false, true}) {
        for (std::uint32_t const limit : {0U, 6U, 0xFFFFFFFFU}) {
            CSerializationContext ctx;
            ctx.SetDefaultNamespaceURI(ns);
            if (isSuggested)
                ctx.GetFIContext().SetSuggestedValues();
            // The alphabet of dates has no plus, which the zones of alerts have.
            ctx.GetFIContext().SetEncoding(ItemType_datetime, {CFastInfosetContext::EncodingType_String, 0});
            ctx.GetFIContext().SetAttributeMaxAddLength(limit);
            ctx.GetFIContext().SetElementMaxAddLength(limit);
            CSmartPtr<Class> const object(new Class);
            object->FromXml(xml.c_str(), ctx);
            std::string octets = ToFastInfoset(*object, ctx);
            CSmartPtr<Class> const copy(new Class);
            copy->FromXmlStream(reinterpret_cast<unsigned char*>(octets.data()),
                                static_cast<std::uint32_t>(octets.size()), ctx);
            EXPECT_EQ(copy->ToXml(false, false, EOLType_LF, ctx),
                      object->ToXml(false, false, EOLType_LF, ctx))
                << limit;
        }
    }
}

TEST(FastInfosetRoundTrip, KeepsTypedObjectsUnderTheirEncodings) {
    ExpectTypedRoundTrip<bench::CRecords>(bench::MakeRecords(20'000), bench::kRecordNamespace);
    ExpectTypedRoundTrip<cap::CAlert>(ReadFile(ZV_EXAMPLE_DATA_DIR "/cap-tsunami.xml"), cap::kNamespace);
    ExpectTypedRoundTrip<purchase_order::COrder>(
        "<order xmlns='urn:example:purchase-order' number='-2147483648' date='2026-11-23' status='sent'>"
        "<customer>Gr\xC3\xBCn &amp; S\xC3\xB6hne</customer>"
        "<item sku='a'><name>Tea</name><quantity>1000</quantity><price>4.2</price></item>"
        "<item sku='a'><name/><quantity>1</quantity><price>-12345678.25</price></item>"
        "<delivery>2026-11-27</delivery><delivery>2026-11-30Z</delivery></order>",
        "urn:example:purchase-order");
    purchase_order::COrder::CleanUp();
    purchase_order::CItem::CleanUp();
}

} // namespace
} // namespace ZvXmlLib16
