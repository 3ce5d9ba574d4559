// Fills a parcel, writes it, reads it back, and shows the messages for wrong ones.
#include "Parcel.h"

#include <iostream>

using namespace ZvXmlLib16;
using namespace parcel;

namespace {

template <class Step>
void Show(Step step) {
    try {
        step();
    } catch (CZvException const& failure) {
        std::cout << failure.GetFullMessage() << "\n\n";
    }
}

CSmartPtr<CParcel> Fill() {
    CSmartPtr<CParcel> parcel(new CParcel);
    parcel->GetWeight()->SetValue(CDecimal("2.5"));
    parcel->GetReceiver()->GetPhones()->Add("555-0100");
    CSmartPtr<CLeg> const leg = parcel->GetLegs()->Add();
    leg->SetFrom("Bremen");
    leg->SetTo("Turin");
    CSmartPtr<CTea> const tea(new CTea);
    tea->SetTitle("Green");
    tea->SetGrams(500);
    parcel->SetContent(tea);
    parcel->SetFragile(true);
    parcel->SetInsuredNil();
    parcel->SetPieces(1);
    CSmartPtr<CRemark> const remark(new CRemark);
    remark->SetText(", please");
    remark->GetBold()->Add("Ring twice");
    parcel->SetRemark(remark);
    CSmartPtr<CReturned> const returned(new CReturned);
    returned->SetIsNil(true);
    parcel->SetReturned(returned);
    parcel->GetAny()->Add("stamp", "urn:other")->SetText("1.60");
    parcel->GetAnyAttributes()->Add("id", "x1", "urn:other");
    return parcel;
}

void Run() {
    CSerializationContext ctx;
    ctx.SetDefaultNamespaceURI("urn:example:parcel");
    ctx.GetNamespaceAliases().Add("o", "urn:other");
    ctx.GetNamespaceAliases().Add("xsi", "http://www.w3.org/2001/XMLSchema-instance");
    ctx.SetIndentChars("  ");

    std::string const xml = Fill()->ToXml(false, true, EOLType_LF, ctx);
    std::cout << xml << "\n\n";

    // Not indented: a mixed text would keep that white space.
    std::string const compact = Fill()->ToXml(false, false, EOLType_LF, ctx);
    CSmartPtr<CParcel> const copy = ReadParcel(compact.c_str(), ctx);
    bool const isEqual = copy->ToXml(false, false, EOLType_LF, ctx) == compact;
    std::cout << "read and written again: " << (isEqual ? "equal" : "different") << ", to the "
              << copy->GetReceiver()->GetSelected() << "\n\n";

    Show([&] { copy->GetReceiver()->SetAddress("Via Roma 1"); });
    copy->GetReceiver()->GetPhones()->Clear();
    copy->GetReceiver()->SetAddress("Via Roma 1");
    Show([&] { copy->GetReceiver()->GetPhones()->Add("555-0199"); });
    CSmartPtr<CReturned> const returned(new CReturned);
    returned->SetOn(CDateTime(2026, 11, 23));
    copy->SetReturned(returned);
    copy->GetAny()->Clear();
    std::cout << copy->ToXml(false, false, EOLType_LF, ctx) << "\n\n";

    std::string const start = "<parcel xmlns='urn:example:parcel'><weight unit='lb'> 5\n</weight>";
    std::string const book = "<content xsi:type='Book' xmlns:xsi='http://www.w3.org/2001/XMLSchema-instance'>"
                             "<title>T</title></content>";
    CSmartPtr<CParcel> const pounds = ReadParcel((start + "<address/>" + book + "</parcel>").c_str(), ctx);
    std::cout << "weight " << pounds->GetWeight()->GetValue().ToString() << ", " << pounds->GetPieces()
              << " piece\n\n";
    for (std::string const& rest :
         {book, std::string("<address/><content/>"), "<address/><from>A</from>" + book,
          "<address/>" + book + "<fragile/><pieces>two</pieces>"})
        Show([&] { ReadParcel((start + rest + "</parcel>").c_str(), ctx); });
    Show([&] { ReadParcel("<parcel/>", ctx); });

    // What an entry point does not check, and what ignoring unknown elements costs.
    CSmartPtr<CWeight> const weight(new CWeight);
    weight->FromXml("<anything unit='kg'>7</anything>", ctx);
    std::cout << "weight " << weight->GetValue().ToString() << "\n";
    ctx.SetIgnoreUnknownElements(true);
    std::string const behind = "<address/>" + book + "<unknown/><pieces>2</pieces></parcel>";
    std::cout << "pieces behind an unknown element: "
              << ReadParcel((start + behind).c_str(), ctx)->GetPieces() << "\n\n";
    ctx.SetIgnoreUnknownElements(false);
    Show([&] { ReadParcel("<parcel xmlns='urn:example:parcel' version='2'/>", ctx); });
}

} // namespace

int main() {
    SetGeneratorVersion(16, 1);
    SetLocalCharEncoding(65001);
    Run();
    CType::CleanUp();
}
