// CInstanceMonitor, live and total instances by class name.
#include "zvxmllib/foundation/InstanceMonitor.h"

#include "zvxmllib/foundation/Assert.h"
#include "zvxmllib/foundation/CriticalSection.h"
#include "zvxmllib/foundation/DebugTrace.h"
#include "zvxmllib/foundation/FormatString.h"

#include <memory>
#include <vector>

namespace {

using ClassType = CInstanceMonitor::ClassType;

// All records. Made at first use and never destroyed, since static objects are tracked too.
struct ClassList {
    CZVCriticalSection lock;
    std::vector<std::unique_ptr<ClassType>> records; // in order of first creation
    std::vector<std::unique_ptr<ClassType>> retired; // late instances still point to them

    static ClassList& Instance() {
        static ClassList* const list = new ClassList;
        return *list;
    }

    ClassType& Find(char const* className) {
        for (auto const& record : records) {
            if (record->m_className == className)
                return *record;
        }
        auto record = std::make_unique<ClassType>();
        record->m_className = className;
        records.push_back(std::move(record));
        return *records.back();
    }
};

class ListLock {
public:
    explicit ListLock(ClassList& list) : m_lock(list.lock) { m_lock.Enter(); }
    ListLock(ListLock const&) = delete;
    ListLock& operator=(ListLock const&) = delete;
    ~ListLock() { m_lock.Leave(); }

private:
    CZVCriticalSection& m_lock;
};

ClassType* FindRecord(char const* className) {
    ClassList& list = ClassList::Instance();
    ListLock const lock(list);
    return &list.Find(className);
}

} // namespace

CInstanceMonitor::ClassType* CInstanceMonitor::Registration::Find() {
    ClassType* const record = FindRecord(m_className);
    m_record.store(record, std::memory_order_release);
    return record;
}

CInstanceMonitor::CInstanceMonitor(char const* className) : m_pct(FindRecord(className)) {
    Count(*m_pct, 1);
}

CInstanceMonitor::~CInstanceMonitor() {
    ZV_ASSERT(m_pct);
    CountMany(*m_pct, 0, 1);
    ZV_ASSERT(m_pct->lInstanceCount >= 0);
}

std::string CInstanceMonitor::DumpState() {
    std::string text = "Instances of classes still in existence/Total Number of instances created\n";
    ClassList& list = ClassList::Instance();
    ListLock const lock(list);
    char const* separator = "";
    for (auto const& record : list.records) {
        std::int32_t const alive = record->lInstanceCount.load();
        text += ZvXmlLib16::FormatString("%s%s%s = %d/%d", separator, alive < 1 ? "    " : "--> ",
                                         record->m_className.c_str(), alive, record->m_totalCreated.load());
        separator = "\n";
    }
    return text;
}

void CInstanceMonitor::Cleanup() {
    ClassList& list = ClassList::Instance();
    ListLock const lock(list);
    list.retired.reserve(list.retired.size() + list.records.size());
    for (auto& record : list.records) {
        record->m_retired.store(true, std::memory_order_relaxed);
        list.retired.push_back(std::move(record));
    }
    list.records.clear();
}

namespace {

// Announces the tracking when the library is loaded, and reports when it is unloaded.
class CInstanceTracker {
public:
    CInstanceTracker() { ZvXmlLib16::DebugTrace("Starting to track Class instances\n"); }
    CInstanceTracker(CInstanceTracker const&) = delete;
    CInstanceTracker& operator=(CInstanceTracker const&) = delete;
    ~CInstanceTracker() {
        try {
            if (ZvXmlLib16::IsDebugTraceEnabled()) {
                ZvXmlLib16::DebugTrace("Dumping Class instances\n");
                ZvXmlLib16::DebugTrace("%s\n", CInstanceMonitor::DumpState().c_str());
            }
            CInstanceMonitor::Cleanup();
        } catch (...) { // no memory for the report
        }
    }
};

CInstanceTracker const tracker;

} // namespace
