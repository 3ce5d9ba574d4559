#include "zvxmllib/document/XmlTree.h"

#include "zvxmllib/foundation/Assert.h"
#include "zvxmllib/values/text/Whitespace.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>

namespace ZvXmlLib16::detail {

namespace {

constexpr std::size_t kSmallestChunk = 2 * 1024;
constexpr std::size_t kLargestChunk = platform::kLargePage;

CInstanceMonitor::Registration s_elementRegistration("CXmlElement");
CInstanceMonitor::Registration s_attributeRegistration("CXmlAttribute");

constexpr std::size_t kAttributeBlock = 16;
constexpr std::size_t kFirstAttribute = kAttributeBlock + sizeof(CXmlAttribute);

std::uint32_t LengthOfRun(std::string_view text) {
    if (text.size() > std::numeric_limits<std::uint32_t>::max())
        throw std::bad_alloc();
    return static_cast<std::uint32_t>(text.size());
}

} // namespace

XmlTree::XmlTree(CXmlDocument const& document, bool isStreaming)
    : m_document(document), m_isStreaming(isStreaming), m_nodes(kSmallestChunk, kLargestChunk),
      m_texts(kSmallestChunk, kLargestChunk), m_names(*this) {}

XmlTree::~XmlTree() {
    m_endedElements += m_liveElements;
    m_endedAttributes += m_liveAttributes;
    SettleCounts();
}

void XmlTree::SettleCounts() noexcept {
    if (m_elementRecord != nullptr)
        CXmlElement::CountMany(*m_elementRecord, m_createdElements, m_endedElements);
    if (m_attributeRecord != nullptr)
        CXmlAttribute::CountMany(*m_attributeRecord, m_createdAttributes, m_endedAttributes);
    m_createdElements = m_endedElements = m_createdAttributes = m_endedAttributes = 0;
}

void XmlTree::ForgetCounts() noexcept {
    m_liveElements -= m_createdElements;
    m_liveAttributes -= m_createdAttributes;
    m_createdElements = m_createdAttributes = 0;
}

NodeText& XmlTree::TextOf(CXmlElement& element) noexcept {
    return element.m_text.IsElsewhere() ? element.GetContent().text : element.m_text;
}

// Before the first child.
void XmlTree::GiveContent(OpenElement& open) {
    NodeText& text = open.element->m_text;
    void* const storage = m_nodes.Allocate(sizeof(CXmlElement::Content), alignof(CXmlElement::Content));
    CXmlElement::Content* const content = new (storage) CXmlElement::Content{nullptr, text};
    if (open.runLength == &text.m_length)
        open.runLength = &content->text.m_length;
    text.m_elsewhere = content;
    text.m_form = NodeText::Form::kElsewhere;
}

CXmlElement* XmlTree::AddElement(XmlName const* name) {
    CXmlElement* parent = nullptr;
    if (m_open.empty()) {
        m_elementRecord = s_elementRegistration.Record();
    } else {
        OpenElement& open = m_open.back();
        if (open.beforeTail != nullptr)
            FoldRepeatedTail(open);
        parent = open.element;
        if (!parent->m_text.IsElsewhere())
            GiveContent(open);
    }
    if (m_isStreaming) {
        m_marks.resize(m_open.size());
        m_marks.push_back({m_nodes.GetMark(), m_texts.GetMark(), m_liveElements, m_liveAttributes,
                           m_keptStrings.size(), m_keptFaces.size()});
    }
    // The first attribute fits behind it.
    char* const storage = m_nodes.Allocate(sizeof(CXmlElement) + kFirstAttribute, alignof(CXmlElement));
    m_nodes.RewindTo(storage + sizeof(CXmlElement));
    CXmlElement* const element = new (storage) CXmlElement(parent, name);
    if (parent == nullptr) {
        m_root = element;
    } else {
        OpenElement& open = m_open.back();
        (open.lastChild == nullptr ? parent->GetContent().firstChild : open.lastChild->m_nextSibling) =
            element;
        open.beforeLastChild = open.lastChild;
        open.lastChild = element;
    }
    if (m_isNoted)
        NoteElement(element);
    m_open.emplace_back().element = element;
    ++m_liveElements;
    ++m_createdElements;
    return element;
}

void XmlTree::NoteElement(CXmlElement const* element) {
    if (m_positions != nullptr)
        m_positions->AddElement(element);
    if (m_textPlaces != nullptr)
        m_textPlaces->AddElement(element);
}

void XmlTree::KeepPositions(IPositionSource const& source) {
    m_positions = std::make_unique<NodePositions>(source);
    m_isNoted = true;
}

// Makes room for one more attribute. Those of an element that is being started are the last allocation among
// the nodes, so they grow in place unless a chunk ends.
void XmlTree::GrowAttributes(CXmlElement& element) {
    using Block = CXmlElement::AttributeBlock;
    static_assert(sizeof(Block) == kAttributeBlock && sizeof(Block) % alignof(CXmlAttribute) == 0);
    static_assert(sizeof(CXmlElement) % alignof(Block) == 0);
    if (!element.m_text.HasMark()) {
        char* const end = reinterpret_cast<char*>(&element + 1);
        bool const fits = m_nodes.TryExtend(end, kFirstAttribute);
        ZV_ASSERT(fits);
        static_cast<void>(fits);
        new (end) Block{0, false, {nullptr}};
        element.m_text.m_hasMark = true;
        return;
    }
    char const* const end = reinterpret_cast<char*>(element.GetAttributeAt(element.GetAttributeCount()));
    if (!m_nodes.TryExtend(end, sizeof(CXmlAttribute)))
        MoveAttributes(element);
}

// To where their number can double.
void XmlTree::MoveAttributes(CXmlElement& element) {
    using Block = CXmlElement::AttributeBlock;
    Block const& old = element.GetAttributeBlock();
    CXmlAttribute const* const first = element.GetAttributeAt(0);
    std::size_t const size = sizeof(Block) + (old.count + 1) * sizeof(CXmlAttribute);
    char* const storage = m_nodes.Allocate(2 * size, alignof(CXmlAttribute));
    m_nodes.RewindTo(storage + size);
    Block* const moved = new (storage) Block(old);
    CXmlAttribute* target = reinterpret_cast<CXmlAttribute*>(moved + 1);
    for (CXmlAttribute const* attribute = first; attribute != first + old.count; ++attribute, ++target) {
        new (target) CXmlAttribute(&element, &attribute->GetName());
        target->m_value = attribute->m_value;
    }
    Block& place = *reinterpret_cast<Block*>(&element + 1);
    place.hasMoved = true;
    place.moved = moved;
}

std::string_view XmlTree::KeepText(std::string_view text, std::size_t readableBehind) {
    char* const chars = m_texts.Allocate(text.size() + readableBehind, 1);
    std::copy(text.begin(), text.end(), chars);
    std::fill_n(chars + text.size(), readableBehind, '\0');
    return {chars, text.size()};
}

void XmlTree::AddElementAttribute(XmlName const* name, std::string_view value) {
    AddKeptAttribute(name, value.empty() ? value : std::string_view(NewRun(value), value.size()));
}

void XmlTree::AddKeptAttribute(XmlName const* name, std::string_view value) {
    if (m_attributeRecord == nullptr)
        m_attributeRecord = s_attributeRegistration.Record();
    CXmlElement& element = *m_open.back().element;
    std::uint32_t const length = LengthOfRun(value);
    GrowAttributes(element);
    CXmlElement::AttributeBlock& block = element.GetAttributeBlock();
    CXmlAttribute* const attribute = new (element.GetAttributeAt(block.count)) CXmlAttribute(&element, name);
    attribute->m_value.m_run = value.data();
    attribute->m_value.m_length = length;
    ++block.count;
    ++m_liveAttributes;
    ++m_createdAttributes;
    if (m_positions != nullptr)
        m_positions->AddAttribute(&element);
}

void XmlTree::AppendRuns(std::string_view text) {
    while (!text.empty()) {
        std::size_t const length = std::min(text.find('\r'), text.size());
        if (length != 0)
            AppendTextWithoutCR(text.substr(0, length));
        text.remove_prefix(std::min(length + 1, text.size()));
    }
}

char* XmlTree::NewRun(std::string_view text) {
    char* const chars = m_texts.Allocate(text.size(), 1);
    std::memcpy(chars, text.data(), text.size());
    return chars;
}

NodeText::Piece* XmlTree::NewPiece(char const* chars, std::uint32_t length, std::uint32_t repeat) {
    void* const storage = m_nodes.Allocate(sizeof(NodeText::Piece), alignof(NodeText::Piece));
    return new (storage) NodeText::Piece{nullptr, chars, length, repeat};
}

void XmlTree::AppendRun(OpenElement& open, std::string_view text) {
    NodeText& target = TextOf(*open.element);
    if (target.m_form == NodeText::Form::kString) {
        target.m_string->append(text);
        return;
    }
    if (RepeatTail(open, text))
        return;
    char* const run = NewRun(text);
    AddRun(open, run, static_cast<std::uint32_t>(text.size()));
    open.runEnd = run + text.size();
}

// As FoldRepeatedTail, for a run that comes whole.
bool XmlTree::RepeatTail(OpenElement& open, std::string_view text) noexcept {
    NodeText::Piece* const tail = open.tail; // null ahead of a chain
    if (tail == nullptr || tail->length != text.size() ||
        tail->repeat == std::numeric_limits<std::uint32_t>::max() ||
        std::memcmp(tail->chars, text.data(), text.size()) != 0)
        return false;
    ++tail->repeat;
    open.beforeTail = nullptr;
    open.runEnd = nullptr;
    return true;
}

// Appends a run, which cannot grow.
void XmlTree::AddRun(OpenElement& open, char const* run, std::uint32_t length, std::uint32_t repeat) {
    NodeText& target = TextOf(*open.element);
    open.runEnd = nullptr;
    if (target.m_length == 0 && repeat == 1) {
        target.m_run = run;
        target.m_length = length;
        open.runLength = &target.m_length;
        return;
    }
    NodeText::Piece* const piece = NewPiece(run, length, repeat);
    if (target.m_length == 0) {
        target.m_chain = piece;
        target.m_length = length; // that of a chain only tells that there is text
        target.m_form = NodeText::Form::kChain;
    } else {
        if (target.m_form == NodeText::Form::kRun) {
            target.m_chain = open.tail = NewPiece(target.m_run, target.m_length, 1);
            target.m_form = NodeText::Form::kChain;
        }
        open.tail->next = piece;
    }
    open.beforeTail = open.tail;
    open.tail = piece;
    open.runLength = &piece->length;
}

void XmlTree::AppendKeptRun(std::string_view text, std::uint32_t repeat) {
    if (m_textPlaces != nullptr) {
        for (std::uint32_t i = 0; i != repeat; ++i)
            m_textPlaces->AddText(text);
    }
    OpenElement& open = m_open.back();
    ZV_ASSERT(TextOf(*open.element).m_form != NodeText::Form::kString);
    if (text.empty() || repeat == 0 || (repeat == 1 && RepeatTail(open, text)))
        return;
    AddRun(open, text.data(), LengthOfRun(text), repeat);
}

// White space between children is mostly the same: a run equal to the previous one is counted, not stored.
// Done when a child begins, when the run is complete and still the last allocation.
void XmlTree::FoldRepeatedTail(OpenElement& open) noexcept {
    NodeText::Piece* const before = open.beforeTail;
    NodeText::Piece* const tail = open.tail;
    if (before == nullptr || TextOf(*open.element).m_form != NodeText::Form::kChain || tail->repeat != 1 ||
        before->length != tail->length || std::memcmp(before->chars, tail->chars, tail->length) != 0)
        return;
    if (open.runEnd != nullptr && m_texts.IsTop(open.runEnd))
        m_texts.RewindTo(open.runEnd - tail->length);
    if (m_nodes.IsTop(reinterpret_cast<char*>(tail + 1)))
        m_nodes.RewindTo(reinterpret_cast<char*>(tail));
    before->next = nullptr;
    ++before->repeat;
    open.tail = before;
    open.beforeTail = nullptr;
    open.runEnd = nullptr; // it is repeated
}

CXmlElement* XmlTree::EndElement() {
    CXmlElement* const element = m_open.back().element;
    m_open.pop_back();
    if (m_textPlaces != nullptr)
        m_textPlaces->EndElement();
    return element;
}

template <class Part>
void XmlTree::ForgetClosed(KeptList<Part>& kept, std::size_t sinceCount) noexcept {
    // What belongs to an open element was asked for inside the removed element, and stays.
    auto const isOpen = [this](CXmlElement const* element) {
        return std::any_of(m_open.rbegin(), m_open.rend(),
                           [element](OpenElement const& open) { return open.element == element; });
    };
    std::size_t newer = kept.size() - sinceCount;
    for (auto it = kept.end(); newer != 0; --newer) {
        --it;
        if (!isOpen(it->element))
            it = kept.erase(it);
    }
}

bool XmlTree::RemoveLastChildElement() {
    if (m_open.empty())
        return false;
    if (m_textPlaces != nullptr)
        m_textPlaces->RemoveLastElement();
    OpenElement& open = m_open.back();
    (open.beforeLastChild == nullptr ? open.element->GetContent().firstChild
                                     : open.beforeLastChild->m_nextSibling) = nullptr;
    open.lastChild = open.beforeLastChild;
    open.beforeLastChild = nullptr;
    StreamingMark const& mark = m_marks[m_open.size()];
    ForgetClosed(m_keptStrings, mark.keptStrings);
    ForgetClosed(m_keptFaces, mark.keptFaces);
    m_nodes.Rewind(mark.nodes);
    m_texts.Rewind(mark.texts);
    m_endedElements += m_liveElements - mark.liveElements;
    m_endedAttributes += m_liveAttributes - mark.liveAttributes;
    m_liveElements = mark.liveElements;
    m_liveAttributes = mark.liveAttributes;
    return true;
}

std::string const& XmlTree::KeepAsString(NodeText& text, CXmlElement const& element) {
    Kept<std::string>& kept = m_keptStrings.emplace_back(Kept<std::string>{std::string(), &element});
    text.AppendTo(kept.part);
    text.m_string = &kept.part;
    text.m_form = NodeText::Form::kString;
    for (OpenElement& open : m_open) {
        if (open.element == &element)
            open.runEnd = nullptr; // what follows goes to the string
    }
    return kept.part;
}

std::vector<CXmlAttribute*> const& XmlTree::KeepAttributeFaces(CXmlElement const& element) {
    CXmlElement::AttributeBlock& block = element.GetAttributeBlock();
    if (block.faces == nullptr) {
        auto& kept = m_keptFaces.emplace_back(
            Kept<std::vector<CXmlAttribute*>>{std::vector<CXmlAttribute*>(block.count), &element});
        for (std::size_t i = 0; i < block.count; ++i)
            kept.part[i] = element.GetAttributeAt(i);
        block.faces = &kept.part;
    }
    return *block.faces;
}

} // namespace ZvXmlLib16::detail
