// The documents of the benchmarks, and what is done with them.
#include "benchmarks/Documents.h"

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <sstream>

using namespace ZvXmlLib16;

namespace bench {

namespace {

constexpr std::size_t kLargeDocument = 50U << 20U; // bytes

// Counts the bytes that pass.
class CountingWriter {
public:
    explicit CountingWriter(std::ostream& stream) : m_stream(stream) {}
    void Write(std::string const& text) {
        m_stream << text;
        m_count += text.size();
    }
    std::size_t Count() const { return m_count; }

private:
    std::ostream& m_stream;
    std::size_t m_count = 0;
};

std::string Record(std::uint32_t number) {
    constexpr char const* kWords[] = {"copper",  "harbour", "lantern", "meadow",
                                      "orchard", "quarry",  "saddle",  "willow"};
    std::uint32_t const random = number * 2654435761U;
    auto const word = [&](unsigned shift) { return std::string(kWords[(random >> shift) % 8U]); };
    std::string const id = std::to_string(number);
    std::string text =
        "  <record id=\"R" + id + "\" state=\"" + ((random & 1U) != 0 ? "open" : "closed") + "\">\n";
    text += "    <name>" + word(3) + " &amp; " + word(7) + "</name>\n";
    text += "    <date>20" + std::to_string(10 + random % 15U) + "-0" + std::to_string(1 + random % 9U) +
            "-14</date>\n";
    text += "    <amount currency=\"EUR\">" + std::to_string(random % 100000U) + ".50</amount>\n";
    text += "    <note>The " + word(11) + " stands by the " + word(15) + ", next to the " + word(19) +
            ".</note>\n";
    return text + "  </record>\n";
}

} // namespace

Document RealDocument(std::string const& name) {
    std::ifstream stream(std::string(ZV_EXAMPLE_DATA_DIR "/") + name, std::ios::binary);
    std::ostringstream text;
    text << stream.rdbuf();
    if (!stream || text.str().empty()) {
        std::cerr << name << ": cannot be read\n";
        std::exit(1);
    }
    return {name, text.str()};
}

void WriteRecords(std::ostream& stream, std::size_t bytes) {
    CountingWriter writer(stream);
    writer.Write("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<records xmlns=\"urn:example:records\">\n");
    for (std::uint32_t number = 1; writer.Count() < bytes; ++number)
        writer.Write(Record(number));
    writer.Write("</records>\n");
}

Document Records(std::size_t bytes) {
    std::ostringstream text;
    WriteRecords(text, bytes);
    return {"records of " + std::to_string(bytes >> 20U) + " MB", text.str()};
}

std::vector<Document> AllDocuments() {
    std::vector<Document> documents;
    for (char const* name : {"ubl-invoice.xml", "cap-tsunami.xml", "iso20022-pain001-03.xml",
                             "kml-samples.kml", "citygml-lod2-buildings.gml"})
        documents.push_back(RealDocument(name));
    documents.push_back(Records(kLargeDocument));
    return documents;
}

unsigned char const* Bytes(std::string const& text) {
    return reinterpret_cast<unsigned char const*>(text.data());
}

void Load(CXmlDocument& document, std::string const& text) {
    document.LoadXmlStream(Bytes(text), static_cast<std::uint32_t>(text.size()));
}

void CRootElement::ReadRootOf(CXmlDocument const& document) {
    CXmlElement* const root = document.GetDocumentElement();
    FromXml_Int(root, root, CSerializationContext::GetDefaultContext(), false);
}

CRootElement::~CRootElement() = default;

CSmartPtr<CRootElement> ReadObject(std::string const& text) {
    CXmlDocument document;
    Load(document, text);
    CSmartPtr<CRootElement> object = new CRootElement;
    object->ReadRootOf(document);
    return object;
}

CBinaryData WriteObject(CRootElement& object) {
    return object.ToXmlStream(false, false, XmlEncoding_UTF8, EOLType_LF,
                              CSerializationContext::GetDefaultContext(), CompressionType_None);
}

} // namespace bench
