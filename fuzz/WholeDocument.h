// A whole document as an object, for the fuzzers of documents.
#pragma once

#include "Fuzz.h"

// The root element with all that is in it, where its base reads the first child. Namespaces have the aliases
// of the context when it is written.
class CWholeDocument : public CElement {
public:
    CWholeDocument() : CElement("") {}

    using CElement::FromXml;

protected:
    ~CWholeDocument() override = default;
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement*, CSerializationContext const& ctx,
                             bool optionalChoice) override {
        return CElement::FromXml_Int(element, element, ctx, optionalChoice);
    }
    void ToXml_Int(CXmlWriter* writer, bool isRoot, char const* ns, CSerializationContext const& ctx,
                   bool optionalChoice) const override {
        for (auto const& [uri, alias] : ctx.GetNamespaceAliases().GetEntries())
            writer->AddNamespaceAlias(alias, uri);
        CElement::ToXml_Int(writer, isRoot, ns, ctx, optionalChoice);
    }
};

using WholeDocument = CSmartPtr<CWholeDocument>;

inline CBinaryData OctetsOf(std::string_view text) {
    CBinaryData octets;
    octets.SetBuffer(reinterpret_cast<unsigned char const*>(text.data()),
                     static_cast<std::uint32_t>(text.size()));
    return octets;
}

// These throw what the library throws.
inline WholeDocument FromOctets(CBinaryData const& octets) {
    WholeDocument document(new CWholeDocument);
    document->FromXmlStream(octets, CSerializationContext::GetDefaultContext());
    return document;
}
inline WholeDocument FromXmlText(std::string const& xml) {
    WholeDocument document(new CWholeDocument);
    document->FromXml(xml.c_str(), CSerializationContext::GetDefaultContext());
    return document;
}
inline WholeDocument FromJsonText(std::string const& json) {
    WholeDocument document(new CWholeDocument);
    document->FromJson(json.c_str(), CSerializationContext::GetDefaultContext());
    return document;
}
