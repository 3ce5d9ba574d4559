// The documents of the benchmarks: real ones from examples/data, and generated records of any length.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

#include "zvxmllib/ZvXmlLib.h"

namespace bench {

struct Document {
    std::string name;
    std::string text;
};

Document RealDocument(std::string const& name);

// Records with attributes, numbers, dates and texts, indented, in one namespace; at least `bytes` long.
Document Records(std::size_t bytes);
void WriteRecords(std::ostream& stream, std::size_t bytes);

// The real ones of several sizes, and 50 MB of records.
std::vector<Document> AllDocuments();

unsigned char const* Bytes(std::string const& text);

// Builds the tree of `text`.
void Load(ZvXmlLib16::CXmlDocument& document, std::string const& text);

// An untyped object that stands for a whole document.
class CRootElement : public ZvXmlLib16::CElement {
public:
    CRootElement() : CElement("") {}
    void ReadRootOf(ZvXmlLib16::CXmlDocument const& document);

protected:
    ~CRootElement() override;
};

CSmartPtr<CRootElement> ReadObject(std::string const& text);
// Compact, UTF-8.
ZvXmlLib16::CBinaryData WriteObject(CRootElement& object);

} // namespace bench
