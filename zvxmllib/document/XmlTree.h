// XmlTree, the storage and the builder of a parsed document.
#pragma once

#include "zvxmllib/document/Arena.h"
#include "zvxmllib/document/NameTable.h"
#include "zvxmllib/document/NodePositions.h"
#include "zvxmllib/document/PrefixScopes.h"
#include "zvxmllib/document/TextPlaces.h"
#include "zvxmllib/document/XmlAttribute.h"
#include "zvxmllib/document/XmlElement.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace ZvXmlLib16::detail {

// The readers see a document as a stack machine: add an element, its attributes and its text, end it.
//
// Elements and attributes are in an arena and are freed together; each name is kept once per document; texts
// are in an arena of their own and are joined on request. Instances are counted in bulk, before anybody
// outside can look. Nothing here recurses, so depth costs no stack. A removed element returns its storage, so
// a load whose callback takes everything needs memory only for what is open at a time.
class XmlTree {
public:
    // With `isStreaming` elements can be taken out by RemoveLastChildElement.
    XmlTree(CXmlDocument const& document, bool isStreaming);
    XmlTree(XmlTree const&) = delete;
    XmlTree& operator=(XmlTree const&) = delete;
    ~XmlTree();

    CXmlDocument const& GetDocument() const noexcept { return m_document; }
    CXmlElement* GetRoot() const noexcept { return m_root; }
    NameTable& GetNames() noexcept { return m_names; }

    // Whether elements are taken out, and their texts with them.
    bool IsStreaming() const noexcept { return m_isStreaming; }
    bool HasOpenElement() const noexcept { return !m_open.empty(); }

    // Adds the root, or a child of the innermost open element, and opens it.
    CXmlElement* AddElement(XmlName const* name);
    // Adds an attribute to the innermost open element, which has no content yet. The value is local text.
    void AddElementAttribute(XmlName const* name, std::string_view value);
    // Appends local text to the innermost open element, without carriage returns.
    void AppendTextExcludingCR(std::string_view text) {
        if (text.find('\r') == std::string_view::npos)
            AppendTextWithoutCR(text);
        else
            AppendRuns(text);
    }
    // The same for text that has none, and is not empty.
    void AppendTextWithoutCR(std::string_view text) {
        OpenElement& open = m_open.back();
        if (m_texts.TryExtend(open.runEnd, text.size())) {
            open.runEnd = std::copy(text.begin(), text.end(), open.runEnd);
            *open.runLength += static_cast<std::uint32_t>(text.size());
        } else {
            AppendRun(open, text);
        }
    }

    // The same with all that is in the text.
    void AppendText(std::string_view text) {
        if (!text.empty())
            AppendTextWithoutCR(text);
        if (m_textPlaces != nullptr)
            m_textPlaces->AddText(text);
    }

    // For readers whose texts repeat, or lie in their input as they are: copies text into the storage of the
    // tree, where it stays as long as the tree, with as many octets behind it that may be read.
    std::string_view KeepText(std::string_view text, std::size_t readableBehind = 0);
    // As AddElementAttribute, for text that KeepText gave, or that outlives the tree: not copied.
    void AddKeptAttribute(XmlName const* name, std::string_view value);
    // The same for the text of the innermost open element, without carriage returns, which stands there
    // `repeat` times. Only for readers that call no callback, so that nobody has asked for that text yet.
    void AppendKeptText(std::string_view text, std::uint32_t repeat = 1) {
        OpenElement& open = m_open.back();
        NodeText& target = open.element->m_text;
        constexpr std::size_t kMost = std::numeric_limits<std::uint32_t>::max();
        // The first and mostly the only text.
        if (target.m_form == NodeText::Form::kRun && target.m_length == 0 && text.size() - 1 < kMost &&
            repeat == 1 && m_textPlaces == nullptr) {
            target.m_run = text.data();
            target.m_length = static_cast<std::uint32_t>(text.size());
            open.runEnd = nullptr;
        } else {
            AppendKeptRun(text, repeat);
        }
    }

    // Closes the innermost open element and returns it.
    CXmlElement* EndElement();
    // Removes the last child of the innermost open element with its content: the element closed last, and
    // only directly after its EndElement. Returns false for the root, which stays.
    bool RemoveLastChildElement();

    // From now on the tree remembers where texts stand between children.
    void KeepTextPlaces() {
        m_textPlaces = std::make_unique<TextPlaces>();
        m_isNoted = true;
    }
    // Null if it does not.
    TextPlaces const* GetTextPlaces() const noexcept { return m_textPlaces.get(); }

