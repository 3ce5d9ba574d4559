// CDocumentObject, a whole document as an untyped object.
#include "DocumentObject.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

using namespace ZvXmlLib16;

namespace zvxml {

namespace {

// What formatted XML adds to the text of an element with children: before its own text, which comes last, and
// after it. The root has depth 0.
struct Formatting {
    Formatting(std::size_t children, std::size_t depth)
        : before(children == 0 ? 0 : 1 + children * (depth + 2)), behind(children == 0 ? 0 : depth) {}

    std::size_t before;
    std::size_t behind;
};

constexpr std::string_view kCDataStart = "<![CDATA[";
constexpr std::string_view kCDataEnd = "]]>";

// Calls `visit` for `root` and all elements in it, with their depths, without recursion.
template <class Visitor>
void ForEachElementWithDepth(CElement* root, Visitor visit) {
    std::vector<std::pair<CElement*, std::size_t>> pending{{root, 0}}; // kept alive by the tree
    while (!pending.empty()) {
        auto const [element, depth] = pending.back();
        pending.pop_back();
        visit(*element, depth);
        if (!element->HasChildElements()) // GetChildElements would make one
            continue;
        CSmartPtr<CElementCol> const children = element->GetChildElements();
        for (auto child = children->begin(); child != children->end(); ++child)
            pending.emplace_back(*child, depth + 1);
    }
}

template <class Visitor>
void ForEachElement(CElement* root, Visitor visit) {
    ForEachElementWithDepth(root, [&visit](CElement& element, std::size_t) { visit(element); });
}

bool IsWhiteSpace(std::string_view text) {
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

// The writer does not escape a text that begins with the mark of a CDATA section. A text that only looks like
// one goes into a section of its own, and an end of a section in the text is split between two sections.
std::string AsCDataSection(std::string text) {
    for (std::size_t at = 0; (at = text.find(kCDataEnd, at)) != std::string::npos;) {
        text.insert(at + 2, std::string(kCDataEnd) + std::string(kCDataStart));
        at += 2 + kCDataEnd.size() + kCDataStart.size();
    }
    return std::string(kCDataStart) + text + std::string(kCDataEnd);
}

void KeepFromLookingLikeMarkup(CElement& element) {
    if (std::string_view(element.GetText()).substr(0, kCDataStart.size()) == kCDataStart)
        element.SetText(AsCDataSection(element.GetText()).c_str());
}

} // namespace

CDocumentObject::CDocumentObject() : CElement("") {}

CDocumentObject::~CDocumentObject() = default;

void CDocumentObject::ReadRootOf(CXmlDocument const& document, CSerializationContext const& ctx) {
    CXmlElement* const root = document.GetDocumentElement();
    FromXml_Int(root, root, ctx, false);
    ForEachElement(this, KeepFromLookingLikeMarkup);
}

// A text shorter than its formatting is not the library's: it is markup that came through a name or a CDATA
// section.
void CDocumentObject::DropFormatting() {
    ForEachElementWithDepth(this, [](CElement& element, std::size_t depth) {
        if (!element.HasChildElements())
            return;
        Formatting const formatting(static_cast<std::size_t>(element.GetChildElements()->GetCount()), depth);
        std::string const text = element.GetText();
        if (text.size() < formatting.before + formatting.behind)
            return;
        std::size_t const length = text.size() - formatting.before - formatting.behind;
        element.SetText(text.substr(formatting.before, length).c_str());
        KeepFromLookingLikeMarkup(element);
    });
}

void CDocumentObject::DropWhiteSpaceBetweenElements() {
    ForEachElement(this, [](CElement& element) {
        if (element.HasChildElements() && IsWhiteSpace(element.GetText()))
            element.SetText("");
    });
}

void CDocumentObject::ToXml_Int(CXmlWriter* writer, bool isRoot, char const* ns,
                                CSerializationContext const& ctx, bool optionalChoice) const {
    if (isRoot) {
        for (std::string const& instruction : ctx.GetProcessingInstructions())
            writer->WriteProcessingInstruction(instruction);
        for (auto const& [uri, alias] : ctx.GetNamespaceAliases().GetEntries())
            writer->AddNamespaceAlias(alias, uri);
        if (std::string const uri = ctx.GetDefaultNamespaceURI(); !uri.empty())
            writer->SetDefaultNamespace(uri);
    }
    CElement::ToXml_Int(writer, isRoot, ns, ctx, optionalChoice);
}

} // namespace zvxml
