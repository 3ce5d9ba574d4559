// Generated from an XML schema by zvxml-gen. Changes are lost.
#pragma once

#include "golden-fwd.h"

#include <zvxmllib/ZvXmlLib.h>
#include <zvxmllib/generated/Generated.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace golden {
namespace zv = ::ZvXmlLib16;
namespace gen = ::ZvXmlLib16::generated;

// What the objects are bound to.
::ZvXmlLib16::generated::BoundSchema const& goldenSchema();

// Tells rows apart, for sets that build on these.
constexpr std::uint32_t goldenRows = 0x40DAC6E8U;

// enumeration Colour (golden.xsd:2)
enum class Colour {
    Red, // "red"
    DarkRed // "dark red"
};
// Its texts, in the same order.
struct ColourTraits {
    using Value = Colour;
    static gen::EnumTexts Texts() noexcept;
};

// type or element Base (golden.xsd:3)
class CBase : public gen::CTypedObject {
public:
    using gen::CTypedObject::CTypedObject;

    // attribute id (golden.xsd:3)
    std::string GetId() const { return AttributeOf(0); }
    void SetId(std::string const& value) { PutAttribute(0, value); }
    bool IsIdValid() const noexcept { return FindAttribute(0) != nullptr; }
    void RemoveId() { DropAttribute(0); }
};

// type or element Plain (golden.xsd:4)
class CPlain : public CBase {
public:
    CPlain();
    using CBase::CBase;
};

// type or element Amount (golden.xsd:5)
class CAmount : public gen::CTypedObject {
public:
    CAmount();
    using gen::CTypedObject::CTypedObject;

    // attribute unit: one of "red", "dark red", "red" by default (golden.xsd:5)
    Colour GetUnit() const { return gen::EnumCodec<ColourTraits>::FromText(AttributeOf(2)); }
    void SetUnit(Colour value) { PutAttribute(2, gen::EnumCodec<ColourTraits>::ToText(value)); }
    bool IsUnitValid() const noexcept { return FindAttribute(2) != nullptr; }
    void RemoveUnit() { DropAttribute(2); }

    // content (golden.xsd:5)
    zv::CDecimal GetValue() const { return gen::Codec<zv::ItemType_decimal>::FromText(ContentText()); }
    void SetValue(zv::CDecimal const& value) { PutContentText(gen::Codec<zv::ItemType_decimal>::ToText(value)); }
};

// type or element Text (golden.xsd:6)
class CText : public gen::CTypedObject {
public:
    CText();
    using gen::CTypedObject::CTypedObject;

    // element b (golden.xsd:6)
    gen::ValueList<gen::Codec<zv::ItemType_string>> GetB() const {
        return {const_cast<CText&>(*this), 3};
    }

    // text of mixed content (golden.xsd:6)
    std::string GetText() const { return ContentText(); }
    void SetText(std::string const& value) { PutContentText(value); }
};

// type or element order (golden.xsd:11)
class COrder : public gen::CTypedObject {
public:
    COrder();
    using gen::CTypedObject::CTypedObject;

    // element number (golden.xsd:13)
    std::int32_t GetNumber() const { return gen::Codec<zv::ItemType_i4>::FromText(TextOf(4)); }
    void SetNumber(std::int32_t value) { PutText(4, gen::Codec<zv::ItemType_i4>::ToText(value)); }
    bool IsNumberValid() const noexcept { return Find(4) != nullptr; }
    void RemoveNumber() { DropAll(4); }

    // element due (golden.xsd:14)
    zv::CDateTime GetDue() const { return gen::Codec<zv::ItemType_date>::FromText(TextOf(5)); }
    void SetDue(zv::CDateTime const& value) { PutText(5, gen::Codec<zv::ItemType_date>::ToText(value)); }
    bool IsDueValid() const noexcept { return Find(5) != nullptr; }
    void RemoveDue() { DropAll(5); }
    bool IsDueNil() const noexcept { return IsNilAt(5); }
    void SetDueNil() { PutNil(5); }

    // element tag: at most 8 characters (golden.xsd:15)
    gen::ValueList<gen::Codec<zv::ItemType_string>> GetTag() const {
        return {const_cast<COrder&>(*this), 6};
    }

    // element item (golden.xsd:7)
    gen::ObjectList<CBase> GetItem() const {
        return {const_cast<COrder&>(*this), 0};
    }

    // element total (golden.xsd:17)
    // Made where there is none; the const one throws CZvInvalidStateException.
    CAmount& GetTotal();
    CAmount const& GetTotal() const;
    void SetTotal(CAmount* value);
    bool IsTotalValid() const noexcept { return Find(7) != nullptr; }
    void RemoveTotal() { DropAll(7); }

    // element note (golden.xsd:17)
    // Made where there is none; the const one throws CZvInvalidStateException.
    CText& GetNote();
    CText const& GetNote() const;
    void SetNote(CText* value);
    bool IsNoteValid() const noexcept { return Find(8) != nullptr; }
    void RemoveNote() { DropAll(8); }

