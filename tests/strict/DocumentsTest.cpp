// Real documents in a strict context, from format to format and back, compared by other parsers.
#include "tests/strict/Twice.h"
#include "tests/support/Infoset.h"
#include "tests/support/RealDocuments.h"
#include "zvxmllib/collections/Element.h"

using namespace entries;

namespace {

// Whether names that come again stand beside each other, and no text stands ahead of a child.
bool HasPlaceInJson(Infoset const& element) {
    std::set<std::string> names;
    for (std::size_t i = 0; i < element.children.size(); ++i) {
        std::string const& name = element.children[i].name;
        bool const isRun = i != 0 && element.children[i - 1].name == name;
        if ((!names.insert(name).second && !isRun) || !infoset_detail::IsBlank(element.texts[i]) ||
            !HasPlaceInJson(element.children[i]))
            return false;
    }
    return true;
}

void ExpectSame(std::optional<Infoset> const& written, Infoset const& before, TextPlaces places) {
    ASSERT_TRUE(written.has_value());
    EXPECT_TRUE(Print(*written, places) == Print(before, places));
    EXPECT_TRUE(KeepsPrefixes(before, *written));
}

using Reading = std::function<void(CXmlObjectBase& element, CSerializationContext const& ctx)>;

std::string XmlOf(Reading const& read) {
    CSmartPtr<CElement> const element(new CElement(""));
    read(*element, Strict());
    return element->ToXml(false, false, EOLType_LF, Strict());
}

TEST(StrictDocuments, StayTheSameInEveryFormat) {
    int inJson = 0;
    for (std::string const& path : RealDocuments()) {
        SCOPED_TRACE(path);
        std::optional<Infoset> const before = InfosetOfXml(ReadAll(path));
        ASSERT_TRUE(before.has_value());
        CSmartPtr<CElement> const element(new CElement(""));
        element->FromXmlFile(path.c_str(), Strict());
        ExpectSame(InfosetOfXml(element->ToXml(true, false, EOLType_LF, Strict())), *before,
                   TextPlaces::Exact);
        ExpectSame(InfosetOfXml(element->ToXml(true, true, EOLType_LF, Strict())), *before,
                   TextPlaces::Unformed);
        for (CompressionType const compression :
             {CompressionType_None, CompressionType_GZip, CompressionType_ZLib}) {
            for (CBinaryData const& octets :
                 {element->ToXmlStream(true, false, XmlEncoding_UTF16, EOLType_LF, Strict(), compression),
                  element->ToFastInfosetStream(FInfoDecl_None, Strict(), compression)})
                ExpectSame(
                    InfosetOfXml(XmlOf([&](auto& again, auto& ctx) { again.FromXmlStream(octets, ctx); })),
                    *before, TextPlaces::Exact);
        }
        if (!HasPlaceInJson(*before)) {
            EXPECT_THROW(element->ToJson(false, EOLType_LF, Strict()), CZvInvalidStateException);
            continue;
        }
        ++inJson;
        for (bool const isFormatted : {false, true}) {
            std::string const json = element->ToJson(isFormatted, EOLType_LF, Strict());
            ExpectSame(InfosetOfJson(json), *before, TextPlaces::ByJson);
            ExpectSame(
                InfosetOfXml(XmlOf([&](auto& again, auto& ctx) { again.FromJson(json.c_str(), ctx); })),
                *before, TextPlaces::Unformed);
        }
    }
    EXPECT_GT(inJson, 0);
}

} // namespace
