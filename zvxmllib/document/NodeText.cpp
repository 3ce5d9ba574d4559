#include "zvxmllib/document/NodeText.h"

#include "zvxmllib/document/XmlTree.h"

namespace ZvXmlLib16::detail {

namespace {
std::string const kNoText;
}

void NodeText::AppendTo(std::string& target) const {
    if (m_form != Form::kChain) {
        target.append(View());
        return;
    }
    for (Piece const* piece = m_chain; piece != nullptr; piece = piece->next) {
        for (std::uint32_t i = 0; i < piece->repeat; ++i)
            target.append(piece->chars, piece->length);
    }
}

std::string const& NodeText::AsString(XmlTree& tree, CXmlElement const& element) const {
    if (m_form == Form::kString)
        return *m_string;
    if (IsEmpty())
        return kNoText;
    // The kind of storage is not part of the text's value.
    return tree.KeepAsString(const_cast<NodeText&>(*this), element);
}

} // namespace ZvXmlLib16::detail
