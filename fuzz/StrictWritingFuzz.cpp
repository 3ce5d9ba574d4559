// Arbitrary calls of a strict writer, arbitrary untyped trees and purchase orders of arbitrary texts, written
// in every format: an exception, or what independent parsers read as what was meant, and the library too.
#include "StrictOutput.h"
#include "examples/purchase_order/PurchaseOrder.h"
#include "zvxmllib/document/XmlElement.h"
#include "zvxmllib/writers/XmlWriter.h"

#include <array>

namespace {

// Choices and texts, made of the octets of the input; zeros when they are used up.
class Choices {
public:
    explicit Choices(std::string_view octets) : m_rest(octets) {}

    bool IsEmpty() const { return m_rest.empty(); }
    std::string_view GetRest() const { return m_rest; }
    unsigned Take() {
        if (m_rest.empty())
            return 0;
        unsigned char const octet = static_cast<unsigned char>(m_rest.front());
        m_rest.remove_prefix(1);
        return octet;
    }
    bool TakeFlag() { return Take() % 2 != 0; }
    template <class Value, std::size_t N>
    Value const& Take(std::array<Value, N> const& known) {
        return known[Take() % N];
    }
    // One of those given, or up to 15 octets of the input.
    template <std::size_t N>
    std::string TakeText(std::array<char const*, N> const& known) {
        unsigned const choice = Take();
        if (choice < 240)
            return known[choice % N];
        std::string const text(m_rest.substr(0, choice - 240));
        m_rest.remove_prefix(text.size());
        return text;
    }
    std::string TakeName() { return TakeText(kNames); }
    std::string TakeNamespace() { return TakeText(kNamespaces); }
    std::string TakePrefix() { return TakeText(kPrefixes); }
    std::string TakeText() { return TakeText(kTexts); }

private:
    static constexpr std::array kNames{"a",        "b",   "a",     "b", "c",   "nil",
                                       "\xC3\xA9", "p:a", "xmlns", "",  "a b", "1"};
    static constexpr std::array kNamespaces{"",
                                            "",
                                            "u",
                                            "v",
                                            "",
                                            "u\"<& '",
                                            "http://www.w3.org/XML/1998/namespace",
                                            "http://www.w3.org/2000/xmlns/",
                                            "http://www.w3.org/XML/1998/namespace/of/another",
                                            "u\tv"};
    static constexpr std::array kPrefixes{"p", "q", "AA", "AB", "", "xml", "xmlns", "xsi", "1p"};
    static constexpr std::array kTexts{"x",
                                       "7",
                                       "007",
                                       "1.50",
                                       "-0",
                                       "true",
                                       "1E400",
                                       "INF",
                                       " ",
                                       "\n",
                                       "a\r\nb\t",
                                       "<![CDATA[y]]>",
                                       "]]>",
                                       "&amp;",
                                       "p:x",
                                       "AA:x",
                                       "",
                                       "YQ==",
                                       "0a",
                                       "2024-01-01T00:00:00.5+01:00",
                                       "2024-01-01",
                                       "\xE2\x82\xAC",
                                       "\x01",
                                       "\xEF\xBF\xBE",
                                       "\xED\xA0\x80",
                                       "\xF0\x9F\x98\x80",
                                       "\xC2\x85",
                                       "\"\\/"};

    std::string_view m_rest;
};

constexpr char kInstance[] = "http://www.w3.org/2001/XMLSchema-instance";
constexpr std::array kTypes{ItemType_string,   ItemType_i4,      ItemType_boolean,      ItemType_r8,
                            ItemType_decimal,  ItemType_integer, ItemType_base64Binary, ItemType_hexBinary,
                            ItemType_datetime, ItemType_ui8,     ItemType_r4,           ItemType_date};

// A document written by hand, call by call, and the element that the calls mean.
class Calls : public CXmlObjectBase {
public:
    explicit Calls(std::string_view octets) : m_octets(octets) {}

    using CXmlObjectBase::GetBase;
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() override { return {}; }
    std::string Meant(TextPlaces places) const { return Print(m_document.children.at(0), places); }

protected:
    ~Calls() override = default;
    std::string GetTargetNamespace() override { return {}; }
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* current, CSerializationContext const&,
                             bool) override {
        return current;
    }
    void ToXml_Int(CXmlWriter* writer, bool, char const*, CSerializationContext const&, bool) const override {
        m_document = Infoset();
        m_open = {&m_document};
        for (Choices choices(m_octets); !choices.IsEmpty();)
            Call(*writer, choices);
        while (m_open.size() > 1) {
            writer->WriteElementEnd();
            m_open.pop_back();
        }
    }

private:
    Infoset& Element() const { return *m_open.back(); }

