// What a sink must know of an element before it writes it, and only what follows tells.
#include "Shape.h"

#include "zvxmllib/foundation/XmlNamespaces.h"

#include <unordered_set>
#include <vector>

using namespace ZvXmlLib16;

namespace zvxml {

namespace {

// Of elements that contain each other, so that the room of closed ones is used again.
template <class Level>
class Levels {
public:
    Level& Open() {
        if (m_depth == m_levels.size())
            m_levels.emplace_back();
        return m_levels[m_depth++];
    }
    void Close() { --m_depth; }
    bool IsEmpty() const noexcept { return m_depth == 0; }
    std::size_t GetDepth() const noexcept { return m_depth; }
    Level& Last() { return m_levels[m_depth - 1]; }

private:
    std::deque<Level> m_levels; // which stay where they are
    std::size_t m_depth = 0;
};

class XmlShape final : public Receiver {
public:
    explicit XmlShape(Shape& shape) : m_shape(shape) {}

    void Start(StartTag const& tag) override {
        bool const keepsSpace = KeepsSpace(tag, !m_open.IsEmpty() && m_open.Last().keepsSpace);
        if (!m_open.IsEmpty())
            m_open.Last().hasElements = true;
        m_open.Open() = {m_shape.AddElement(), false, false, keepsSpace};
    }
    void Text(std::string_view text) override {
        if (!m_open.Last().hasText)
            m_open.Last().hasText = !IsBlank(text);
    }
    void StartSection() override { m_open.Last().hasText = true; }
    void End(std::string_view) override {
        Level const& level = m_open.Last();
        if (level.hasElements && !level.hasText && !level.keepsSpace)
            m_shape.Mark(level.element);
        m_open.Close();
    }

private:
    struct Level {
        std::uint64_t element;
        bool hasElements;
        bool hasText;
        bool keepsSpace;
    };

    Shape& m_shape;
    Levels<Level> m_open;
};

class JsonShape final : public Receiver {
public:
    JsonShape(Shape& shape, JsonRoundTrip mode, Source const& source, Losses& losses)
        : m_shape(shape), m_mode(mode), m_source(source), m_losses(losses) {}

    void Start(StartTag const& tag) override {
        constexpr std::size_t kMostLevels = 9999; // each may have an array around it, which readers count
        if (m_open.GetDepth() == kMostLevels)
            throw DocumentError("elements nest more than 9999 deep, too deep for JSON", m_source.GetPlace());
        std::uint64_t const element = m_shape.AddElement();
        std::string_view const name = JsonName(tag.name, m_mode);
        if (!m_open.IsEmpty())
            AddChild(name, element);
        Level& level = m_open.Open();
        level.Clear();
        level.member = name;
        level.isNil = IsNil(tag);
        for (Attribute const& attribute : tag.attributes)
            AddAttribute(level, attribute);
    }
    void Text(std::string_view text) override {
        Level& level = m_open.Last();
        if (level.hasText || IsBlank(text))
            return;
        level.hasText = true;
        level.text = m_source.GetPlace();
        if (level.isNil)
            throw DocumentError("the element '" + level.member + "' is nil and has content", level.text);
    }
    void End(std::string_view) override { m_open.Close(); }
    void Comment(std::string_view) override { m_losses.Add(Loss::kComment); }
    void Instruction(std::string_view, std::string_view) override { m_losses.Add(Loss::kInstruction); }
    void Type(DocumentType const&) override { m_losses.Add(Loss::kType); }

private:
    struct Level {
        std::string member;
        std::unordered_set<std::string> names; // of the members so far
        std::string last;                      // the name of the last child
        std::uint64_t first = 0;               // the first of the neighbours of that name
        Place text;
        bool hasText = false;
        bool isNil = false;

        // A table that was large once takes long to clear.
        void Clear() {
            constexpr std::size_t kFewBuckets = 64;
            if (names.bucket_count() > kFewBuckets)
                names = {};
            else
                names.clear();
            last.clear();
            hasText = false;
        }
    };

    // Only attributes without a mark, or without their prefix, can have the name of another member.
    void AddAttribute(Level& level, Attribute const& attribute) {
        if (m_mode == JsonRoundTrip_Full)
            return;
        std::string name = m_mode == JsonRoundTrip_None ? "" : "@";
        name += JsonName(attribute.name, m_mode);
        if (!level.names.insert(name).second)
            RefuseName(name);
    }
    void AddChild(std::string_view name, std::uint64_t element) {
        Level& parent = m_open.Last();
        if (parent.hasText)
            throw DocumentError("text ahead of the element '" + std::string(name) + "' has no place in JSON",
                                parent.text);
        if (parent.isNil)
            throw DocumentError("the element '" + parent.member + "' is nil and has content",
                                m_source.GetPlace());
        if (parent.last == name)
            return m_shape.Mark(parent.first);
        if (!parent.names.emplace(name).second)
            RefuseName(name);
        parent.last = name;
        parent.first = element;
    }
    [[noreturn]] void RefuseName(std::string_view name) const {
        throw DocumentError("'" + std::string(name) +
                                "' comes again behind another name, for which JSON has no place",
                            m_source.GetPlace());
    }

    Shape& m_shape;
    JsonRoundTrip const m_mode;
    Source const& m_source;
    Losses& m_losses;
    Levels<Level> m_open;
};

} // namespace

bool IsBlank(std::string_view text) noexcept {
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

bool KeepsSpace(StartTag const& tag, bool isInherited) {
    for (Attribute const& attribute : tag.attributes) {
        if (attribute.name.qualified == "xml:space")
            return attribute.value == "preserve";
    }
    return isInherited;
}

bool IsNil(StartTag const& tag) {
    if (tag.attributes.size() != 1)
        return false;
    Attribute const& only = tag.attributes[0];
    return only.name.local == "nil" && only.name.uri == kSchemaInstanceNamespace &&
           (only.value == "true" || only.value == "1");
}

std::unique_ptr<Receiver> MakeXmlShape(Shape& shape) {
    return std::make_unique<XmlShape>(shape);
}

std::unique_ptr<Receiver> MakeJsonShape(Shape& shape, JsonRoundTrip mode, Source const& source,
                                        Losses& losses) {
    return std::make_unique<JsonShape>(shape, mode, source, losses);
}

} // namespace zvxml
