// How the time grows with inputs that are made to be slow: nanoseconds for each byte at three sizes, which
// stay the same where the time is in proportion to the length.
#include "benchmarks/Documents.h"
#include "tests/support/Entries.h"

#include <chrono>
#include <cstdio>
#include <functional>
#include <string>

using namespace ZvXmlLib16;
using namespace ZvXmlLib16Data;

namespace {

using Make = std::function<std::string(std::size_t)>;
using Read = std::function<void(std::string const&)>;

void Measure(char const* what, Make const& make, Read const& read) {
    std::printf("%-42s", what);
    for (std::size_t const size : {std::size_t{1} << 18U, std::size_t{1} << 20U, std::size_t{1} << 22U}) {
        std::string const xml = make(size);
        auto const begin = std::chrono::steady_clock::now();
        read(xml);
        std::chrono::duration<double, std::nano> const time = std::chrono::steady_clock::now() - begin;
        std::printf("%9.1f", time.count() / static_cast<double>(xml.size()));
    }
    std::printf("\n");
}

Make Filled(char const* begin, char const* end) {
    return [=](std::size_t size) { return begin + std::string(size, 'x') + end; };
}

Make Repeated(std::string const& child) {
    return [=](std::size_t size) {
        std::string xml = "<order>";
        while (xml.size() < size)
            xml += child;
        return xml + "</order>";
    };
}

void Load(std::string const& xml) {
    CXmlDocument document;
    bench::Load(document, xml);
}

// "order" may have the group, whose members are another such group and a mandatory "n"; of depth 3. The last
// group also begins with "a".
struct NestedGroups {
    static inline Model s_groups[3];

    NestedGroups() {
        for (int i = 0; i < 3; ++i) {
            Model& group = s_groups[i];
            group.type = XmlElementType_Pseudo;
            group.elements.push_back(i < 2 ? Optional(i + 1) : entries::Prim<CElementInfoSeqPrimMnd>("a", 0));
            group.elements.push_back(entries::Prim<CElementInfoSeqPrimMnd>("n", 1));
            group.Finish();
        }
        order.elements = {Optional(0)};
        order.Finish();
    }
    static CElementInfo* Optional(int group) {
        return new CElementInfoSeqClsOpt(
            "g", "", 0, XmlElementType_Pseudo,
            [](int number, char const*) {
                return CSmartPtr<CXmlObjectBase>(static_cast<CXmlObjectBase*>(new Probe(s_groups[number])));
            },
            group);
    }

    Model order;
};

} // namespace

int main() {
    SetGeneratorVersion(kLibraryMajorVersion, kLibraryMinorVersion);
    NestedGroups groups;
    CSerializationContext ctx;
    ctx.SetIgnoreUnknownElements(true);
    Read const readGroups = [&](std::string const& xml) {
        CSmartPtr<Probe> const probe(new Probe(groups.order));
        probe->FromXml(xml.c_str(), ctx);
    };
    std::printf("%-42s%9s%9s%9s\n", "nanoseconds for each byte", "256 KiB", "1 MiB", "4 MiB");
    Measure("a comment", Filled("<r><!--", "--></r>"), Load);
    Measure("an attribute value", Filled("<r a='", "'/>"), Load);
    Measure("an entity's text", Filled("<!DOCTYPE r [<!ENTITY e '", "'>]><r/>"), Load);
    Measure("unknown elements under three groups", Repeated("<z/>"), readGroups);
    Measure("a group of which a part is found", Repeated("<a>1</a>"), readGroups);
    return 0;
}