    void Start(CXmlWriter& writer, Choices& choices) const {
        std::string const ns = choices.TakeNamespace();
        std::string const name = choices.TakeName();
        writer.WriteElementStart(name, ns);
        Infoset element;
        element.name = Expanded(ns, name);
        m_open.push_back(&Element().AddChild(std::move(element)));
    }
    void TextElement(CXmlWriter& writer, Choices& choices) const {
        std::string const ns = choices.TakeNamespace();
        std::string const name = choices.TakeName();
        std::string const text = choices.TakeText();
        if (!writer.TryWriteTextElement(name, ns, text, ItemType_string)) {
            writer.WriteElementStart(name, ns);
            writer.WriteElementValue(text, ItemType_string, false);
            writer.WriteElementEnd();
        }
        Infoset element;
        element.name = Expanded(ns, name);
        element.AddText(text);
        Element().AddChild(std::move(element));
    }
    void Attribute(CXmlWriter& writer, Choices& choices) const {
        std::string const ns = choices.TakeNamespace();
        std::string const name = choices.TakeName();
        std::string const value = choices.TakeText();
        writer.WriteAttribute(name, ns, value, choices.Take(kTypes));
        Element().attributes.emplace(Expanded(ns, name), value);
    }
    void Call(CXmlWriter& writer, Choices& choices) const {
        switch (choices.Take() % 16) {
        case 0:
        case 1:
        case 2:
            return Start(writer, choices);
        case 3:
            return TextElement(writer, choices);
        case 4:
            writer.WriteElementEnd();
            m_open.pop_back();
            return;
        case 5:
        case 6:
            return Attribute(writer, choices);
        case 7:
        case 8: {
            std::string const text = choices.TakeText();
            writer.WriteElementValue(text, choices.Take(kTypes), false);
            return Element().AddText(text);
        }
        case 9:
            return writer.SetDefaultNamespace(choices.TakeNamespace());
        case 10: {
            std::string const prefix = choices.TakePrefix();
            return writer.AddNamespaceAlias(prefix, choices.TakeNamespace());
        }
        case 11: {
            std::string const ns = choices.TakeNamespace();
            std::string const name = choices.TakeName();
            writer.WriteTypeAttribute(ns, name, ItemType_string);
            Element().attributes.emplace(Expanded(kInstance, "type"), Expanded(ns, name));
            return;
        }
        case 12:
            writer.WriteNilAttribute();
            Element().attributes.emplace(Expanded(kInstance, "nil"), "true");
            return;
        case 13:
            return choices.TakeFlag() ? writer.WriteComment(choices.TakeText())
                                      : writer.WriteProcessingInstruction("<?" + choices.TakeName() + " " +
                                                                          choices.TakeText() + "?>");
        case 14:
            return writer.SetCollectionState(choices.TakeFlag() ? CollectionState_Announced
                                                                : CollectionState_Ended);
        default: {
            std::string const prefix = choices.TakePrefix();
            return writer.DeclareOnNextElement(prefix, choices.TakeNamespace());
        }
        }
    }

    std::string_view m_octets;
    mutable Infoset m_document;
    mutable std::vector<Infoset*> m_open;
};

// Options, which the first octets choose.
CSerializationContext TakeContext(Choices& choices) {
    CSerializationContext ctx = Strict();
    unsigned const flags = choices.Take();
    if ((flags & 1) != 0)
        ctx.SetDefaultNamespaceURI(choices.TakeNamespace().c_str());
    if ((flags & 2) != 0) {
        std::string const prefix = choices.TakePrefix();
        ctx.GetNamespaceAliases().Add(prefix.c_str(), choices.TakeNamespace().c_str());
    }
    ctx.SetStripCDATA((flags & 4) == 0);
    if ((flags & 8) != 0)
        ctx.GetFIContext().SetSuggestedValues();
    if ((flags & 16) != 0) {
        ctx.GetFIContext().SetElementMaxAddLength(100);
        ctx.GetFIContext().SetAttributeMaxAddLength(100);
    }
    if ((flags & 32) != 0)
        ctx.GetProcessingInstructions().push_back("<?" + choices.TakeName() + " " + choices.TakeText() +
                                                  "?>");
    return ctx;
}

