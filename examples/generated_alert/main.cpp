// The classes of this program are made of examples/data/cap-1.2.xsd when it is built.
#include "cap.h"

#include <iostream>

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "Usage: " << argv[0] << " ALERT\n";
        return 2;
    }
    try {
        ZvXmlLib16::CSmartPtr<cap::CAlert> const alert = cap::ReadAlert(argv[1]);
        for (cap::CAlertInfo& info : alert->GetInfo()) {
            std::cout << info.GetEvent();
            if (info.GetSeverity() == cap::AlertInfoSeverity::Extreme)
                std::cout << " (extreme)";
            for (cap::CAlertInfoArea& area : info.GetArea())
                std::cout << ", " << area.GetAreaDesc();
            std::cout << '\n';
        }
        alert->SetNote("Read by an example");
        std::cout << cap::WriteAlertJson(*alert).size() << " bytes of JSON\n";
        return 0;
    } catch (ZvXmlLib16::CZvException const& e) {
        std::cerr << argv[1] << ": " << e.GetFullMessage() << '\n';
        return 1;
    }
}
