// A program of another project: writes, reads, derives from the library's classes, and catches what it
// throws.
#include <zvxmllib/ZvXmlLib.h>

#include <iostream>
#include <string>

using namespace ZvXmlLib16;

namespace {

// A bound class written by hand.
class Greeting : public CXmlObjectBase {
public:
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() override { return "urn:greeting"; }

protected:
    std::string GetTargetNamespace() override { return GetNamespace(); }
    void ToXml_Int(CXmlWriter* writer, bool, char const* ns, CSerializationContext const&,
                   bool) const override {
        writer->WriteElementStart("greeting", ns);
        writer->WriteElementValue("hello", ItemType_string, false);
        writer->WriteElementEnd();
    }
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement*, CSerializationContext const&, bool) override {
        throw CZvInvalidStateException("not to be read");
    }
};

bool Check(bool holds, char const* what) {
    if (!holds)
        std::cerr << "failed: " << what << '\n';
    return holds;
}

bool WritesAClassOfItsOwn() {
    CSmartPtr<CXmlObjectBase> const greeting = new Greeting;
    std::string const text = greeting->ToXml(false, false, EOLType_LF, CSerializationContext());
    return Check(text == R"(<AA:greeting xmlns:AA="urn:greeting">hello</AA:greeting>)", text.c_str());
}

bool FindsClassesAcrossTheEdge() {
    CSmartPtr<CElement> const element = new CElement("");
    element->FromXml("<a><b x='1'/></a>");
    CXmlObjectBase* const object = element;
    return Check(dynamic_cast<CElement*>(object) != nullptr,
                 "an object of the library is found by its class") &&
           Check(dynamic_cast<CAttribute*>(object) == nullptr, "and not by another one");
}

bool CatchesByClass() {
    try {
        CSmartPtr<CElement> const element = new CElement("name", "##any");
    } catch (CZvValidationException const& e) {
        return Check(e.GetMessage() == "Invalid Namespace [##any].", e.GetMessage().c_str());
    }
    return Check(false, "an exception of the library is caught by its base");
}

} // namespace

int main() {
    SetGeneratorVersion(kLibraryMajorVersion, kLibraryMinorVersion);
    bool const good = WritesAClassOfItsOwn() && FindsClassesAcrossTheEdge() && CatchesByClass();
    return good ? 0 : 1;
}
