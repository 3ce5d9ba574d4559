#include "zvxmllib/driver/XmlGeneratedClass.h"

#include "zvxmllib/binding/XmlCollectionBase.h"
#include "zvxmllib/driver/ElementInfo.h"
#include "zvxmllib/driver/Failures.h"
#include "zvxmllib/values/variant/ZvVariant.h"

namespace ZvXmlLib16 {

using ZvXmlLib16Data::CAttributeInfo;
using ZvXmlLib16Data::CElementInfo;
using ZvXmlLib16Data::CParentElementInfo;

CZVCriticalSection CXmlGeneratedClass::m_csInit;

CXmlGeneratedClass::CXmlGeneratedClass() = default;

CXmlGeneratedClass::~CXmlGeneratedClass() = default;

void CXmlGeneratedClass::AccessProperty(int index, bool, ZvVariant&) {
    ZvXmlLib16Data::FailUnknownProperty(index);
}

void CXmlGeneratedClass::ReadProperty(int index, ZvVariant& value) const {
    Mutable().AccessProperty(index, true, value);
}

// Finds the interface by a checked cast, and remembers a class that has none.
INillable* CXmlGeneratedClass::FindNillable(CParentElementInfo const& info) const {
    std::type_info const& type = typeid(*this);
    if (info.m_classWithoutNil.load(std::memory_order_relaxed) == &type)
        return nullptr;
    auto* const nillable = dynamic_cast<INillable*>(&Mutable());
    if (nillable == nullptr)
        info.m_classWithoutNil.store(&type, std::memory_order_relaxed);
    return nillable;
}

int CXmlGeneratedClass::GetClassElementInfoCount() const {
    CElementInfo* const* const elements = Mutable().GetClassElementInfo();
    int count = 0;
    while (elements[count] != nullptr)
        ++count;
    return count;
}

bool CXmlGeneratedClass::DoesElementContainOptionalElements() const {
    for (CElementInfo* const* entry = Mutable().GetClassElementInfo(); *entry != nullptr; ++entry) {
        switch ((*entry)->GetChoiceMember()) {
        case CElementInfo::ChoiceMember::kOptional:
            return true;
        case CElementInfo::ChoiceMember::kCollection: {
            ZvVariant value;
            (*entry)->ReadProperty(this, value);
            if (value.GetTypeAsEnum() == ItemType_XmlCollection && !value.IsNil()) {
                CSmartPtr<CXmlCollectionBase> const collection = value.GetXmlCollection();
                if (collection != nullptr && collection->GetMinOccurs() == 0)
                    return true;
            }
            break;
        }
        case CElementInfo::ChoiceMember::kOther:
            break;
        }
    }
    return false;
}

bool CXmlGeneratedClass::IsElementInList(CSerializationContext const& ctx, CXmlElement* element) const {
    for (CElementInfo* const* entry = Mutable().GetClassElementInfo(); *entry != nullptr; ++entry) {
        if ((*entry)->IsThisElement(ctx, element))
            return true;
    }
    return false;
}

namespace {

template <class Entry>
void DeleteTable(Entry**& table) {
    if (table != nullptr) {
        for (Entry** entry = table; *entry != nullptr; ++entry)
            delete *entry;
        delete[] table;
        table = nullptr;
    }
}

} // namespace

void CXmlGeneratedClass::CleanMetaData(CParentElementInfo*& info, CElementInfo**& elements,
                                       CAttributeInfo**& attributes) {
    delete info;
    info = nullptr;
    DeleteTable(elements);
    DeleteTable(attributes);
}

} // namespace ZvXmlLib16
