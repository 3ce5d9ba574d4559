#include "zvxmllib/driver/KnownElements.h"

#include "zvxmllib/binding/NestingGuard.h"
#include "zvxmllib/driver/ElementInfo.h"

#include <algorithm>

namespace ZvXmlLib16Data {

KnownElements::KnownElements(CXmlGeneratedClass& object) {
    Add(object);
}

void KnownElements::Add(CXmlGeneratedClass& object) {
    ZvXmlLib16::NestingGuard const level;
    for (CElementInfo* const* entry = object.GetClassElementInfo(); *entry != nullptr; ++entry) {
        CSmartPtr<CXmlObjectBase> made;
        if (!(*entry)->IsNestedGroup(&object, made)) {
            m_entries.push_back({*entry, &object});
            continue;
        }
        auto* const group = dynamic_cast<CXmlGeneratedClass*>(static_cast<CXmlObjectBase*>(made));
        if (group == nullptr) {
            m_isComplete = false;
            return;
        }
        m_groups.push_back(made);
        Add(*group);
    }
}

bool KnownElements::Accept(CSerializationContext const& ctx, CXmlElement const& element) const {
    return !m_isComplete || std::any_of(m_entries.begin(), m_entries.end(), [&](Entry const& entry) {
        return entry.info->AcceptsName(ctx, entry.object, &element);
    });
}

} // namespace ZvXmlLib16Data
