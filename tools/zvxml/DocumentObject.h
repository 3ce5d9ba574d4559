// CDocumentObject, a whole document as an untyped object.
#pragma once

#include <cstddef>

#include <zvxmllib/ZvXmlLib.h>

namespace zvxml {

// What formatted XML adds to the text of an element with children: in front of a text of its own, which
// stands last, and behind it. A depth of 0 is the root's.
struct Formatting {
    Formatting(std::size_t children, std::size_t depth)
        : before(children == 0 ? 0 : 1 + children * (depth + 2)), behind(children == 0 ? 0 : depth) {}

    std::size_t before;
    std::size_t behind;
};

// The root element with all that is in it. Where its base stands for an element inside a document and
// reads the first child of what it is given, this class reads the root itself, and when it is written, it
// hands the instructions, aliases and default namespace of the context to the writer.
class CDocumentObject : public ZvXmlLib16::CElement {
public:
    CDocumentObject();

    // Replaces what was there. Throws CZvException.
    void ReadRootOf(ZvXmlLib16::CXmlDocument const& document, ZvXmlLib16::CSerializationContext const& ctx);

    // Of a document that was made of JSON: takes the line ends and tabs out of the texts which the library's
    // formatting has put there.
    void DropFormatting();

    // Leaves out the text of elements with children where it is white space alone: a formatted document
    // gets its white space from the writer, and would get more of it each time.
    void DropWhiteSpaceBetweenElements();

protected:
    ~CDocumentObject() override;

    void ToXml_Int(ZvXmlLib16::CXmlWriter* writer, bool isRoot, char const* ns,
                   ZvXmlLib16::CSerializationContext const& ctx, bool optionalChoice) const override;
};

} // namespace zvxml
