#include "zvxmllib/json/StrictJsonReading.h"

#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/Failures.h"
#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/foundation/Utf16.h"
#include "zvxmllib/foundation/XmlNamespaces.h"
#include "zvxmllib/json/Failures.h"
#include "zvxmllib/json/JsonContext.h"
#include "zvxmllib/json/JsonReaderHandler.h"
#include "zvxmllib/json/JsonTextReader.h"
#include "zvxmllib/json/JsonValue.h"
#include "zvxmllib/json/MemberNames.h"
#include "zvxmllib/values/binary/BinaryData.h"
#include "zvxmllib/values/binary/Encoder.h"
#include "zvxmllib/writers/Failures.h"
#include "zvxmllib/writers/XmlNames.h"

#include <algorithm>
#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

namespace ZvXmlLib16 {

namespace {

void SetPlace(CZvException& failure, JsonPlace const& place) noexcept {
    failure.SetPosition(static_cast<std::uint64_t>(place.line),
                        static_cast<std::uint64_t>(std::max(place.position, 1)));
}

void RequireText(std::string const& utf8, std::string const& owner) {
    XmlTextFault const fault = FindXmlTextFault(utf8);
    if (fault.kind == XmlTextFault::kCharacter)
        FailCharacterOfXml(fault.character, owner);
}

// A name with a prefix, or without one.
bool IsQName(std::string_view name) {
    std::size_t const colon = name.find(':');
    if (colon == std::string_view::npos)
        return IsXmlNCName(name);
    return IsXmlNCName(name.substr(0, colon)) && IsXmlNCName(name.substr(colon + 1));
}

// Builds the value, and tests what shows before its end.
class ValueBuilder final : public IJsonReaderHandler {
public:
    // All are borrowed.
    ValueBuilder(CJsonTextReader const& reader, JsonRoundTrip roundTrip, bool namesHaveColons,
                 JsonValue& value)
        : m_reader(reader), m_marksAttributes(roundTrip != JsonRoundTrip_None),
          m_namesHaveColons(namesHaveColons), m_value(value) {}
    ~ValueBuilder() override = default;

    void StartDocument() override {}
    void EndDocument() override {}
    void OnName(std::string const& name) override {
        if (name.empty())
            FailEmptyName(m_reader.GetErrorPathProvider().GetErrorPath());
        Level& object = m_open.back();
        if (!object.names.insert(name).second)
            FailNameTwice(name, m_reader.Place());
        RequireName(name);
        RequireLocal(name);
        NotePrefix(name);
        object.value->members.push_back({name, JsonValue()});
    }
    void OnString(std::string const& value) override {
        bool const isMember = !m_open.empty() && m_open.back().value->kind == JsonValue::kObject;
        RequireText(value, isMember ? m_open.back().value->members.back().name : std::string());
        RequireLocal(value);
        Add({JsonValue::kString, value, {}});
    }
    void OnNumber(std::string const& text) override { Add({JsonValue::kBare, text, {}}); }
    void OnBool(bool value) override { Add({JsonValue::kBare, value ? "true" : "false", {}}); }
    void OnNull() override { Add(JsonValue()); }
    void StartObject() override { Start(JsonValue::kObject); }
    void EndObject() override { m_open.pop_back(); }
    void StartArray() override {
        if (!m_open.empty() && m_open.back().value->kind == JsonValue::kArray)
            FailArrayWithoutName(m_reader.GetErrorPathProvider().GetErrorPath());
        Start(JsonValue::kArray);
    }
    void EndArray() override { m_open.pop_back(); }

    // One for xsi:nil.
    std::string GetFreePrefix() const { return std::string(detail::kNilPrefix).append(m_taken, '_'); }

private:
    struct Level {
        JsonValue* value; // at the end of its parent, so it stays where it is
        std::unordered_set<std::string> names;
    };

