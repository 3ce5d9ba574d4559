// JSON text as a source of events.
#include "JsonSource.h"

#include "JsonReader.h"
#include "TagBuilder.h"

#include "zvxmllib/foundation/XmlNamespaces.h"
#include "zvxmllib/writers/XmlNames.h"

#include <deque>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

using namespace ZvXmlLib16;

namespace zvxml {

namespace {

constexpr std::string_view kTextName = "#text";
constexpr char kAttributeMark = '@';

// What the attributes of an object are that stand behind a child, and whether its text is null.
struct Late {
    std::vector<std::pair<std::string, std::string>> attributes;
    bool isNil = false;
};
// By the number of the object.
using LateParts = std::unordered_map<std::uint64_t, Late>;

struct Rules {
    bool marksAttributes;
    std::string root;

    bool IsAttribute(std::string_view name) const {
        return marksAttributes && !name.empty() && name[0] == kAttributeMark;
    }
    bool IsText(std::string_view name) const { return marksAttributes && name == kTextName; }

    void RequireName(std::string_view name) const {
        if (IsText(name))
            return;
        std::string_view const qualified = IsAttribute(name) ? name.substr(1) : name;
        if (!IsXmlName(qualified))
            throw DocumentError("'" + std::string(name) + "' is no name of XML");
    }
};

// The first time through the text: all that is wrong with it shows here.
class Scan final : public JsonReceiver {
public:
    Scan(Rules const& rules, LateParts& late) : m_rules(rules), m_late(late) {}

    void OnName(std::string const& name) override {
        m_rules.RequireName(name);
        Level& level = m_levels.back();
        level.member = name;
        if (level.isDocument)
            RequireRootName(name);
        if (!level.names.insert(name).second)
            throw DocumentError("the name '" + name + "' stands twice in its object");
    }
    void OnText(std::string const& text) override {
        if (Level* const level = AttributeOwner()) {
            if (level->hasChildren)
                m_late[level->object].attributes.emplace_back(level->member.substr(1), text);
            return;
        }
        AddValue();
    }
    void OnNull() override {
        if (AttributeOwner() != nullptr)
            return;
        if (!m_levels.empty() && !m_levels.back().isArray && m_rules.IsText(m_levels.back().member))
            m_late[m_levels.back().object].isNil = true;
        AddValue();
    }
    void StartObject() override {
        bool const isDocument = m_levels.empty() && m_rules.root.empty();
        if (!isDocument)
            AddElement();
        m_levels.emplace_back();
        m_levels.back().isDocument = isDocument;
        m_levels.back().object = m_objects++;
    }
    void EndObject() override { m_levels.pop_back(); }
    void StartArray() override {
        if (m_levels.empty() && m_rules.root.empty())
            FailNoRoot();
        if (!m_levels.empty() && m_levels.back().isArray)
            throw DocumentError("an array directly in an array has no name");
        RequireNoPlainMember();
        bool const isOfDocument = m_levels.empty() || m_levels.back().isDocument;
        if (!m_levels.empty())
            m_levels.back().hasChildren = true;
        m_levels.emplace_back();
        m_levels.back().isArray = true;
        m_levels.back().isDocument = isOfDocument;
    }
    void EndArray() override { m_levels.pop_back(); }
    void RequireRoot() const {
        if (m_roots == 0)
            FailNoRoot();
    }

private:
    struct Level {
        bool isArray = false;
        bool isDocument = false; // its elements are roots
        bool hasChildren = false;
        std::uint64_t object = 0;
        std::string member;
        std::unordered_set<std::string> names;
    };

