// Finds the code that a virtual call reaches.
#pragma once

#include <cstddef>
#include <cstring>

namespace ZvXmlLib16::platform {

// The address of the code that a call of the virtual `member` on `object` reaches; null where that cannot be
// found out. Reads the virtual table as the Itanium C++ ABI lays it out (2.3 and 2.5.2), on the one
// architecture supported here. The virtual table pointer of Class must come first, as it does if its first
// base class is polymorphic.
template <class Class, class Function>
void const* CodeBehind([[maybe_unused]] Class const& object,
                       [[maybe_unused]] Function Class::*member) noexcept {
#if defined(__GXX_ABI_VERSION) && defined(__x86_64__) && defined(__linux__)
    struct {
        std::ptrdiff_t place; // of a virtual function: one more than its offset in the table
        std::ptrdiff_t adjustment;
    } pointer;
    static_assert(sizeof pointer == sizeof member);
    std::memcpy(&pointer, &member, sizeof pointer);
    if (pointer.place % 2 == 0 || pointer.adjustment != 0)
        return nullptr;
    char const* table;
    std::memcpy(&table, static_cast<void const*>(&object), sizeof table);
    void const* code;
    std::memcpy(&code, table + pointer.place - 1, sizeof code);
    return code;
#else
    return nullptr;
#endif
}

} // namespace ZvXmlLib16::platform
