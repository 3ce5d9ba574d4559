// Inputs that are made to be slow: four times the length takes about four times the time, not sixteen.
#include "tests/driver/Reading.h"
#include "tests/support/TemporaryFile.h"
#include "zvxmllib/collections/Element.h"
#include "zvxmllib/collections/ItemMaker.h"
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

std::string Repeated(std::size_t count, char const* text) {
    std::string all;
    for (std::size_t i = 0; i < count; ++i)
        all += text;
    return all;
}

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
    CSerializationContext ctx = Ignoring(&CSerializationContext::SetIgnoreUnknownElements);
    for (bool const strict : {false, true}) {
        ctx.SetStrict(strict);
        ExpectLinear(
            strict ? "unknown elements under groups, strict" : "unknown elements under three groups", 20000,
            [](std::size_t count) { return "<order>" + Repeated(count, "<z/>") + "</order>"; },
            [&](std::string const& xml) { EXPECT_EQ(Outcome(model, xml.c_str(), ctx), "<order/>"); });
    }
    // Between known ones, in groups that repeat.
    Model item;
    item.type = XmlElementType_Pseudo;
    item.elements = {Prim<CElementInfoSeqPrimMnd>("p", 0), Prim<CElementInfoSeqPrimMnd>("q", 1)};
    item.Finish();
    class Telling : public ProbeCol, public IItemMaker {
    public:
        explicit Telling(Model& items) : ProbeCol(items, 0, -1), m_items(items) {}
        CSmartPtr<CXmlObjectBase> MakeItem() const override { return new Probe(m_items); }

    private:
        Model& m_items;
    };
    OrderOf many({new CElementInfoSeqClsCol("group", "", 0, XmlElementType_Pseudo)},
                 [&](Probe& probe) { probe.properties[0].SetXmlCollection(new Telling(item)); });
    ExpectLinear(
        "unknown elements in groups, strict", 4000,
        [](std::size_t count) {
            return "<order>" + Repeated(count, "<z/><p>1</p><z/><q>2</q>") + "</order>";
        },
        [&](std::string const& xml) { EXPECT_NE(Outcome(many, xml.c_str(), ctx), "<order/>"); });
}

// An optional group "a, (m)" in which "m" is missing, and groups whose "m" is behind each item of a
// collection.
TEST(LinearTime, OfGroupsOfWhichAPartIsFound) {
    static Model ends, partial, behindItem;
    for (Model* group : {&ends, &partial, &behindItem})
        group->type = XmlElementType_Pseudo;
    auto const mandatory = [] {
        return new CElementInfoSeqClsMnd("g", "", 0, XmlElementType_Pseudo, nullptr, 0, true);
    };
    auto const optional = [](Model& group) {
        static Model* s_group[2];
        int const number = &group == &partial ? 0 : 1;
        s_group[number] = &group;
        return new CElementInfoSeqClsOpt(
            "g", "", 0, XmlElementType_Pseudo,
            [](int id, char const*) {
                return CSmartPtr<CXmlObjectBase>(static_cast<CXmlObjectBase*>(new Probe(*s_group[id])));
            },
            number);
    };
    ends.elements = {Prim<CElementInfoSeqPrimOpt>("a", 1), Enum<CElementInfoSeqEnumMnd>("m", 2)};
    partial.elements = {mandatory()};
    partial.init = [](Probe& probe) { probe.properties[0].SetXmlObject(new Probe(ends)); };
    behindItem.elements = {Prim<CElementInfoSeqPrimMnd>("a", 1), optional(partial)};
    for (Model* group : {&ends, &partial, &behindItem})
        group->Finish();
    OrderOf one({optional(partial)});
    OrderOf many({new CElementInfoSeqClsCol("g", "", 0, XmlElementType_Pseudo)},
                 [](Probe& probe) { probe.properties[0].SetXmlCollection(new ProbeCol(behindItem, 0, -1)); });
    CSerializationContext const ctx = Ignoring(&CSerializationContext::SetIgnoreUnknownElements);
    auto const items = [](std::size_t count) { return "<order>" + Repeated(count, "<a>1</a>") + "</order>"; };
    ExpectLinear("a group of which a part is found", 5000, items,
                 [&](std::string const& xml) { EXPECT_EQ(Outcome(one, xml.c_str(), ctx), "<order/>"); });
    ExpectLinear("an optional group behind each item", 5000, items,
                 [&](std::string const& xml) { EXPECT_EQ(Outcome(many, xml.c_str(), ctx), xml); });
}

// Reads an untyped element and writes it, by the letter.
void Copy(std::string const& xml) {
    CSerializationContext ctx;
    ctx.SetStrict(true);
    CSmartPtr<CElement> const element(new CElement(""));
    static_cast<CXmlObjectBase&>(*element).FromXml(xml.c_str(), ctx);
    EXPECT_GE(element->ToXml(false, false, EOLType_LF, ctx).size(), xml.size());
}

TEST(LinearTime, OfPrefixesInScope) {
    auto const declarations = [](std::size_t count, char const* uri) {
        std::string xml;
        for (std::size_t i = 0; i < count; ++i)
            xml += " xmlns:p" + std::to_string(i) + "='" + uri + std::to_string(i) + "'";
        return xml;
    };
    constexpr std::size_t kAll = 1 << 20;
    auto const names = [](std::size_t count, std::size_t different) {
        std::string xml;
        for (std::size_t i = 0; i < count; ++i)
            xml += "<a>p" + std::to_string(i % different) + ":x</a>";
        return xml;
    };
    ExpectLinear(
        "prefixes of one element", 4000,
        [&](std::size_t count) {
            return "<r" + declarations(count, "u") + ">" + names(count, kAll) + "</r>";
        },
        Copy);
    ExpectLinear(
        "prefixes declared again", 2000,
        [&](std::size_t count) {
            return "<r" + declarations(count, "u") + "><r" + declarations(count, "v") + ">" +
                   names(count, kAll) + "</r></r>";
        },
        Copy);
    ExpectLinear(
        "prefixes of a deep element", 4000,
        [&](std::size_t count) {
            std::string const deep = Repeated(400, "<d>") + names(count, 16) + Repeated(400, "</d>");
            return "<r" + declarations(16, "u") + ">" + deep + "</r>";
        },
        Copy);
}

TEST(LinearTime, OfStrictJson) {
    CSerializationContext ctx;
    ctx.SetStrict(true);
    auto const read = [&](std::string const& json) {
        CSmartPtr<CElement> const element(new CElement(""));
        element->FromJson(json.c_str(), ctx);
    };
    auto const object = [](std::function<std::string(std::size_t)> const& member) {
        return [=](std::size_t count) {
            std::string json = "{\"r\":{";
            for (std::size_t i = 0; i < count; ++i)
                json += member(i);
            return json + "\"z\":null}}";
        };
    };
    ExpectLinear("members of an object", 20000,
                 object([](std::size_t i) { return "\"a" + std::to_string(i) + "\":1,"; }), read);
}

} // namespace
