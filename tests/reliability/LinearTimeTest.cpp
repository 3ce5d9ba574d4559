// Inputs that are made to be slow: four times the length takes about four times the time, not sixteen.
#include "tests/driver/Reading.h"
#include "tests/support/TemporaryFile.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/streams/AsyncFiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

using namespace entries;

namespace {

double Seconds(std::function<void()> const& action) {
    double best = 1e9;
    for (int time = 0; time < 3; ++time) {
        auto const begin = std::chrono::steady_clock::now();
        action();
        best =
            std::min(best, std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count());
    }
    return best;
}

// `make` gives the document of a size, `read` reads it.
void ExpectLinear(char const* what, std::size_t size, std::function<std::string(std::size_t)> const& make,
                  std::function<void(std::string const&)> const& read) {
    std::string const shorter = make(size);
    std::string const longer = make(4 * size);
    double const ratio = Seconds([&] { read(longer); }) / std::max(Seconds([&] { read(shorter); }), 1e-4);
    std::printf("%-40s %9zu and %9zu bytes: %.1f times the time\n", what, shorter.size(), longer.size(),
                ratio);
    EXPECT_LT(ratio, 12) << what;
}

void Load(std::string const& xml) {
    CXmlDocument document;
    document.LoadXmlStream(reinterpret_cast<unsigned char const*>(xml.data()),
                           static_cast<std::uint32_t>(xml.size()));
}

void LoadOverlapped(std::string const& xml) {
    TemporaryFile const file(xml);
    AsyncFromXmlFile(true);
    CXmlDocument document;
    document.Load(file.Path());
    AsyncFromXmlFile(false);
}

TEST(LinearTime, OfOneLongToken) {
    constexpr std::size_t kSize = 4 << 20;
    auto const filled = [](char const* begin, char const* end) {
        return [=](std::size_t size) { return begin + std::string(size, 'x') + end; };
    };
    ExpectLinear("a comment", kSize, filled("<r><!--", "--></r>"), Load);
    ExpectLinear("a comment, by overlapped transfers", kSize, filled("<r><!--", "--></r>"), LoadOverlapped);
    ExpectLinear("an attribute value", kSize, filled("<r a='", "'/>"), Load);
    ExpectLinear("an entity's text", kSize, filled("<!DOCTYPE r [<!ENTITY e '", "'>]><r/>"), Load);
    ExpectLinear(
        "attributes", 100'000,
        [](std::size_t count) {
            std::string xml = "<r";
            for (std::size_t i = 0; i < count; ++i)
                xml += " a" + std::to_string(i) + "=''";
            return xml + "/>";
        },
        Load);
}

TEST(LinearTime, OfUnknownElementsUnderNestedGroups) {
    static Model groups[3];
    auto const makeGroup = [](int number, char const*) {
        return CSmartPtr<CXmlObjectBase>(static_cast<CXmlObjectBase*>(new Probe(groups[number])));
    };
    for (int number = 2; number >= 0; --number) {
        Model& group = groups[number];
        group.type = XmlElementType_Pseudo;
        if (number < 2)
            group.elements = {
                new CElementInfoSeqClsOpt("g", "", 0, XmlElementType_Pseudo, makeGroup, number + 1)};
        group.elements.push_back(Prim<CElementInfoSeqPrimMnd>("n", 1));
        group.Finish();
    }
    OrderOf model({new CElementInfoSeqClsOpt("g", "", 0, XmlElementType_Pseudo, makeGroup, 0)});
    CSerializationContext const ctx = Ignoring(&CSerializationContext::SetIgnoreUnknownElements);
    ExpectLinear(
        "unknown elements under three groups", 20000,
        [](std::size_t count) {
            std::string xml = "<order>";
            for (std::size_t i = 0; i < count; ++i)
                xml += "<z/>";
            return xml + "</order>";
        },
        [&](std::string const& xml) { EXPECT_EQ(Outcome(model, xml.c_str(), ctx), "<order/>"); });
}

} // namespace
