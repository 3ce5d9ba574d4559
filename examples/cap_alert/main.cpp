// Reads a real alert into typed objects, prints some of it, changes it, writes it, and shows the messages for
// an alert that violates the schema. Usage: example_cap_alert FILE
#include "CapAlert.h"

#include <iostream>

using namespace ZvXmlLib16;
using namespace cap;

namespace {

void Print(CAlert const& alert) {
    std::cout << "alert " << alert.GetIdentifier() << "\n  from " << alert.GetSender() << ", sent "
              << alert.GetSent()->ToString() << '\n';
    for (int i = 0; i < alert.GetInfos()->GetCount(); ++i) {
        CSmartPtr<CInfo> const info = alert.GetInfos()->Item(i);
        std::cout << "  ";
        for (std::int32_t const category : *info->GetCategories())
            std::cout << ToText(static_cast<Category>(category)) << ": ";
        std::cout << info->GetEvent() << ", " << ToText(info->GetSeverity()) << ": " << info->GetHeadline()
                  << "\n  " << info->GetParameters()->GetCount() << " parameters";
        if (CDateTime const* const expires = info->GetExpires())
            std::cout << "; until " << expires->ToString();
        for (int area = 0; area < info->GetAreas()->GetCount(); ++area)
            std::cout << "; " << info->GetAreas()->Item(area)->GetAreaDesc();
        std::cout << '\n';
    }
}

void Run(char const* fileName) {
    CSerializationContext ctx;
    ctx.SetDefaultNamespaceURI(kNamespace);
    ctx.SetIndentChars("  ");

    CSmartPtr<CAlert> const alert(new CAlert);
    alert->FromXmlFile(fileName, ctx);
    Print(*alert);

    // The written alert is read back, and must be the same.
    std::string const xml = alert->ToXml(false, false, EOLType_LF, ctx);
    CSmartPtr<CAlert> const copy(new CAlert);
    copy->FromXml(xml.c_str(), ctx);
    std::cout << (copy->ToXml(false, false, EOLType_LF, ctx) == xml
                      ? "written and read back: the same\n\n"
                      : "written and read back: not the same\n\n");

    CSmartPtr<CAlert> const change(new CAlert);
    change->FromXml(
        "<alert xmlns='urn:oasis:names:tc:emergency:cap:1.2'><identifier>1</identifier><sender>s</sender>"
        "<sent>2026-01-01T00:00:00+00:00</sent><status>Test</status><msgType>Alert</msgType>"
        "<scope>Public</scope></alert>",
        ctx);
    change->SetStatus(Status::Exercise);
    CSmartPtr<CArea> const area = change->GetInfos()->Add()->GetAreas()->Add();
    area->SetAreaDesc("The harbour");
    try {
        change->ToXml(false, true, EOLType_LF, ctx);
    } catch (CZvException const& failure) {
        std::cout << "writing an alert that is not complete:\n" << failure.GetFullMessage() << "\n\n";
    }
    change->GetInfos()->Clear();
    std::cout << change->ToXml(false, true, EOLType_LF, ctx) << '\n';

    std::string offending = xml;
    std::size_t const at = offending.find("<severity>");
    offending.insert(at + 10, "Very");
    try {
        copy->FromXml(offending.c_str(), ctx);
    } catch (CZvException const& failure) {
        std::cout << "reading an alert that offends the schema:\n" << failure.GetFullMessage() << '\n';
    }
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: example_cap_alert FILE\n";
        return 2;
    }
    SetGeneratorVersion(16, 1);
    SetLocalCharEncoding(65001);
    try {
        Run(argv[1]);
    } catch (CZvException const& failure) {
        std::cerr << argv[1] << ": " << failure.GetFullMessage() << '\n';
        return 1;
    }
}
