// CSmartPtr, the counted pointer through which all bound objects are held.
#pragma once

#include "zvxmllib/foundation/Assert.h"

// Holds exactly one reference to its target, which may be null. T has AddRef() and Release(). Several smart
// pointers to one object may live on several threads; one smart pointer belongs to one thread.
template <class T>
class CSmartPtr {
public:
    CSmartPtr() noexcept = default;
    // Adds a reference to the target.
    CSmartPtr(T* target) : p(target) {
        if (p != nullptr)
            p->AddRef();
    }
    CSmartPtr(CSmartPtr const& other) : CSmartPtr(other.p) {}
    CSmartPtr(CSmartPtr&& other) noexcept : p(other.p) { other.p = nullptr; }
    ~CSmartPtr() {
        if (p != nullptr)
            p->Release();
    }

    // Takes the new reference before it drops the old one, so self-assignment is safe, and so is assigning an
    // object that only the old target keeps alive.
    CSmartPtr& operator=(T* target) {
        if (target != nullptr)
            target->AddRef();
        T* const old = p;
        p = target;
        if (old != nullptr)
            old->Release();
        return *this;
    }
    CSmartPtr& operator=(CSmartPtr const& other) { return *this = other.p; }
    CSmartPtr& operator=(CSmartPtr&& other) noexcept {
        T* const old = p;
        p = other.p;
        if (this != &other) {
            other.p = nullptr;
            if (old != nullptr)
                old->Release();
        }
        return *this;
    }

    // The target, which may not be null.
    T* operator->() const {
        ZV_ASSERT(p != 0); // NOLINT(modernize-use-nullptr): the assertion's text
        return p;
    }
    // The target, which may not be null.
    T& operator*() const {
        ZV_ASSERT(p != 0); // NOLINT(modernize-use-nullptr): the assertion's text
        return *p;
    }
    // The target, null included.
    operator T*() const noexcept { return p; }

private:
    T* p = nullptr; // its name is part of the assertion's text
};

namespace ZvXmlLib16 {
using ::CSmartPtr;
}
