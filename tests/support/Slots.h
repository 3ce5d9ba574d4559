// The place of a virtual operation in its class, for tests of the order that generated code relies on.
#pragma once

#include <cstddef>
#include <cstring>

// As the Itanium C++ ABI lays pointers to virtual members out: the offset of the slot in the first word plus
// 1, or, where the lowest bit of an address may be set, the offset itself and the mark in the second word.
template <class Member>
std::size_t SlotOf(Member member) {
    std::size_t words[2];
    static_assert(sizeof words == sizeof member);
    std::memcpy(words, &member, sizeof words);
    bool const isMarkedInSecond = (words[1] & 1) != 0;
    return (isMarkedInSecond ? words[0] : words[0] - 1) / sizeof(void*);
}