// `meant` says what the document is, once it has been written.
template <class Meant>
void TryXml(CXmlObjectBase& object, CSerializationContext const& ctx, bool isFormatted, Meant meant) {
    std::optional<std::string> const xml =
        Attempt([&] { return object.ToXml(isFormatted, false, EOLType_LF, ctx); });
    if (!xml)
        return;
    if (!ctx.GetStripCDATA()) // texts that begin with the mark are sections
        return RequireEqual(InfosetOfXml(*xml) ? "a document" : "none", "a document", *xml);
    RequireEqual(Printed(InfosetOfXml(*xml), TextPlaces::Exact), meant(TextPlaces::Exact), *xml);
    RequireReadable(*xml, meant(TextPlaces::Exact),
                    [&](CXmlObjectBase& again, CSerializationContext const& strict) {
                        again.FromXml(xml->c_str(), strict);
                    });
    CBinaryData const octets =
        object.ToXmlStream(true, isFormatted, XmlEncoding_UTF16, EOLType_CRLF, ctx, CompressionType_GZip);
    if (!isFormatted)
        RequireReadable(*xml, meant(TextPlaces::Exact),
                        [&](CXmlObjectBase& again, CSerializationContext const& strict) {
                            again.FromXmlStream(octets, strict);
                        });
}

template <class Meant>
void TryJson(CXmlObjectBase& object, CSerializationContext const& ctx, bool isFormatted, Meant meant) {
    std::optional<std::string> const json =
        Attempt([&] { return object.ToJson(isFormatted, EOLType_LF, ctx); });
    if (!json)
        return;
    RequireEqual(WithoutMinusZeros(Printed(InfosetOfJson(*json), TextPlaces::Exact)),
                 WithoutMinusZeros(meant(TextPlaces::ByJson)), *json);
    RequireReadable(*json, meant(TextPlaces::ByJson),
                    [&](CXmlObjectBase& again, CSerializationContext const& strict) {
                        again.FromJson(json->c_str(), strict);
                    });
}

template <class Meant>
void TryFastInfoset(CXmlObjectBase& object, CSerializationContext const& ctx, Meant meant) {
    std::optional<CBinaryData> const octets =
        Attempt([&] { return object.ToFastInfosetStream(FInfoDecl_None, ctx, CompressionType_None); });
    if (octets)
        RequireReadable(TextOf(*octets), meant(TextPlaces::Exact),
                        [&](CXmlObjectBase& again, CSerializationContext const& strict) {
                            again.FromXmlStream(*octets, strict);
                        });
}

template <class Meant>
void TryAll(CXmlObjectBase& object, CSerializationContext const& ctx, bool isFormatted, Meant meant) {
    TryXml(object, ctx, isFormatted, meant);
    TryJson(object, ctx, isFormatted, meant);
    TryFastInfoset(object, ctx, meant);
}

void TryCalls(Choices& choices, CSerializationContext const& ctx, bool isFormatted) {
    CSmartPtr<Calls> const calls(new Calls(choices.GetRest()));
    TryAll(*calls, ctx, isFormatted, [&](TextPlaces places) { return calls->Meant(places); });
}

// Fills an element with up to 15 parts, and says what it is then.
Infoset Build(CElement& element, Choices& choices, int depth, std::map<std::string, std::string> prefixes) {
    Infoset infoset;
    infoset.name = Expanded(element.GetNamespace(), element.GetName());
    std::vector<Infoset> children;
    for (unsigned parts = choices.Take() % 16; parts != 0; --parts) {
        std::string const ns = choices.TakeNamespace();
        std::string const name = choices.TakeName();
        switch (choices.Take() % 4) {
        case 0:
            element.GetAttributes()->Add(name.c_str(), choices.TakeText().c_str(), ns.c_str());
            break;
        case 1:
            element.SetText(choices.TakeText().c_str());
            break;
        case 2:
            element.DeclarePrefix(choices.TakePrefix().c_str(), ns.c_str());
            break;
        default:
            if (depth < 9)
                element.GetChildElements()->Add(name.c_str(), ns.c_str());
        }
    }
    for (CElement::Declaration const& declaration : element.GetDeclarations()) {
        if (!declaration.prefix.empty())
            prefixes[declaration.prefix] = declaration.namespaceURI;
    }
    for (CAttribute* const attribute : *element.GetAttributes())
        infoset.attributes.emplace(Expanded(attribute->GetNamespace(), attribute->GetName()),
                                   attribute->GetValue());
    for (CElement* const child : *element.GetChildElements())
        infoset.AddChild(Build(*child, choices, depth + 1, prefixes));
    infoset.AddText(element.GetText());
    infoset.prefixes = std::move(prefixes);
    return infoset;
}