    void RequireLocal(std::string const& utf8) const {
        if (char32_t const character = FindCharacterNotLocal(utf8))
            FailCharacterNotLocal(character, m_reader.GetPosition());
    }
    void NotePrefix(std::string_view name) {
        for (std::size_t at = name.find(detail::kNilPrefix); at != std::string_view::npos;
             at = name.find(detail::kNilPrefix, at + 1)) {
            std::size_t const behind = at + detail::kNilPrefix.size();
            std::size_t const end = std::min(name.find_first_not_of('_', behind), name.size());
            m_taken = std::max(m_taken, end - behind + 1);
        }
    }
    bool IsPlainMember(std::string const& name) const {
        return m_marksAttributes && (name[0] == detail::kAttributeMark || name == detail::kTextName);
    }
    bool IsName(std::string_view name) const { return m_namesHaveColons ? IsXmlName(name) : IsQName(name); }
    void RequireName(std::string const& name) const {
        if (m_marksAttributes && name == detail::kTextName)
            return;
        if (!m_marksAttributes || name[0] != detail::kAttributeMark) {
            if (!IsName(name))
                FailElementName(name);
        } else if (!IsName(std::string_view(name).substr(1))) {
            FailAttributeName(name.substr(1));
        }
    }
    void Start(JsonValue::Kind kind) { m_open.push_back({&Add({kind, {}, {}}), {}}); }
    JsonValue& Add(JsonValue value) {
        value.position = m_reader.GetPosition();
        if (m_open.empty())
            return m_value = std::move(value);
        JsonValue& parent = *m_open.back().value;
        if (parent.kind == JsonValue::kArray)
            return parent.members.emplace_back(JsonMember{std::string(), std::move(value)}).value;
        JsonMember& member = parent.members.back();
        bool const isPlain = value.kind != JsonValue::kObject && value.kind != JsonValue::kArray;
        if (!isPlain && IsPlainMember(member.name))
            FailNoPlainValue(member.name, m_reader.Place());
        return member.value = std::move(value);
    }

    CJsonTextReader const& m_reader;
    bool const m_marksAttributes;
    bool const m_namesHaveColons;
    JsonValue& m_value;
    std::vector<Level> m_open;
    std::size_t m_taken = 0; // more underscores than any name has behind the prefix
};

// Prints the element that a member stands for.
class XmlPrinter {
public:
    // `places` is borrowed.
    XmlPrinter(bool marksAttributes, std::string nilPrefix, detail::JsonPlaces& places)
        : m_marksAttributes(marksAttributes), m_nilPrefix(std::move(nilPrefix)), m_places(places) {}

    // Each item of an array is an element.
    void Print(std::string const& name, JsonValue const& value) {
        if (value.kind != JsonValue::kArray) {
            PrintElement(name, value);
            return;
        }
        for (JsonMember const& item : value.members)
            PrintElement(name, item.value);
    }
    std::string const& GetText() const noexcept { return m_text; }

private:
    bool IsAttribute(JsonMember const& member) const {
        return m_marksAttributes && member.name[0] == detail::kAttributeMark;
    }
    void PrintElement(std::string const& name, JsonValue const& value) {
        m_places.Add(m_text.size(), value.position);
        m_text += '<';
        m_text += name;
        JsonValue const* text = &value;
        if (value.kind == JsonValue::kObject) {
            text = nullptr;
            for (JsonMember const& member : value.members) {
                if (IsAttribute(member) && member.value.kind != JsonValue::kNull)
                    PrintAttribute(member.name.substr(1), member.value.text, member.value.position);
                else if (m_marksAttributes && member.name == detail::kTextName)
                    text = &member.value;
            }
        }
        if (text != nullptr && text->kind == JsonValue::kNull) {
            PrintAttribute("xmlns:" + m_nilPrefix, kSchemaInstanceNamespace, text->position);
            PrintAttribute(m_nilPrefix + ":nil", "true", text->position);
        }
        m_text += '>';
        if (value.kind == JsonValue::kObject) {
            for (JsonMember const& member : value.members) {
                if (!IsAttribute(member) && !(m_marksAttributes && member.name == detail::kTextName))
                    Print(member.name, member.value);
            }
        }
        if (text != nullptr)
            Escape(text->text);
        m_text += "</";
        m_text += name;
        m_text += '>';
    }
    void PrintAttribute(std::string const& name, std::string_view value, detail::NodePosition const& place) {
        m_text += ' ';
        m_places.Add(m_text.size(), place);
        m_text += name;
        m_text += "=\"";
        Escape(value);
        m_text += '"';
    }
    void Escape(std::string_view text) {
        for (char const c : text) {
            switch (c) {
            case '&':
                m_text += "&amp;";
                break;
            case '<':
                m_text += "&lt;";
                break;
            case '>':
                m_text += "&gt;";
                break;
            case '"':
                m_text += "&quot;";
                break;
            case '\t':
                m_text += "&#9;";
                break;
            case '\n':
                m_text += "&#10;";
                break;
            case '\r':
                m_text += "&#13;";
                break;
            default:
                m_text += c;
            }
        }
    }

