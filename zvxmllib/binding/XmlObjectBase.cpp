// CXmlObjectBase, the root of all bound objects: counting, element name, events.
#include "zvxmllib/binding/XmlObjectBase.h"

#include "zvxmllib/binding/GeneratorVersion.h"
#include "zvxmllib/binding/NestingGuard.h"
#include "zvxmllib/binding/XmlCollectionBase.h"
#include "zvxmllib/foundation/RecentTexts.h"

#include <new>
#include <vector>

namespace ZvXmlLib16 {

namespace {

// Deletions nested deeper than this on one thread are postponed until the outermost one returns.
constexpr int kMaxNestedDeletions = 64;

// The count of an object that is being deleted. References taken and released meanwhile, by a listener for
// instance, then cannot bring the count to 0 a second time.
constexpr std::int32_t kDeletedCount = 1 << 30;

struct Deletions {
    int depth;
    std::vector<CXmlObjectBase*>* putOff; // on the stack of the outermost deletion, null without one
};

thread_local Deletions t_deletions{0, nullptr};

} // namespace

CXmlObjectBase::CXmlObjectBase() {
    detail::CompareGeneratorVersionOnce();
}

CXmlObjectBase::CXmlObjectBase(CXmlObjectBase const& other)
    : IEventSink(other), m_elementName(other.m_elementName) {
    detail::CompareGeneratorVersionOnce();
}

CXmlObjectBase& CXmlObjectBase::operator=(CXmlObjectBase const& other) {
    m_elementName = other.m_elementName;
    return *this;
}

CXmlObjectBase::~CXmlObjectBase() = default;

void CXmlObjectBase::DeleteUnreferenced() noexcept {
    m_refCount.store(kDeletedCount, std::memory_order_relaxed);
    Deletions& deletions = t_deletions;
    if (deletions.depth >= kMaxNestedDeletions) {
        try {
            deletions.putOff->push_back(this);
            return;
        } catch (std::bad_alloc const&) {
            // The stack may still have room where the heap has none.
        }
    }
    ++deletions.depth;
    if (deletions.putOff != nullptr) {
        delete this;
    } else {
        std::vector<CXmlObjectBase*> putOff;
        deletions.putOff = &putOff;
        delete this;
        while (!putOff.empty()) {
            CXmlObjectBase* const object = putOff.back();
            putOff.pop_back();
            delete object;
        }
        deletions.putOff = nullptr;
    }
    --deletions.depth;
}

void CXmlObjectBase::OnEvent(CXmlObjectBase*, IEventSink::MsgType, void*) {}

void CXmlObjectBase::AttributesToXml_Int(CXmlWriter*, CSerializationContext const&) const {}

void CXmlObjectBase::SetElementName(char const* name) {
    std::string_view const text = name == nullptr ? "" : name;
    if (m_elementName.Get() != text)
        m_elementName = detail::ShareRecent(text);
}

void CXmlObjectBase::SetElementName(CXmlObjectBase* object, char const* name) {
    object->SetElementName(name);
}

void CXmlObjectBase::ToXml_Int(CXmlObjectBase const* object, CXmlWriter* writer, bool isRoot, char const* ns,
                               CSerializationContext const& ctx, bool optionalChoice) {
    NestingGuard const level;
    object->ToXml_Int(writer, isRoot, ns, ctx, optionalChoice);
}

void CXmlObjectBase::AttributesToXml_Int(CXmlObjectBase const* object, CXmlWriter* writer,
                                         CSerializationContext const& ctx) {
    NestingGuard const level;
    object->AttributesToXml_Int(writer, ctx);
}

CXmlElement* CXmlObjectBase::FromXml_Int(CXmlObjectBase* object, CXmlElement* element, CXmlElement* current,
                                         CSerializationContext const& ctx) {
    NestingGuard const level;
    return object->FromXml_Int(element, current, ctx, false);
}

void CXmlObjectBase::FireOnCollectionChangeEvent(IEventSink* sink, CXmlCollectionBase* collection) {
    sink->OnEvent(collection->GetBase(), IEventSink::MsgCollectionChange, nullptr);
}

void CXmlObjectBase::FireOnCollectionAddEvent(IEventSink* sink, CXmlCollectionBase* collection, void* item) {
    sink->OnEvent(collection->GetBase(), IEventSink::MsgCollectionAdd, item);
}

void CXmlObjectBase::FireOnCollectionAddCompleteEvent(IEventSink* sink, CXmlCollectionBase* collection,
                                                      void* item) {
    sink->OnEvent(collection->GetBase(), IEventSink::MsgCollectionAddComplete, item);
}

void CXmlObjectBase::FireOnCollectionRemoveEvent(IEventSink* sink, CXmlCollectionBase* collection,
                                                 int index) {
    sink->OnEvent(collection->GetBase(), IEventSink::MsgCollectionRemove, index == -1 ? nullptr : &index);
}

void CXmlObjectBase::FireOnCollectionRemoveCompleteEvent(IEventSink* sink, CXmlCollectionBase* collection,
                                                         int index) {
    sink->OnEvent(collection->GetBase(), IEventSink::MsgCollectionRemoveComplete,
                  index == -1 ? nullptr : &index);
}

} // namespace ZvXmlLib16
