// CProperty, the place of a property in its object: a number for AccessProperty, or a member.
#pragma once

#include "zvxmllib/driver/MemberAccess.h"
#include "zvxmllib/foundation/Enumerations.h"
#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/platform/Api.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace ZvXmlLib16Data {

namespace detail {
class BoundProperty;
}

// How an entry of a table reaches its property. By a number the class decides what happens, in
// AccessProperty. A member is read and set in place, without a call and without a ZvVariant in between, so it
// takes what the type of the entry takes; choose a number where a setter has to look at values. A member may
// be
//   a value of the type of the entry: always there;
//   a std::optional of one: empty for no element or attribute;
//   an enumeration, or a std::optional of one, for entries of enumerations;
//   a CSmartPtr to a class or collection, null for none;
//   a ZvVariant: what it holds; for nillable entries, which take no other members.
// Init has to give members their initial state, as it does with all properties. An entry throws
// CZvInvalidParamException for a member that does not fit its type.
class ZV_API CProperty {
public:
    // As AccessProperty takes it.
    CProperty(std::int32_t index) noexcept : m_index(index) {} // NOLINT(google-explicit-constructor)

    // A member of the class of the table.
    template <class Class, class Member>
    CProperty(Member Class::*member) noexcept // NOLINT(google-explicit-constructor)
        : m_find(&Find<Class, Member>), m_access(&detail::AccessOf<Member>) {
        static_assert(
            std::is_base_of_v<ZvXmlLib16::CXmlGeneratedClass, Class>,
            "a member of a plain struct needs the member that holds the struct: CProperty(&Class::struct, "
            "&Struct::member)");
        Keep(member, 0);
    }

    // A member of a struct that the class holds.
    template <class Class, class Struct, class Owner, class Member>
    CProperty(Struct Class::*part, Member Owner::*member) noexcept
        : m_find(&FindIn<Class, Struct, Owner, Member>), m_access(&detail::AccessOf<Member>) {
        static_assert(std::is_base_of_v<ZvXmlLib16::CXmlGeneratedClass, Class>);
        static_assert(std::is_base_of_v<Owner, Struct>);
        Keep(part, 0);
        Keep(member, 1);
    }

    // The number; -1 for a member.
    std::int32_t GetIndex() const noexcept { return m_index; }
    // Whether it is a member.
    bool IsMember() const noexcept { return m_find != nullptr; }

private:
    friend class detail::BoundProperty;

    // Room for a pointer to a data member, which is one or two words in the usual ABIs.
    static constexpr std::size_t kRoom = 2 * sizeof(void*);

    template <class Pointer>
    void Keep(Pointer pointer, std::size_t place) noexcept {
        static_assert(sizeof pointer <= kRoom);
        std::memcpy(m_pointers[place], &pointer, sizeof pointer);
    }
    template <class Pointer>
    Pointer Kept(std::size_t place) const noexcept {
        Pointer pointer;
        std::memcpy(&pointer, m_pointers[place], sizeof pointer);
        return pointer;
    }
    template <class Class, class Member>
    static void* Find(CProperty const& self, ZvXmlLib16::CXmlGeneratedClass* object) noexcept {
        return &(static_cast<Class*>(object)->*self.Kept<Member Class::*>(0));
    }
    template <class Class, class Struct, class Owner, class Member>
    static void* FindIn(CProperty const& self, ZvXmlLib16::CXmlGeneratedClass* object) noexcept {
        Struct& part = static_cast<Class*>(object)->*self.Kept<Struct Class::*>(0);
        return &(part.*self.Kept<Member Owner::*>(1));
    }

    std::int32_t m_index = -1;
    void* (*m_find)(CProperty const& self, ZvXmlLib16::CXmlGeneratedClass* object) noexcept = nullptr;
    detail::MemberAccess const* (*m_access)(ZvXmlLib16::ItemType type) noexcept = nullptr;
    unsigned char m_pointers[2][kRoom] = {};
};

} // namespace ZvXmlLib16Data