    // attribute colours: list of int (golden.xsd:20)
    std::vector<std::int32_t> GetColours() const { return gen::ListCodec<zv::ItemType_i4>::FromText(AttributeOf(3)); }
    void SetColours(std::vector<std::int32_t> const& value) { PutAttribute(3, gen::ListCodec<zv::ItemType_i4>::ToText(value)); }
    bool IsColoursValid() const noexcept { return FindAttribute(3) != nullptr; }
    void RemoveColours() { DropAttribute(3); }
};

inline CAmount& COrder::GetTotal() {
    return static_cast<CAmount&>(Obtain(7));
}
inline CAmount const& COrder::GetTotal() const {
    return static_cast<CAmount const&>(Require(7));
}
inline void COrder::SetTotal(CAmount* value) {
    PutObject(7, value);
}
inline CText& COrder::GetNote() {
    return static_cast<CText&>(Obtain(8));
}
inline CText const& COrder::GetNote() const {
    return static_cast<CText const&>(Require(8));
}
inline void COrder::SetNote(CText* value) {
    PutObject(8, value);
}

// documents with the root element plain (golden.xsd:8)
// An empty one.
inline zv::CSmartPtr<CPlain> NewPlain() {
    return gen::As<CPlain>(gen::NewObject(::golden::goldenSchema(), 1));
}
inline zv::CSmartPtr<CPlain> ReadPlain(std::string const& file,
    zv::CSerializationContext const& ctx = gen::StrictContext()) {
    return gen::As<CPlain>(gen::ReadFile(::golden::goldenSchema(), 1, file, ctx));
}
inline zv::CSmartPtr<CPlain> ReadPlain(unsigned char const* bytes, std::size_t length,
    zv::CSerializationContext const& ctx = gen::StrictContext()) {
    return gen::As<CPlain>(gen::ReadBytes(::golden::goldenSchema(), 1, bytes, length, ctx));
}
inline zv::CSmartPtr<CPlain> ReadPlainXml(std::string const& text,
    zv::CSerializationContext const& ctx = gen::StrictContext()) {
    return gen::As<CPlain>(gen::ReadXmlText(::golden::goldenSchema(), 1, text, ctx));
}
inline zv::CSmartPtr<CPlain> ReadPlainJson(std::string const& text,
    zv::CSerializationContext const& ctx = gen::StrictContext()) {
    return gen::As<CPlain>(gen::ReadJsonText(::golden::goldenSchema(), 1, text, ctx));
}
inline void WritePlain(CPlain const& object, std::string const& file,
    zv::CSerializationContext const& ctx = gen::StrictContext()) {
    gen::WriteFile(object, 1, file, ctx);
}
inline std::string WritePlainXml(CPlain const& object,
    zv::CSerializationContext const& ctx = gen::StrictContext()) {
    return gen::WriteXmlText(object, 1, ctx);
}
inline std::string WritePlainJson(CPlain const& object,
    zv::CSerializationContext const& ctx = gen::StrictContext()) {
    return gen::WriteJsonText(object, 1, ctx);
}
inline zv::CBinaryData WritePlainFastInfoset(CPlain const& object,
    zv::CSerializationContext const& ctx = gen::StrictContext()) {
    return gen::WriteFastInfoset(object, 1, ctx);
}

// What somebody wants.
// documents with the root element order (golden.xsd:9)
// An empty one.
inline zv::CSmartPtr<COrder> NewOrder() {
    return gen::As<COrder>(gen::NewObject(::golden::goldenSchema(), 2));
}
inline zv::CSmartPtr<COrder> ReadOrder(std::string const& file,
    zv::CSerializationContext const& ctx = gen::StrictContext()) {
    return gen::As<COrder>(gen::ReadFile(::golden::goldenSchema(), 2, file, ctx));
}
inline zv::CSmartPtr<COrder> ReadOrder(unsigned char const* bytes, std::size_t length,
    zv::CSerializationContext const& ctx = gen::StrictContext()) {
    return gen::As<COrder>(gen::ReadBytes(::golden::goldenSchema(), 2, bytes, length, ctx));
}
inline zv::CSmartPtr<COrder> ReadOrderXml(std::string const& text,
    zv::CSerializationContext const& ctx = gen::StrictContext()) {
    return gen::As<COrder>(gen::ReadXmlText(::golden::goldenSchema(), 2, text, ctx));
}
inline zv::CSmartPtr<COrder> ReadOrderJson(std::string const& text,
    zv::CSerializationContext const& ctx = gen::StrictContext()) {
    return gen::As<COrder>(gen::ReadJsonText(::golden::goldenSchema(), 2, text, ctx));
}
inline void WriteOrder(COrder const& object, std::string const& file,
    zv::CSerializationContext const& ctx = gen::StrictContext()) {
    gen::WriteFile(object, 2, file, ctx);
}
inline std::string WriteOrderXml(COrder const& object,
    zv::CSerializationContext const& ctx = gen::StrictContext()) {
    return gen::WriteXmlText(object, 2, ctx);
}
inline std::string WriteOrderJson(COrder const& object,
    zv::CSerializationContext const& ctx = gen::StrictContext()) {
    return gen::WriteJsonText(object, 2, ctx);
}
inline zv::CBinaryData WriteOrderFastInfoset(COrder const& object,
    zv::CSerializationContext const& ctx = gen::StrictContext()) {
    return gen::WriteFastInfoset(object, 2, ctx);
}

} // namespace golden

