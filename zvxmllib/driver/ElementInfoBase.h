// CElementInfo, the base of the entries of an element table: the data of an entry, its access to the
// property, and the steps of writing and reading that the members of the family combine.
#pragma once

#include "zvxmllib/driver/BoundProperty.h"
#include "zvxmllib/foundation/Enumerations.h"
#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/foundation/SmartPtr.h"
#include "zvxmllib/platform/Api.h"
#include "zvxmllib/values/facets/PrimitiveRestrictions.h"
#include "zvxmllib/values/text/Whitespace.h"

#include <cstdint>
#include <string>

namespace ZvXmlLib16Data {

using ZvXmlLib16::CElement;
using ZvXmlLib16::CPrimitiveRestrictions;
using ZvXmlLib16::CSerializationContext;
using ZvXmlLib16::CWhitespaceUtils;
using ZvXmlLib16::CXmlCollectionBase;
using ZvXmlLib16::CXmlElement;
using ZvXmlLib16::CXmlGeneratedClass;
using ZvXmlLib16::CXmlObjectBase;
using ZvXmlLib16::CXmlWriter;
using ZvXmlLib16::ItemType;
using ZvXmlLib16::XmlElementType;
using ZvXmlLib16::XmlElementType_Element;
using ZvXmlLib16::XmlElementType_Pseudo;
using ZvXmlLib16::ZvVariant;

namespace detail {
struct StrictValue;
}

// One child element of a generated class. Immutable, shared by all instances and threads. The order of the
// virtual operations is a contract.
class ZV_API CElementInfo {
public:
    // The first two arguments of most operations of the family.
    using Ctx = CSerializationContext;
    using Object = CXmlGeneratedClass;

    // Both kinds of factory are generated. A class factory makes an object of the class with this id, under
    // this name, and never returns null; an element factory makes one that fits the element, or returns null.
    using ClassFactory = CSmartPtr<CXmlObjectBase> (*)(int classId, char const* elementName);
    using ElementFactory = CSmartPtr<CXmlObjectBase> (*)(CXmlElement* element);
    using EnumToString = char const* (*)(int);
    using StringToEnum = int (*)(char const*);

    CElementInfo(CElementInfo const&) = delete;
    CElementInfo& operator=(CElementInfo const&) = delete;
    virtual ~CElementInfo();

    // Writes the child; returns true if something was written.
    virtual bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const = 0;
    // Offers the cursor `*current`, a child of `element` or null, to this entry, which fills `object`. True:
    // the entry is done, even if it read nothing. `ns` is the namespace of the class of this table,
    // `parentType` its element type.
    virtual bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                                char const* ns, XmlElementType parentType) = 0;
    // Called after an all group was read: `found` if this entry took something, `checkMandatory` for a real
    // element. Returns false if the group did not match.
    virtual bool Validate(Ctx const& ctx, Object const* object, bool found, bool checkMandatory) const;
    // Writes the attributes of a nested group onto the enclosing element.
    virtual void PseudoChildAttributeToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const;

    // Throws CZvInvalidValueException for a value that violates a facet, CZvException for an entry that is
    // not primitive.
    void CheckRestriction(ZvVariant const& value) const;

    // Whether this entry lets its choice be empty: always, where its collection may be, or never. A bare
    // CElementInfoChoiceCol does not.
    enum class ChoiceMember : std::uint8_t { kOther, kOptional, kCollection };
    virtual ChoiceMember GetChoiceMember() const noexcept;
    // For a strict context. Whether `element` is one of this entry by its name, of a wildcard by its
    // namespace.
    virtual bool AcceptsName(Ctx const& ctx, Object const* object, CXmlElement const* element) const;
    // Whether the entry stands for a nested group, and in `group` an object whose tables say what that knows;
    // null where nobody can tell.
    virtual bool IsNestedGroup(Object const* object, CSmartPtr<CXmlObjectBase>& group) const;
    // Whether this is a collection of nested groups.
    virtual bool HoldsGroups() const noexcept { return false; }
    // Whether the property holds something that would be written.
    bool HasContent(Object const* object) const;

