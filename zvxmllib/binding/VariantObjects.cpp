// The objects that a variant holds: where their classes are known.
#include "zvxmllib/binding/XmlCollectionBase.h"
#include "zvxmllib/values/variant/ObjectCount.h"
#include "zvxmllib/values/variant/ZvVariant.h"

namespace ZvXmlLib16 {

void detail::AddRefObject(CXmlObjectBase* object) noexcept {
    object->AddRef();
}

void detail::ReleaseObject(CXmlObjectBase* object) noexcept {
    object->Release();
}

CSmartPtr<CXmlObjectBase> ZvVariant::GetXmlObject() const {
    if (m_type != ItemType_XmlCollection) // a collection is an object too
        ZV_ASSERT(m_type == ItemType_XmlObjectBase);
    return FindXmlObject();
}

// Takes the new reference before it drops the old one: what this variant holds may keep the object alive.
void ZvVariant::SetXmlObject(CXmlObjectBase* value) {
    if (value != nullptr)
        value->AddRef();
    BeginValue(ItemType_XmlObjectBase);
    m_pXmlObj = value;
}

CSmartPtr<CXmlCollectionBase> ZvVariant::GetXmlCollection() const {
    CXmlCollectionBase* const m_pXmlCol = FindXmlCollection(); // its name is part of the assertion's text
    // NOLINTNEXTLINE(modernize-use-nullptr): the assertion's text
    ZV_ASSERT(m_type == ItemType_XmlCollection && m_pXmlCol != 0);
    return m_pXmlCol;
}

void ZvVariant::SetXmlCollection(CXmlCollectionBase* value) {
    if (value != nullptr)
        value->AddRef();
    BeginValue(ItemType_XmlCollection);
    m_pXmlObj = value;
}

CXmlCollectionBase* ZvVariant::FindXmlCollection() const noexcept {
    return m_type == ItemType_XmlCollection ? static_cast<CXmlCollectionBase*>(m_pXmlObj) : nullptr;
}

} // namespace ZvXmlLib16
