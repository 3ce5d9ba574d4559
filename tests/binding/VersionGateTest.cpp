// Nothing is written or read for generated code of another version.
#include "tests/support/MessageOf.h"
#include "tests/support/PlainContext.h"
#include "tests/support/WrittenObject.h"
#include "zvxmllib/binding/GeneratorVersion.h"
#include "zvxmllib/collections/Element.h"

#include <gmock/gmock.h>

#include <functional>
#include <string_view>

using namespace ZvXmlLib16;

namespace {

class GeneratorVersion {
public:
    GeneratorVersion(int major, int minor) { SetGeneratorVersion(major, minor); }
    ~GeneratorVersion() { SetGeneratorVersion(16, 1); }
};

struct EntryPoint {
    char const* name;
    std::function<void(WrittenObject&)> call;
};

unsigned char g_bytes[] = {'<', 'a', '/', '>'};

std::vector<EntryPoint> XmlEntryPoints() {
    return {
        {"ToXml", [](WrittenObject& o) { o.ToXml(false, false, EOLType_LF, plainContext); }},
        {"ToXmlStream",
         [](WrittenObject& o) {
             o.ToXmlStream(false, false, XmlEncoding_UTF8, EOLType_LF, plainContext, CompressionType_None);
         }},
        {"ToXmlFile",
         [](WrittenObject& o) {
             o.ToXmlFile("/nowhere/a", false, false, XmlEncoding_UTF8, EOLType_LF, plainContext,
                         CompressionType_None);
         }},
        {"FromXml", [](WrittenObject& o) { o.FromXml("<a/>", plainContext); }},
        {"FromXml, wide", [](WrittenObject& o) { o.FromXml(L"<a/>", plainContext); }},
        {"FromXml, 16 bits", [](WrittenObject& o) { o.FromXml(u"<a/>", plainContext); }},
        {"FromXmlFile", [](WrittenObject& o) { o.FromXmlFile("/nowhere/a", plainContext); }},
        {"FromXmlStream", [](WrittenObject& o) { o.FromXmlStream(CBinaryData("<a/>"), plainContext); }},
        {"FromXmlStream, bytes",
         [](WrittenObject& o) { o.FromXmlStream(g_bytes, sizeof g_bytes, plainContext); }},
        {"FromXmlElement",
         [](WrittenObject& o) { o.FromXmlElement(static_cast<CXmlElement const*>(nullptr), plainContext); }},
        {"FromXmlElement, untyped",
         [](WrittenObject& o) { o.FromXmlElement(static_cast<CElement const*>(nullptr), plainContext); }}};
}

std::vector<EntryPoint> EntryPointsOf(char const* format) {
    if (std::string(format) == "JSON")
        return {
            {"ToJson", [](WrittenObject& o) { o.ToJson(false, EOLType_LF, plainContext); }},
            {"ToJsonStream",
             [](WrittenObject& o) {
                 o.ToJsonStream(false, XmlEncoding_UTF8, EOLType_LF, plainContext, CompressionType_None);
             }},
            {"ToJsonFile",
             [](WrittenObject& o) {
                 o.ToJsonFile("/nowhere/a", false, XmlEncoding_UTF8, EOLType_LF, plainContext,
                              CompressionType_None);
             }},
            {"FromJson", [](WrittenObject& o) { o.FromJson("{}", plainContext); }},
            {"FromJson, wide", [](WrittenObject& o) { o.FromJson(L"{}", plainContext); }},
            {"FromJsonFile", [](WrittenObject& o) { o.FromJsonFile("/nowhere/a", plainContext); }},
            {"FromJsonStream", [](WrittenObject& o) { o.FromJsonStream(CBinaryData("{}"), plainContext); }},
            {"FromJsonStream, bytes",
             [](WrittenObject& o) { o.FromJsonStream(g_bytes, sizeof g_bytes, plainContext); }}};
    return {
        {"ToFastInfosetStream",
         [](WrittenObject& o) { o.ToFastInfosetStream(FInfoDecl_None, plainContext, CompressionType_None); }},
        {"ToFastInfosetFile", [](WrittenObject& o) {
             o.ToFastInfosetFile("/nowhere/a", FInfoDecl_None, plainContext, CompressionType_None);
         }}};
}

TEST(VersionGate, StandsInFrontOfEveryEntryPoint) {
    std::vector<EntryPoint> entryPoints = XmlEntryPoints();
    for (char const* format : {"JSON", "Fast Infoset"}) {
        for (EntryPoint const& entryPoint : EntryPointsOf(format))
            entryPoints.push_back(entryPoint);
    }
    bool isWritten = false;
    CSmartPtr<WrittenObject> const object(new WrittenObject([&](CXmlWriter&) { isWritten = true; }));
    for (int const minor : {0, 2}) {
        GeneratorVersion const version(16, minor);
        for (EntryPoint const& entryPoint : entryPoints) {
            std::string const generator = "Generator: v16." + std::to_string(minor);
            testing::internal::CaptureStderr();
            EXPECT_EQ(MessageOf<CZvException>([&] { entryPoint.call(*object); }),
                      "Wrong Version (Brindle Runtime: v16.1, " + generator + ")")
                << entryPoint.name;
            EXPECT_EQ(testing::internal::GetCapturedStderr(),
                      "Version Mismatch Error: Please ensure your generated code is the same version as this "
                      "library (Brindle Runtime: v16.1, " +
                          generator + ").\n")
                << entryPoint.name;
        }
    }
    EXPECT_FALSE(isWritten);
    EXPECT_EQ(object->m_readElement, "");
}

// A process of its own, in which no bound object has been made so far.
TEST(VersionGateDeathTest, TheFirstObjectOfAProcessShowsTheMismatchOnce) {
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    EXPECT_EXIT(
        {
            SetGeneratorVersion(15, 7);
            for (int i = 0; i < 2; ++i)
                CSmartPtr<WrittenObject> const object(new WrittenObject);
            std::_Exit(0);
        },
        testing::ExitedWithCode(0),
        testing::Eq("Version Mismatch Error: Please ensure your generated code is the same version as this "
                    "library (Brindle Runtime: v16.1, Generator: v15.7).\n"));
}

} // namespace