    // The object whose attribute this value is.
    Level* AttributeOwner() {
        if (m_levels.empty() || m_levels.back().isArray || !m_rules.IsAttribute(m_levels.back().member))
            return nullptr;
        return &m_levels.back();
    }
    void RequireNoPlainMember() {
        if (m_levels.empty() || m_levels.back().isArray)
            return;
        std::string const& member = m_levels.back().member;
        if (m_rules.IsAttribute(member) || m_rules.IsText(member))
            throw DocumentError("'" + member + "' must have a plain value");
    }
    void RequireRootName(std::string const& name) const {
        if (m_rules.IsAttribute(name) || m_rules.IsText(name))
            FailNoRoot();
    }
    [[noreturn]] void FailNoRoot() const {
        throw DocumentError(m_rules.root.empty() ? "the text has no root element; name one with --root"
                                                 : "the text has no root element");
    }
    void AddValue() {
        if (m_levels.empty() && m_rules.root.empty())
            FailNoRoot();
        if (m_levels.empty() || m_levels.back().isArray || !m_rules.IsText(m_levels.back().member))
            AddElement();
    }
    void AddElement() {
        RequireNoPlainMember();
        if (!m_levels.empty())
            m_levels.back().hasChildren = true;
        bool const isRoot = m_levels.empty() || m_levels.back().isDocument;
        if (isRoot && ++m_roots == 2)
            throw DocumentError(m_rules.root.empty() ? "the text has two root elements; name one with --root"
                                                     : "the text has two root elements");
    }

    Rules const& m_rules;
    LateParts& m_late;
    std::vector<Level> m_levels;
    std::uint64_t m_objects = 0;
    std::uint64_t m_roots = 0;
};

// The second time: what the scan has found to be right becomes events.
class Conversion final : public JsonReceiver {
public:
    Conversion(Rules const& rules, LateParts const& late, Receiver& receiver)
        : m_rules(rules), m_late(late), m_receiver(receiver) {}

    void OnName(std::string const& name) override { Last().member = name; }
    void OnText(std::string const& text) override { AddPlain(&text); }
    void OnNull() override { AddPlain(nullptr); }
    void StartObject() override {
        bool const isDocument = m_depth == 0 && m_rules.root.empty();
        std::string const* const name = isDocument ? nullptr : &BeginElement();
        Level& level = Push();
        level.isDocument = isDocument;
        if (name != nullptr)
            level.element = *name;
        level.object = m_objects++;
        auto const late = m_late.find(level.object);
        level.late = late == m_late.end() ? nullptr : &late->second;
    }
    void EndObject() override {
        Level& level = Last();
        if (!level.isDocument) {
            SendStart(level);
            if (!level.text.empty())
                m_receiver.Text(level.text);
            SendEnd(level.element);
        }
        --m_depth;
    }
    void StartArray() override {
        std::string const& name = BeginElement();
        Level& level = Push();
        level.isArray = true;
        level.member = name;
    }
    void EndArray() override { --m_depth; }

private:
    struct Level {
        bool isArray = false;
        bool isDocument = false;
        bool isStarted = false;
        std::string element; // of an object
        std::string member;  // what comes next in an object, and all items of an array
        std::string text;
        std::vector<std::pair<std::string, std::string>> attributes;
        std::size_t count = 0; // of attributes; the others are there for their room
        std::uint64_t object = 0;
        Late const* late = nullptr;
    };

    Level& Last() { return m_levels[m_depth - 1]; }
    Level& Push() {
        if (m_depth == m_levels.size())
            m_levels.emplace_back();
        Level& level = m_levels[m_depth++];
        level.isArray = level.isDocument = level.isStarted = false;
        level.text.clear();
        level.count = 0;
        return level;
    }

