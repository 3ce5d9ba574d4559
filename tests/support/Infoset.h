// What XML text and JSON text say, by parsers that are not the library's.
#pragma once

#include <expat.h>
#include <nlohmann/json.hpp>

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// An element. Names are "{namespace}local", or local names alone where there is no namespace.
struct Infoset {
    std::string name;
    std::map<std::string, std::string> attributes;
    std::map<std::string, std::string> prefixes; // in scope; the empty one is the default namespace
    std::vector<Infoset> children;
    std::vector<std::string> texts{1}; // one ahead of each child and one behind the last

    void AddText(std::string_view text) { texts.back() += text; }
    Infoset& AddChild(Infoset child) {
        texts.emplace_back();
        return children.emplace_back(std::move(child));
    }
};

// How much of the places of text a comparison sees.
enum class TextPlaces {
    Exact,
    Unformed, // white space beside children is left out
    ByJson    // so it is, and the rest stands behind the children
};

inline std::string Expanded(std::string_view uri, std::string_view local) {
    return uri.empty() ? std::string(local) : '{' + std::string(uri) + '}' + std::string(local);
}

namespace infoset_detail {

constexpr char kInstanceNamespace[] = "http://www.w3.org/2001/XMLSchema-instance";

inline Infoset EmptyDocument() {
    Infoset document;
    document.prefixes[""] = "";
    document.prefixes["xml"] = "http://www.w3.org/XML/1998/namespace";
    return document;
}

inline bool IsBlank(std::string_view text) {
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

// The value of xsi:type with the namespace that its prefix stands for.
inline std::string TypeOf(Infoset const& element, std::string const& value) {
    std::size_t const colon = value.find(':');
    std::string const prefix = colon == std::string::npos ? "" : value.substr(0, colon);
    auto const found = element.prefixes.find(prefix);
    if (found == element.prefixes.end())
        return value;
    return Expanded(found->second, colon == std::string::npos ? value : value.substr(colon + 1));
}

} // namespace infoset_detail

// Equal elements have equal ones.
inline void Print(Infoset const& element, TextPlaces places, std::string& out) {
    out += '<' + element.name;
    for (auto const& [name, value] : element.attributes) {
        bool const isType = name == Expanded(infoset_detail::kInstanceNamespace, "type");
        out += "\n@" + name + "='" + (isType ? infoset_detail::TypeOf(element, value) : value) + '\'';
    }
    out += '>';
    std::string text;
    for (std::size_t i = 0; i < element.texts.size(); ++i) {
        bool const isLast = i == element.children.size();
        bool const isLeftOut = places != TextPlaces::Exact && element.texts.size() > 1 &&
                               infoset_detail::IsBlank(element.texts[i]);
        if (!isLeftOut)
            text += element.texts[i];
        if (places != TextPlaces::ByJson || isLast) {
            if (!text.empty())
                out += '\'' + text + '\'';
            text.clear();
        }
        if (!isLast)
            Print(element.children[i], places, out);
    }
    out += "</>\n";
}
inline std::string Print(Infoset const& element, TextPlaces places) {
    std::string out;
    Print(element, places, out);
    return out;
}

// Whether all prefixes in scope mean the same in the second one, which is equal otherwise. It may have more.
inline bool KeepsPrefixes(Infoset const& before, Infoset const& after) {
    for (auto const& [prefix, uri] : before.prefixes) {
        auto const found = after.prefixes.find(prefix);
        if (found == after.prefixes.end() || found->second != uri)
            return false;
    }
    for (std::size_t i = 0; i < before.children.size(); ++i) {
        if (!KeepsPrefixes(before.children[i], after.children[i]))
            return false;
    }
    return true;
}

namespace infoset_detail {

class XmlParser {
public:
    XmlParser() : m_parser(XML_ParserCreateNS(nullptr, kSeparator)) {
        XML_SetUserData(m_parser, this);
        XML_SetElementHandler(
            m_parser,
            [](void* self, char const* name, char const** attributes) { Of(self).Start(name, attributes); },
            [](void* self, char const*) { Of(self).m_open.pop_back(); });
        XML_SetCharacterDataHandler(m_parser, [](void* self, char const* text, int size) {
            Of(self).m_open.back()->AddText({text, static_cast<std::size_t>(size)});
        });
        XML_SetStartNamespaceDeclHandler(m_parser, [](void* self, char const* prefix, char const* uri) {
            Of(self).m_declared[prefix == nullptr ? "" : prefix] = uri == nullptr ? "" : uri;
        });
    }
    ~XmlParser() { XML_ParserFree(m_parser); }
    XmlParser(XmlParser const&) = delete;
    XmlParser& operator=(XmlParser const&) = delete;

    std::optional<Infoset> Parse(std::string_view xml) {
        if (XML_Parse(m_parser, xml.data(), static_cast<int>(xml.size()), XML_TRUE) != XML_STATUS_OK)
            return std::nullopt;
        return std::move(m_document.children.at(0));
    }

private:
    static constexpr char kSeparator = '\x01';

    static XmlParser& Of(void* self) { return *static_cast<XmlParser*>(self); }
    static std::string NameOf(std::string_view name) {
        std::size_t const at = name.find(kSeparator);
        return at == std::string_view::npos ? std::string(name)
                                            : Expanded(name.substr(0, at), name.substr(at + 1));
    }
    // The children of an element do not move while one of them is open.
    void Start(char const* name, char const** attributes) {
        Infoset element;
        element.name = NameOf(name);
        for (; *attributes != nullptr; attributes += 2)
            element.attributes[NameOf(attributes[0])] = attributes[1];
        element.prefixes = m_open.back()->prefixes;
        for (auto& [prefix, uri] : m_declared)
            element.prefixes[prefix] = uri;
        m_declared.clear();
        m_open.push_back(&m_open.back()->AddChild(std::move(element)));
    }