void TryTree(Choices& choices, CSerializationContext const& ctx, bool isFormatted) {
    std::string const ns = choices.TakeNamespace();
    CSmartPtr<CElement> const root(new CElement(choices.TakeName().c_str()));
    root->SetNamespace(ns.c_str());
    Infoset const meant = Build(*root, choices, 0, {});
    TryAll(*root, ctx, isFormatted, [&](TextPlaces places) { return Print(meant, places); });
    if (!ctx.GetStripCDATA())
        return;
    if (std::optional<std::string> const xml =
            Attempt([&] { return root->ToXml(false, true, EOLType_LF, ctx); }))
        RequireEqual(Printed(InfosetOfXml(*xml), TextPlaces::Unformed), Print(meant, TextPlaces::Unformed),
                     *xml);
    std::optional<std::string> const xml = Attempt([&] { return XmlOf(*root, ctx); });
    Require(!xml || KeepsPrefixes(meant, *InfosetOfXml(*xml)));
}

using Order = CSmartPtr<purchase_order::COrder>;

Order TakeOrder(Choices& choices) {
    Order order(new purchase_order::COrder);
    order->SetNumber(static_cast<std::int32_t>(choices.Take()));
    order->SetStatus(choices.TakeFlag() ? purchase_order::Status_sent : purchase_order::Status_draft);
    order->SetCustomer(choices.TakeText());
    if (choices.TakeFlag())
        order->SetNote(choices.TakeText());
    for (unsigned items = choices.Take() % 4; items != 0; --items) {
        CSmartPtr<purchase_order::CItem> const item = order->GetItems()->Add();
        item->SetSku(choices.TakeFlag() ? choices.TakeText() : "tea-01");
        item->SetName(choices.TakeText());
        item->SetQuantity(static_cast<std::int32_t>(choices.Take()));
        item->SetPrice(CDecimal(static_cast<int>(choices.Take())));
    }
    for (unsigned days = choices.Take() % 4; days != 0; --days)
        order->GetDeliveries()->Add(CDateTime(static_cast<short>(choices.Take() * 50),
                                              static_cast<unsigned char>(1 + choices.Take() % 13),
                                              static_cast<unsigned char>(1 + choices.Take() % 32)));
    return order;
}

void TryOrder(Choices& choices, CSerializationContext const& ctx, bool isFormatted) {
    Order order;
    std::optional<std::string> const xml = Attempt([&] {
        order = TakeOrder(choices);
        return XmlOf(*order, ctx);
    });
    if (!xml || !ctx.GetStripCDATA())
        return;
    std::optional<Infoset> const document = InfosetOfXml(*xml);
    Require(document && document->children.at(0).texts[0] == order->GetCustomer());
    auto const requireSame = [&](auto read) {
        Order const again(new purchase_order::COrder);
        read(static_cast<CXmlObjectBase&>(*again));
        RequireEqual(XmlOf(*again, ctx), *xml, *xml);
    };
    requireSame([&](CXmlObjectBase& again) { again.FromXml(xml->c_str(), ctx); });
    requireSame([&](CXmlObjectBase& again) {
        again.FromXmlStream(
            order->ToXmlStream(true, true, XmlEncoding_UTF8, EOLType_CRLF, ctx, CompressionType_ZLib), ctx);
    });
    requireSame([&](CXmlObjectBase& again) {
        again.FromXmlStream(order->ToFastInfosetStream(FInfoDecl_None, ctx, CompressionType_None), ctx);
    });
    requireSame([&](CXmlObjectBase& again) {
        std::string const json = order->ToJson(isFormatted, EOLType_LF, ctx);
        Require(InfosetOfJson(json).has_value());
        again.FromJson(json.c_str(), ctx);
    });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    Choices choices(TextOf(data, size));
    unsigned const kind = choices.Take();
    CSerializationContext const ctx = TakeContext(choices);
    constexpr std::array kTries{&TryCalls, &TryTree, &TryCalls, &TryOrder};
    kTries[kind % kTries.size()](choices, ctx, kind % 8 >= kTries.size());
    return 0;
}
