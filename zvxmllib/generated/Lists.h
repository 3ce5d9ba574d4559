// The repeated child elements of a typed object, as generated classes hand them out.
#pragma once

#include "zvxmllib/generated/TypedObject.h"

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>

namespace ZvXmlLib16::generated {

// Goes over the children of one name. Valid as long as the owner lives and does not change.
template <class List>
class ListIterator {
public:
    // As std::iterator_traits wants them.
    using iterator_category = std::input_iterator_tag;
    using value_type = typename List::Item;
    using difference_type = std::ptrdiff_t;
    using pointer = void;
    using reference = typename List::Item;

    // Stands at this index of the content.
    ListIterator(List const& list, std::size_t index) noexcept : m_list(list), m_index(index) {}
    // The item.
    reference operator*() const { return m_list.At(m_index); }
    // To the next item.
    ListIterator& operator++() {
        m_index = m_list.Next(m_index + 1);
        return *this;
    }
    // Of iterators over the same list.
    bool operator==(ListIterator const& other) const noexcept { return m_index == other.m_index; }
    bool operator!=(ListIterator const& other) const noexcept { return m_index != other.m_index; }

private:
    List m_list;
    std::size_t m_index;
};

// What both kinds of lists share. A list is a view: it holds its owner, not the items.
template <class Derived>
class ListBase {
public:
    // The children of this declaration in `owner`, which is borrowed.
    ListBase(CTypedObject& owner, std::uint32_t declaration) noexcept
        : m_owner(&owner), m_declaration(declaration) {}

    // Over the items, in document order.
    ListIterator<Derived> begin() const { return {Self(), Next(0)}; }
    ListIterator<Derived> end() const { return {Self(), m_owner->ContentNodes().size()}; }
    // Takes time in proportion to the children of the owner, as operator[] does.
    std::size_t size() const noexcept { return m_owner->Count(m_declaration); }
    bool empty() const noexcept { return m_owner->Find(m_declaration) == nullptr; }
    void clear() { m_owner->DropAll(m_declaration); }

    // The index in the content of the first item at or behind `from`; the number of nodes if there is none.
    std::size_t Next(std::size_t from) const noexcept { return m_owner->NextIndex(m_declaration, from); }

protected:
    // The index of the child. Throws CZvInvalidParamException if there are not so many.
    std::size_t IndexOf(std::size_t number) const { return m_owner->IndexOf(m_declaration, number); }

    // This list as what it is.
    Derived const& Self() const noexcept { return static_cast<Derived const&>(*this); }

    CTypedObject* m_owner;       // never null
    std::uint32_t m_declaration; // of the items
};

// Repeated children that are values. The items are copies.
template <class Codec>
class ValueList : public ListBase<ValueList<Codec>> {
public:
    // A value.
    using Item = typename Codec::Value;
    using ListBase<ValueList<Codec>>::ListBase;

    // Throws CZvInvalidParamException if there are not so many.
    Item operator[](std::size_t number) const { return At(this->IndexOf(number)); }
    // By the index in the content, as iterators know it.
    Item At(std::size_t index) const { return Codec::FromText(this->m_owner->TextAt(index)); }
    // Throws CZvInvalidValueException for a value that the schema does not allow.
    void Add(Item const& value) { this->m_owner->AppendText(this->m_declaration, Codec::ToText(value)); }
};

// Repeated children that are objects. The items belong to the owner.
template <class Object>
class ObjectList : public ListBase<ObjectList<Object>> {
public:
    // A child.
    using Item = Object&;
    using ListBase<ObjectList<Object>>::ListBase;

    // Throws CZvInvalidParamException if there are not so many.
    Object& operator[](std::size_t number) const { return At(this->IndexOf(number)); }
    // By the index in the content, as iterators know it.
    Object& At(std::size_t index) const { return static_cast<Object&>(this->m_owner->ObjectAt(index)); }
    // The list shares it. Throws CZvInvalidParamException for null, and an object that may not stand there.
    void Add(Object* object) { this->m_owner->AppendObject(this->m_declaration, object); }
    // A new one at the end.
    Object& Add() { return static_cast<Object&>(this->m_owner->AppendNew(this->m_declaration)); }
};

} // namespace ZvXmlLib16::generated