    XML_Parser m_parser;
    Infoset m_document = EmptyDocument();
    std::vector<Infoset*> m_open{&m_document};
    std::map<std::string, std::string> m_declared;
};

// Nothing where a name stands twice in an object, or what stands there is no element, by docs/json.md.
class JsonParser : public nlohmann::json::json_sax_t {
public:
    std::optional<Infoset> Parse(std::string_view json) {
        if (!nlohmann::json::sax_parse(json, this) || m_document.children.size() != 1 ||
            m_document.texts[0] + m_document.texts[1] != "" || !m_document.attributes.empty() ||
            !Resolve(m_document.children[0], m_document.prefixes))
            return std::nullopt;
        return std::move(m_document.children[0]);
    }

    bool null() override { return Scalar(nullptr); }
    bool boolean(bool value) override { return Text(value ? "true" : "false"); }
    bool number_integer(std::int64_t value) override { return Text(std::to_string(value)); }
    bool number_unsigned(std::uint64_t value) override { return Text(std::to_string(value)); }
    bool number_float(double, std::string const& text) override { return Text(text); }
    bool string(std::string& text) override { return Text(text); }
    bool binary(nlohmann::json::binary_t&) override { return false; }
    bool key(std::string& name) override {
        m_open.back().key = name;
        return m_open.back().keys.insert(name).second;
    }
    bool start_object(std::size_t) override {
        if (m_open.empty())
            return Open(m_document);
        return IsChild() && Open(Child());
    }
    bool end_object() override {
        Frame& frame = m_open.back();
        frame.element->AddText(frame.text);
        m_open.pop_back();
        return true;
    }
    bool start_array(std::size_t) override {
        if (m_open.empty() || m_open.back().isArray || !IsChild())
            return false;
        m_open.push_back({m_open.back().element, m_open.back().key, true, {}, {}});
        return true;
    }
    bool end_array() override {
        m_open.pop_back();
        return true;
    }
    bool parse_error(std::size_t, std::string const&, nlohmann::json::exception const&) override {
        return false;
    }

private:
    static constexpr char kNull[] = "null"; // until prefixes are resolved; "@" stands before other attributes

    // An object, or an array of what is in one.
    struct Frame {
        Infoset* element;
        std::string key;
        bool isArray;
        std::string text;
        std::set<std::string> keys;
    };

    bool Open(Infoset& element) {
        m_open.push_back({&element, {}, false, {}, {}});
        return true;
    }
    bool IsChild() const { return m_open.back().key[0] != '@' && m_open.back().key != "#text"; }
    // The children of an element do not move while one of them is open.
    Infoset& Child() {
        Infoset element;
        element.name = m_open.back().key;
        return m_open.back().element->AddChild(std::move(element));
    }
    bool Text(std::string const& text) { return Scalar(&text); }
    bool Scalar(std::string const* text) { // null for null
        if (m_open.empty())
            return false;
        Frame& frame = m_open.back();
        std::string const& key = frame.key;
        bool const isText = key == "#text";
        if (IsChild() || isText) {
            Infoset& element = isText ? *frame.element : Child();
            if (text != nullptr)
                (isText ? frame.text : element.texts.back()) += *text;
            return text != nullptr || element.attributes.emplace(kNull, "true").second;
        }
        if (text != nullptr && (key == "@xmlns" || key.compare(0, 7, "@xmlns:") == 0))
            frame.element->prefixes[key.size() < 7 ? "" : key.substr(7)] = *text;
        else if (text != nullptr)
            frame.element->attributes[key] = *text;
        return true;
    }

    // Puts namespaces in the place of prefixes.
    static bool Resolve(Infoset& element, std::map<std::string, std::string> const& outer) {
        element.prefixes.insert(outer.begin(), outer.end());
        bool isKnown = true;
        auto const nameOf = [&](std::string const& name, bool isElement) {
            std::size_t const colon = name.find(':');
            std::string const prefix = colon == std::string::npos ? "" : name.substr(0, colon);
            if (prefix.empty() && !isElement)
                return name;
            auto const found = element.prefixes.find(prefix);
            isKnown &= found != element.prefixes.end() || prefix.empty();
            return Expanded(found == element.prefixes.end() ? "" : found->second,
                            name.substr(colon == std::string::npos ? 0 : colon + 1));
        };
        element.name = nameOf(element.name, true);
        std::map<std::string, std::string> attributes;
        for (auto const& [name, value] : element.attributes)
            isKnown &= attributes
                           .emplace(name == kNull ? Expanded(kInstanceNamespace, "nil")
                                                  : nameOf(name.substr(1), false),
                                    value)
                           .second;
        element.attributes = std::move(attributes);
        for (Infoset& child : element.children)
            isKnown &= Resolve(child, element.prefixes);
        return isKnown;
    }

    Infoset m_document = EmptyDocument();
    std::vector<Frame> m_open;
};

} // namespace infoset_detail

// Nothing for what is no document.
inline std::optional<Infoset> InfosetOfXml(std::string_view xml) {
    return infoset_detail::XmlParser().Parse(xml);
}
inline std::optional<Infoset> InfosetOfJson(std::string_view json) {
    return infoset_detail::JsonParser().Parse(json);
}