    // The name of the element that comes now; that around it must have started.
    std::string const& BeginElement() {
        if (m_depth == 0)
            return m_rules.root;
        Level& level = Last();
        if (!level.isArray && !level.isDocument)
            SendStart(level);
        return level.member;
    }
    // Null for null.
    void AddPlain(std::string const* text) {
        if (m_depth != 0 && !Last().isArray) {
            Level& level = Last();
            if (m_rules.IsAttribute(level.member)) {
                if (text != nullptr && !level.isStarted)
                    AddAttribute(level, *text);
                return;
            }
            if (m_rules.IsText(level.member)) {
                if (text != nullptr)
                    level.text = *text;
                return;
            }
        }
        std::string const& name = BeginElement();
        m_tags.Begin(name);
        if (text == nullptr)
            AddNil();
        m_receiver.Start(m_tags.Finish());
        if (text != nullptr && !text->empty())
            m_receiver.Text(*text);
        SendEnd(name);
    }
    static void AddAttribute(Level& level, std::string const& value) {
        if (level.count == level.attributes.size())
            level.attributes.emplace_back();
        level.attributes[level.count].first.assign(level.member, 1, std::string::npos);
        level.attributes[level.count++].second = value;
    }
    void SendStart(Level& level) {
        if (level.isStarted)
            return;
        level.isStarted = true;
        m_tags.Begin(level.element);
        for (std::size_t i = 0; i < level.count; ++i)
            m_tags.AddAttribute(level.attributes[i].first, level.attributes[i].second);
        if (level.late != nullptr) {
            for (auto const& [name, value] : level.late->attributes)
                m_tags.AddAttribute(name, value);
            if (level.late->isNil)
                AddNil();
        }
        m_receiver.Start(m_tags.Finish());
    }
    void SendEnd(std::string const& name) {
        m_receiver.End(name);
        m_tags.Close();
    }
    // Under a prefix that stands for the namespace, or a new one.
    void AddNil() {
        std::string_view const known = m_tags.FindPrefix(kSchemaInstanceNamespace);
        m_nil = known;
        if (known.empty()) {
            m_nil = "xsi";
            while (m_tags.FindUri(m_nil) != nullptr)
                m_nil = "xsi" + std::to_string(++m_nilNumber);
            m_nilPrefix = m_nil;
            m_tags.Declare(m_nilPrefix, kSchemaInstanceNamespace);
        }
        m_nil += ":nil";
        m_tags.AddAttribute(m_nil, "true");
    }

    Rules const& m_rules;
    LateParts const& m_late;
    Receiver& m_receiver;
    TagBuilder m_tags;
    std::deque<Level> m_levels; // some behind the open ones, for their room
    std::size_t m_depth = 0;
    std::uint64_t m_objects = 0;
    std::string m_nil;
    std::string m_nilPrefix;
    std::uint64_t m_nilNumber = 0;
};

class JsonSource final : public Source {
public:
    JsonSource(ByteInput& input, JsonRoundTrip mode, std::string const& root)
        : m_input(input), m_rules{mode != JsonRoundTrip_None, root} {
        if (!root.empty() && !IsXmlName(root))
            throw DocumentError("'" + root + "' is no name of XML");
    }

    void Read(Receiver& receiver) override {
        if (!m_isScanned) {
            Scan scan(m_rules, m_late);
            Run(scan);
            At([&] { scan.RequireRoot(); });
            m_isScanned = true;
        }
        Conversion conversion(m_rules, m_late, receiver);
        Run(conversion);
        receiver.Finish();
    }
    Place GetPlace() const override { return m_reader->GetPlace(); }

private:
    // Gives failures without a place that of the reader.
    template <class Action>
    void At(Action action) {
        try {
            action();
        } catch (DocumentError const& e) {
            if (e.GetPlace().column != 0)
                throw;
            throw DocumentError(e.what(), GetPlace());
        }
    }
    void Run(JsonReceiver& receiver) {
        m_reader.emplace(m_input, receiver);
        At([&] { m_reader->Read(); });
    }

    ByteInput& m_input;
    Rules const m_rules;
    std::optional<JsonReader> m_reader;
    LateParts m_late;
    bool m_isScanned = false;
};

} // namespace

std::unique_ptr<Source> MakeJsonSource(ByteInput& input, JsonRoundTrip mode, std::string const& root) {
    return std::make_unique<JsonSource>(input, mode, root);
}

} // namespace zvxml
