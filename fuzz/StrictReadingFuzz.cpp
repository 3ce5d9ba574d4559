// Documents of any format, read strictly and written strictly again in each format: the same document, by
// independent parsers, or an exception. A bound object keeps the elements and attributes, and what it writes
// is read as an equal one.
#include "StrictOutput.h"
#include "examples/purchase_order/PurchaseOrder.h"

#include <algorithm>

namespace {

enum class Format { Xml, Json, FastInfoset };

// What the object is to read, in its format.
class Input {
public:
    explicit Input(std::string_view text) : m_format(FormatOf(text)) {
        m_octets.SetBuffer(reinterpret_cast<unsigned char const*>(text.data()),
                           static_cast<std::uint32_t>(text.size()));
    }

    void ReadInto(CXmlObjectBase& object, CSerializationContext const& ctx) const {
        m_format == Format::Json ? object.FromJsonStream(m_octets, ctx) : object.FromXmlStream(m_octets, ctx);
    }
    // By an independent parser. Nothing where none can tell: of Fast Infoset, of numbers beyond a double, and
    // of what is compressed.
    std::optional<Infoset> Parsed() const {
        std::string_view const text = TextOf(m_octets);
        std::optional<Infoset> document = m_format == Format::Xml    ? InfosetOfXml(text)
                                          : m_format == Format::Json ? InfosetOfJson(text)
                                                                     : std::nullopt;
        Require(document || m_format == Format::FastInfoset || IsBeyond(text));
        return document;
    }

private:
    static Format FormatOf(std::string_view text) {
        std::string_view const first = text.substr(0, 1);
        if (first == "\xE0" || text.substr(0, 100).find("finf") != std::string_view::npos)
            return Format::FastInfoset;
        return first == "{" ? Format::Json : Format::Xml;
    }
    bool IsBeyond(std::string_view text) const {
        return m_format == Format::Json
                   ? text.size() > 300 || text.find_first_of("eE") != std::string_view::npos
                   : text.substr(0, 1) == "\x1F" || text.substr(0, 1) == "\x78";
    }

    Format m_format;
    CBinaryData m_octets;
};

void TryUntyped(Input const& input) {
    std::optional<CSmartPtr<CElement>> const element = Attempt([&] {
        return ReadUntyped([&](CXmlObjectBase& object, auto const& ctx) { input.ReadInto(object, ctx); });
    });
    if (!element)
        return;
    std::optional<Infoset> const before = input.Parsed();
    std::optional<std::string> const xml = Attempt([&] { return XmlOf(**element); });
    if (!xml)
        return;
    std::optional<Infoset> const written = InfosetOfXml(*xml);
    std::string const tree = Printed(written, TextPlaces::Exact);
    if (before) {
        RequireEqual(WithoutMinusZeros(tree), WithoutMinusZeros(Print(*before, TextPlaces::Exact)), *xml);
        Require(KeepsPrefixes(*before, *written));
    }
    RequireReadable(*xml, tree,
                    [&](CXmlObjectBase& again, auto const& ctx) { again.FromXml(xml->c_str(), ctx); });
    CBinaryData const octets =
        (*element)->ToFastInfosetStream(FInfoDecl_None, Strict(), CompressionType_None);
    RequireReadable(*xml, tree,
                    [&](CXmlObjectBase& again, auto const& ctx) { again.FromXmlStream(octets, ctx); });
    std::optional<std::string> const json =
        Attempt([&] { return (*element)->ToJson(false, EOLType_LF, Strict()); });
    if (!json)
        return;
    std::string const jsonTree = Printed(written, TextPlaces::ByJson);
    std::optional<Infoset> const fromJson = InfosetOfJson(*json);
    RequireEqual(Printed(fromJson, TextPlaces::Exact), jsonTree, *json);
    Require(KeepsPrefixes(*written, *fromJson));
    RequireReadable(*json, jsonTree,
                    [&](CXmlObjectBase& again, auto const& ctx) { again.FromJson(json->c_str(), ctx); });
}

// Sections that are kept as they are, unless other text looks like one.
void TrySections(Input const& input) {
    CSerializationContext ctx = Strict();
    ctx.SetStripCDATA(false);
    std::optional<std::string> const xml = Attempt([&] {
        return XmlOf(*ReadUntyped([&](CXmlObjectBase& object, auto const&) { input.ReadInto(object, ctx); }),
                     ctx);
    });
    if (!xml)
        return;
    std::optional<Infoset> const before = input.Parsed();
    std::string const tree = Printed(before, TextPlaces::Exact);
    if (before && tree.find("<![CDATA[") == std::string::npos)
        RequireEqual(WithoutMinusZeros(Printed(InfosetOfXml(*xml), TextPlaces::Exact)),
                     WithoutMinusZeros(tree), *xml);
}

// Whether all elements and attributes of the first one are in the second one, but for what schemas give a
// meaning.
bool Keeps(Infoset const& after, Infoset const& before) {
    constexpr std::string_view kInstance = "{http://www.w3.org/2001/XMLSchema-instance}";
    for (auto const& [name, value] : before.attributes) {
        if (name.compare(0, kInstance.size(), kInstance) != 0 && after.attributes.count(name) == 0)
            return false;
    }
    return after.name == before.name && std::equal(after.children.begin(), after.children.end(),
                                                   before.children.begin(), before.children.end(), &Keeps);
}

void TryTyped(Input const& input) {
    CSerializationContext const ctx = Strict();
    auto const written = [&ctx](auto read) {
        CSmartPtr<purchase_order::COrder> const order(new purchase_order::COrder);
        read(static_cast<CXmlObjectBase&>(*order));
        return XmlOf(*order, ctx);
    };
    std::optional<std::string> const xml =
        Attempt([&] { return written([&](CXmlObjectBase& order) { input.ReadInto(order, ctx); }); });
    if (!xml)
        return;
    std::optional<Infoset> const after = InfosetOfXml(*xml);
    std::optional<Infoset> const before = input.Parsed();
    Require(after && (!before || Keeps(*after, *before)));
    RequireEqual(written([&](CXmlObjectBase& order) { order.FromXml(xml->c_str(), ctx); }), *xml, *xml);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    Input const input(TextOf(data, size));
    TryUntyped(input);
    TrySections(input);
    TryTyped(input);
    return 0;
}
