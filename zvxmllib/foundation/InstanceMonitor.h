// CInstanceMonitor, live and total instances by class name.
#pragma once

#include "zvxmllib/platform/Api.h"

#include <atomic>
#include <cstdint>
#include <string>

// Base of the classes whose instances are counted by name, so that a leak shows. Counting is thread-safe and
// takes no lock: the record of a class is looked up once, and its counters are atomic.
class ZV_API CInstanceMonitor {
public:
    // The record of one class name. Records are never freed, so an instance that outlives Cleanup can still
    // use its own.
    struct ClassType {
        std::string m_className;                     // as DumpState shows it
        std::atomic<std::int32_t> lInstanceCount{0}; // alive now
        std::atomic<std::int32_t> m_totalCreated{0}; // alive or not
        std::atomic<bool> m_retired{false};          // taken out by Cleanup
    };

    // The record of one class, found at first use and again after Cleanup. One static object for each
    // tracked class; constant-initialised, so it is ready before any other static object.
    class ZV_API Registration {
    public:
        // `className` must live as long as the process: a literal.
        constexpr explicit Registration(char const* className) noexcept : m_className(className) {}

        // The record of the class.
        ClassType* Record() {
            ClassType* const record = m_record.load(std::memory_order_acquire);
            if (record != nullptr && !record->m_retired.load(std::memory_order_relaxed))
                return record;
            return Find();
        }

    private:
        ClassType* Find();

        char const* m_className;
        std::atomic<ClassType*> m_record{nullptr};
    };

    // Counts one more instance of the class of this name. Looks the name up; the library's own classes
    // use a Registration.
    explicit CInstanceMonitor(char const* className);
    explicit CInstanceMonitor(Registration& registration) : m_pct(registration.Record()) { Count(*m_pct, 1); }
    // A copy is one more instance.
    CInstanceMonitor(CInstanceMonitor const& other) : m_pct(other.m_pct) { Count(*m_pct, 1); }
    // The number of instances stays the same.
    CInstanceMonitor& operator=(CInstanceMonitor const&) noexcept { return *this; }
    virtual ~CInstanceMonitor();

    // A header and a line for each class in order of first creation: "    name = live/total", with "--> " in
    // place of the blanks while instances are alive. No line feed at the end.
    static std::string DumpState();

    // Forgets all classes. Call it when no tracked object is in use; objects destroyed later are harmless.
    static void Cleanup();

protected:
    // For objects whose owner counts them in bulk by CountMany: counts nothing. Such an object is never
    // copied or destroyed on its own, so it needs no record, and keeps a pointer of its class in the place.
    struct CountedByOwner {
        void const* kept;
    };
    explicit CInstanceMonitor(CountedByOwner owner) noexcept : m_kept(owner.kept) {}
    void const* GetKept() const noexcept { return m_kept; }

    // Counts `created` new and `ended` ended instances at once.
    static void CountMany(ClassType& record, std::int32_t created, std::int32_t ended) noexcept {
        if (created != ended)
            record.lInstanceCount.fetch_add(created - ended, std::memory_order_relaxed);
        if (created != 0)
            record.m_totalCreated.fetch_add(created, std::memory_order_relaxed);
    }

private:
    static void Count(ClassType& record, std::int32_t created) noexcept { CountMany(record, created, 0); }

    union {
        ClassType* m_pct;
        void const* m_kept; // of an object that its owner counts
    };
};

namespace ZvXmlLib16 {
using ::CInstanceMonitor;
}
