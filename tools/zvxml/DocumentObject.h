// CDocumentObject, a whole document as an untyped object.
#pragma once

#include <zvxmllib/ZvXmlLib.h>

namespace zvxml {

// The root element with all that is in it. Its base reads the first child of a document's root, as an element
// inside a document; this class reads the root itself, and on writing passes the instructions, aliases and
// default namespace of the context to the writer.
class CDocumentObject : public ZvXmlLib16::CElement {
public:
    CDocumentObject();

    // Replaces the present content. Throws CZvException.
    void ReadRootOf(ZvXmlLib16::CXmlDocument const& document, ZvXmlLib16::CSerializationContext const& ctx);

    // For a document made from JSON: removes the line ends and tabs that the library's formatting has put
    // into the texts.
    void DropFormatting();

    // Drops the text of elements with children if it is only white space: the writer of a formatted document
    // adds white space, and would add more each time.
    void DropWhiteSpaceBetweenElements();

protected:
    ~CDocumentObject() override;

    void ToXml_Int(ZvXmlLib16::CXmlWriter* writer, bool isRoot, char const* ns,
                   ZvXmlLib16::CSerializationContext const& ctx, bool optionalChoice) const override;
};

} // namespace zvxml
