// A Fast Infoset document into an untyped object and out again. What was written once is read back and
// written the same.
#include "zvxmllib/ZvXmlLib.h"

#include <cstdlib>
#include <optional>
#include <string>

using namespace ZvXmlLib16;

namespace {

// An untyped object that stands for a whole document.
class CWholeDocument : public CElement {
public:
    explicit CWholeDocument(CXmlDocument const& document) : CElement("") {
        CXmlElement* const root = document.GetDocumentElement();
        FromXml_Int(root, root, CSerializationContext::GetDefaultContext(), false);
    }

protected:
    ~CWholeDocument() override = default;
};

std::optional<std::string> Rewrite(std::string const& octets) {
    try {
        CXmlDocument document;
        document.LoadXmlStream(reinterpret_cast<unsigned char const*>(octets.data()),
                               static_cast<std::uint32_t>(octets.size()));
        CSmartPtr<CWholeDocument> const object(new CWholeDocument(document));
        CBinaryData const written = object->ToFastInfosetStream(
            FInfoDecl_None, CSerializationContext::GetDefaultContext(), CompressionType_None);
        return std::string(reinterpret_cast<char const*>(written.GetData()), written.GetLength());
    } catch (CZvException const&) {
        return std::nullopt;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size) {
    SetGeneratorVersion(kLibraryMajorVersion, kLibraryMinorVersion);
    SetLocalCharEncoding(65001);
    std::string const magic("\xE0\x00\x00\x01", 4);
    std::string octets(reinterpret_cast<char const*>(data), size);
    if (octets.compare(0, magic.size(), magic) != 0)
        octets.insert(0, magic);
    std::optional<std::string> const written = Rewrite(octets);
    if (!written)
        return 0;
    std::optional<std::string> const second = Rewrite(*written);
    if (!second || Rewrite(*second) != second)
        std::abort();
    return 0;
}