    // From now on the tree remembers the scopes of prefixes, which the reader tells.
    PrefixScopes& KeepScopes() {
        m_scopes = std::make_unique<PrefixScopes>();
        return *m_scopes;
    }
    // Null if it does not.
    PrefixScopes const* GetScopes() const noexcept { return m_scopes.get(); }

    // From now on the tree remembers where the source is when a node is added.
    void KeepPositions(IPositionSource const& source);
    // Null if it does not.
    NodePositions* GetPositions() const noexcept { return m_positions.get(); }

    // Brings the counts of live and created instances up to date.
    void SettleCounts() noexcept;
    // As if nothing had been added since the counts were settled last. The tree can only be dropped then.
    void ForgetCounts() noexcept;

    // The text, which belongs to `element`, as a string that the tree keeps.
    std::string const& KeepAsString(NodeText& text, CXmlElement const& element);
    std::vector<CXmlAttribute*> const& KeepAttributeFaces(CXmlElement const& element);

private:
    // The state of an open element.
    struct OpenElement {
        CXmlElement* element = nullptr;
        CXmlElement* lastChild = nullptr;
        CXmlElement* beforeLastChild = nullptr; // null if there is none, or after lastChild was taken out
        NodeText::Piece* tail = nullptr;        // of a chained text
        NodeText::Piece* beforeTail = nullptr;  // null when not known
        // The run that can grow as long as nothing is allocated behind it: its end, null if it cannot, and
        // where its length stands. A run lies in one chunk, so its length cannot overflow.
        char* runEnd = nullptr;
        std::uint32_t* runLength = nullptr;
    };
    // The state of the storage when an element was opened; kept in streaming mode only.
    struct StreamingMark {
        Arena::Mark nodes;
        Arena::Mark texts;
        std::int32_t liveElements;
        std::int32_t liveAttributes;
        std::size_t keptStrings;
        std::size_t keptFaces;
    };
    // A string or vector that was asked for, with the element that it belongs to.
    template <class Part>
    struct Kept {
        Part part;
        CXmlElement const* element;
    };
    template <class Part>
    using KeptList = std::list<Kept<Part>>; // what a list holds keeps its place

    void NoteElement(CXmlElement const* element);
    void AppendRuns(std::string_view text);
    bool RepeatTail(OpenElement& open, std::string_view text) noexcept;
    void AppendRun(OpenElement& open, std::string_view text);
    void AppendKeptRun(std::string_view text, std::uint32_t repeat);
    void AddRun(OpenElement& open, char const* run, std::uint32_t length, std::uint32_t repeat = 1);
    NodeText::Piece* NewPiece(char const* chars, std::uint32_t length, std::uint32_t repeat);
    char* NewRun(std::string_view text);
    void FoldRepeatedTail(OpenElement& open) noexcept;
    static NodeText& TextOf(CXmlElement& element) noexcept;
    void GiveContent(OpenElement& open);
    void GrowAttributes(CXmlElement& element);
    void MoveAttributes(CXmlElement& element);
    template <class Part>
    void ForgetClosed(KeptList<Part>& kept, std::size_t sinceCount) noexcept;

    CXmlDocument const& m_document;
    bool const m_isStreaming;
    Arena m_nodes;
    Arena m_texts;
    NameTable m_names;
    CXmlElement* m_root = nullptr;
    std::vector<OpenElement> m_open;
    std::vector<StreamingMark> m_marks; // one for each open element, and one for the element closed last
    std::unique_ptr<TextPlaces> m_textPlaces; // null where nobody wants to know, as the next two
    std::unique_ptr<PrefixScopes> m_scopes;
    std::unique_ptr<NodePositions> m_positions;
    bool m_isNoted = false; // there are positions, or places of texts
    KeptList<std::string> m_keptStrings;
    KeptList<std::vector<CXmlAttribute*>> m_keptFaces;

    CInstanceMonitor::ClassType* m_elementRecord = nullptr;
    CInstanceMonitor::ClassType* m_attributeRecord = nullptr;
    std::int32_t m_liveElements = 0;
    std::int32_t m_liveAttributes = 0;
    std::int32_t m_createdElements = 0; // since the counts were settled, as the next three
    std::int32_t m_endedElements = 0;
    std::int32_t m_createdAttributes = 0;
    std::int32_t m_endedAttributes = 0;
};

} // namespace ZvXmlLib16::detail