    // Whether ElementFromXml looks at `ns`, which is empty where it does not.
    bool UsesClassNamespace() const noexcept { return m_usesClassNamespace; }
    // Whether ElementFromXml in a group refuses a child that it has refused before, whatever was read since.
    bool RepeatsRefusals() const noexcept { return m_repeatsRefusals; }

protected:
    // Classes, untyped elements and collections.
    CElementInfo(char const* name, char const* ns, CProperty const& property);
    // Enumerations. A null default value counts as empty, and so does a null format override below.
    CElementInfo(char const* name, char const* ns, CProperty const& property, bool nillable,
                 EnumToString enumToString, StringToEnum stringToEnum, char const* defaultValue);
    // Primitives.
    CElementInfo(char const* name, char const* ns, CProperty const& property, bool nillable, ItemType type,
                 char const* formatOverride, CWhitespaceUtils::WhitespaceRule rule,
                 CPrimitiveRestrictions const& restrictions, char const* defaultValue);

    // The local name and the namespace of the element, and the property, as AccessProperty takes it, or -1.
    std::string const& GetElementName() const noexcept { return m_name; }
    std::string const& GetElementNamespace() const noexcept { return m_namespace; }
    int GetPropertyIndex() const noexcept { return m_property.GetIndex(); }

    // Whether name and namespace of `element`, which may be null, are those of the entry, by the rules of the
    // context.
    bool IsThisElement(Ctx const& ctx, CXmlElement const* element) const;

    // Access to the property. Exceptions of its class are wrapped in CZvValidationException.
    void InvokePropertyGet(Object* object, ZvVariant& value) const;
    void InvokePropertySet(Object* object, ZvVariant& value, CXmlElement const& element) const;
    void ReadProperty(Object const* object, ZvVariant& value) const;
    // The object of the property, null for none.
    CSmartPtr<CXmlObjectBase> GetObjectProperty(Object const* object) const;
    // Its collection. Throws CZvException for none.
    CSmartPtr<CXmlCollectionBase> GetCollectionProperty(Object const* object) const;
    void SetObjectProperty(Object* object, CXmlObjectBase* value, CXmlElement const& element) const;