    bool const m_marksAttributes;
    std::string const m_nilPrefix;
    detail::JsonPlaces& m_places;
    std::string m_text{"<?xml version=\"1.0\" encoding=\"UTF-8\"?>"};
};

// Gives a failure of `action` that has no place of its own this one.
template <class Action>
auto At(detail::NodePosition const& position, Action action) {
    try {
        return action();
    } catch (CZvException& failure) {
        if (!failure.HasPosition())
            failure.SetPosition(position.line, position.column);
        throw;
    }
}

// The one element of the document.
JsonMember TakeRoot(JsonValue value, std::string rootName, bool marksAttributes) {
    JsonMember root{std::move(rootName), std::move(value)};
    if (root.name.empty()) {
        if (root.value.kind == JsonValue::kArray)
            FailArrayWithoutName(std::string());
        if (root.value.kind != JsonValue::kObject || root.value.members.empty())
            FailNoJsonRoot();
        if (root.value.members.size() != 1)
            At(root.value.members[1].value.position, FailSeveralRoots);
        JsonMember only = std::move(root.value.members.front());
        if (marksAttributes && (only.name[0] == detail::kAttributeMark || only.name == detail::kTextName))
            FailNoJsonRoot();
        root = std::move(only);
    }
    if (root.value.kind == JsonValue::kArray) {
        if (root.value.members.empty())
            FailNoJsonRoot();
        if (root.value.members.size() != 1)
            At(root.value.members[1].value.position, FailSeveralRoots);
        JsonValue item = std::move(root.value.members.front().value);
        root.value = std::move(item);
    }
    return root;
}

// Where a byte of the text stands.
JsonPlace PlaceOf(std::string_view text, std::size_t offset) {
    std::string_view const before = text.substr(0, offset);
    std::size_t const lineStart = before.rfind('\n') == std::string_view::npos ? 0 : before.rfind('\n') + 1;
    return {static_cast<std::int32_t>(1 + std::count(before.begin(), before.end(), '\n')),
            static_cast<std::int32_t>(offset - lineStart + 1), std::string()};
}

void RequireUtf8(std::string_view text) {
    if (IsValidUtf8(text))
        return;
    // The longest beginning that is valid ends at the fault, or in the middle of a character before it.
    std::size_t valid = 0;
    for (std::size_t step = text.size(); step != 0; step /= 2) {
        while (valid + step <= text.size() && IsValidUtf8(text.substr(0, valid + step)))
            valid += step;
    }
    FailInvalidUtf8(PlaceOf(text, valid));
}

struct Parsed {
    JsonValue value;
    std::string nilPrefix; // which no name has
};

// A failure that has no place of its own has that where the reader stands.
Parsed ParseJson(std::string_view utf8, CSerializationContext const& ctx) {
    Parsed parsed;
    CJsonTextReader reader(utf8, JsonSyntax::kStrict);
    auto builder =
        std::make_unique<ValueBuilder>(reader, ctx.GetJsonContext().GetSupportRoundtrip(),
                                       ctx.GetSchemaType() == SchemaType_NoNamespaces, parsed.value);
    ValueBuilder const& built = *builder;
    reader.SetHandler(std::move(builder));
    try {
        if (!reader.Parse())
            FailNoJsonRoot();
    } catch (CZvException& failure) {
        if (!failure.HasPosition())
            SetPlace(failure, reader.Place());
        throw;
    }
    parsed.nilPrefix = built.GetFreePrefix();
    return parsed;
}

} // namespace

CBinaryData ConvertStrictJson(std::string_view utf8, CSerializationContext const& ctx) {
    detail::JsonPlaces places;
    return ConvertStrictJson(utf8, ctx, places);
}

CBinaryData ConvertStrictJson(std::string_view utf8, CSerializationContext const& ctx,
                              detail::JsonPlaces& places) {
    RequireUtf8(utf8);
    CJsonContext const& options = ctx.GetJsonContext();
    bool const marksAttributes = options.GetSupportRoundtrip() != JsonRoundTrip_None;
    Parsed parsed = ParseJson(utf8, ctx);
    JsonMember const root = At(parsed.value.position, [&] {
        JsonMember only = TakeRoot(std::move(parsed.value), options.GetRootElementName(), marksAttributes);
        if (only.name.empty() || (!options.GetRootElementName().empty() && !IsXmlName(only.name)))
            FailElementName(only.name);
        return only;
    });
    XmlPrinter printer(marksAttributes, std::move(parsed.nilPrefix), places);
    printer.Print(root.name, root.value);
    std::string const& xml = printer.GetText();
    places.CountColumns(xml);
    CBinaryData data;
    data.Append(reinterpret_cast<unsigned char const*>(xml.data()), static_cast<std::uint32_t>(xml.size()));
    return data;
}

} // namespace ZvXmlLib16
