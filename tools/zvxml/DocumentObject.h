// CDocumentObject, a whole document as an untyped object.
#pragma once

#include <zvxmllib/ZvXmlLib.h>

namespace zvxml {

// The root element with all that is in it. Where its base stands for an element inside a document and
// reads the first child of what it is given, this class reads the root itself, and when it is written, it
// hands the instructions, aliases and default namespace of the context to the writer.
class CDocumentObject : public ZvXmlLib16::CElement {
public:
    CDocumentObject();

    // Replaces what was there. Throws CZvException.
    void ReadRootOf(ZvXmlLib16::CXmlDocument const& document, ZvXmlLib16::CSerializationContext const& ctx);

    // Leaves out the text of elements with children where it is white space alone: a formatted document
    // gets its white space from the writer, and would get more of it each time.
    void DropWhiteSpaceBetweenElements();

protected:
    ~CDocumentObject() override;

    void ToXml_Int(ZvXmlLib16::CXmlWriter* writer, bool isRoot, char const* ns,
                   ZvXmlLib16::CSerializationContext const& ctx, bool optionalChoice) const override;
};

} // namespace zvxml