    // Writing.
    bool ElementToXmlCls(Ctx const& ctx, Object const* object, CXmlWriter* writer, bool optionalChoice) const;
    bool ElementToXmlCol(Ctx const& ctx, Object const* object, CXmlWriter* writer) const;
    bool ElementToXmlColOfValidCount(Ctx const& ctx, Object const* object, CXmlWriter* writer) const;
    bool ElementToXmlEnum(Ctx const& ctx, Object const* object, CXmlWriter* writer,
                          EnumToString enumToString) const;
    bool ElementToXmlPrim(Ctx const& ctx, Object const* object, CXmlWriter* writer) const;
    // Calls `write`; what it writes as children of the open element says its type, in a strict context.
    template <class Write>
    static bool WithTypes(Ctx const& ctx, CXmlWriter* writer, Write write) {
        SetTypesWanted(ctx, writer, true);
        bool const isWritten = write();
        SetTypesWanted(ctx, writer, false);
        return isWritten;
    }
    static void SetTypesWanted(Ctx const& ctx, CXmlWriter* writer, bool wanted);
    // Returns true, or throws CZvInvalidParamException for a mandatory element that was not written.
    bool Mandatory(bool written) const;
    void ObjectAttributesToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer,
                               XmlElementType elementType) const;
    void CollectionAttributesToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer,
                                   XmlElementType elementType) const;

    // Reading. The first two take the element under the cursor, which IsThisElement has accepted, and
    // move the cursor behind it.
    void ElementFromXmlPrim(Ctx const& ctx, Object* object, CXmlElement** current) const;
    void ElementFromXmlEnum(Ctx const& ctx, Object* object, CXmlElement** current) const;
    // The element under the cursor as a whole, into `child`.
    void ReadRealChild(Ctx const& ctx, CXmlObjectBase* child, CXmlElement** current,
                       bool optionalChoice) const;
    // Children of `element` from the cursor on; true if the cursor moved.
    bool ReadGroup(Ctx const& ctx, CXmlObjectBase* child, CXmlElement* element, CXmlElement** current) const;
    // For a mandatory child of a sequence that stands for a real element: true when the cursor is on the
    // child, after skipping unknown elements where the context allows that; false when it lets the child be
    // absent. Throws CZvValidationException otherwise.
    bool FindMandatory(Ctx const& ctx, CXmlElement* element, CXmlElement** current) const;

    // Wildcards and untyped elements. The name of a wildcard is no test; of others the namespace is one in a
    // strict context only.
    bool IsWildcard() const noexcept { return m_isWildcard; }
    bool PassesNameTest(Ctx const& ctx, CXmlElement const* element) const;
    CSmartPtr<CElement> NewUntyped(char const* ns, std::string const& allowedNamespaces,
                                   std::string const& targetNamespace) const;
    static std::string GetAnyDefaultNamespace(char const* allowed, char const* ns, char const* target);

    // Collections. Return the next cursor; with `isUntyped` a fixed name is locked. In a group a strict
    // context ends collections of values at their greatest number.
    CXmlElement* ReadCollection(Ctx const& ctx, CXmlCollectionBase& collection, CXmlElement* element,
                                CXmlElement* current, bool isUntyped, bool isInGroup) const;
    bool SeqCollectionFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                              XmlElementType parentType, bool isUntyped) const;
    bool ChoiceCollectionFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                                 XmlElementType parentType, bool isUntyped) const;
    bool AllCollectionFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                              bool isUntyped) const;

    // A new item of the collection, whose items are groups, null if it makes none. True.
    bool MakeItemOfGroup(Object const* object, CSmartPtr<CXmlObjectBase>& group) const;

    // The outcome of an all group for a mandatory entry.
    bool ValidateMandatory(bool found, bool checkMandatory) const;

    // Access to protected operations of bound objects, with a level of nesting counted.
    CXmlElement* FromXml_Int(CXmlObjectBase* object, CXmlElement* element, CXmlElement* current,
                             Ctx const& ctx, bool optionalChoice) const;
    void AttributesToXml_Int(CXmlObjectBase const* object, CXmlWriter* writer, Ctx const& ctx) const;

    // Whether the entry was made by the constructor of primitive types.
    bool IsPrimitive() const noexcept { return m_hasRestrictions; }

    bool m_usesClassNamespace = true; // the library's own entries that need no namespace save the call
    bool m_repeatsRefusals = false;   // see RepeatsRefusals
    EnumToString const m_enumToString = nullptr; // null but for enumerations

private:
    friend class ZvXmlLib16::CXmlGeneratedClass; // the driver

    bool ReadNilAttribute(Ctx const& ctx, CXmlElement& element) const;
    detail::StrictValue AsStrictValue() const noexcept;
    template <class Parse>
    void ReadValue(Ctx const& ctx, Object* object, CXmlElement** current, ItemType type, Parse parse) const;
    template <class Parse>
    void ReadValueOf(Ctx const& ctx, Object* object, CXmlElement& element, ItemType type, Parse parse) const;
    bool HoldsValueInMember(Ctx const& ctx) const noexcept;
    void ReadMember(Ctx const& ctx, Object* object, CXmlElement& element) const;
    bool WriteMember(Object const* object, CXmlWriter* writer) const;
    template <class ToText>
    bool WriteProperty(Ctx const& ctx, Object const* object, CXmlWriter* writer, ToText toText) const;
    void WriteText(CXmlWriter* writer, std::string const& text, ItemType type, bool isDefault) const;

    std::string const m_name;
    std::string const m_namespace;
    detail::BoundProperty const m_property;
    CPrimitiveRestrictions const m_restrictions;
    ItemType const m_itemType = ZvXmlLib16::ItemType_invalid;
    std::string const m_formatOverride;
    CWhitespaceUtils::WhitespaceRule const m_whitespaceRule = CWhitespaceUtils::WhitespaceRule_None;
    std::string const m_defaultValue;
    bool const m_nillable = false;
    StringToEnum const m_stringToEnum = nullptr;
    bool const m_hasRestrictions = false; // built by the primitive constructor
    bool const m_needsCheck = false;      // values are tested on writing
    bool const m_isWildcard;
};

} // namespace ZvXmlLib16Data
