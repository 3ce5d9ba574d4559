// CXmlGeneratedClass, the base of generated classes and the driver over their tables.
#pragma once

#include "zvxmllib/binding/XmlObjectBase.h"
#include "zvxmllib/driver/Nillable.h"
#include "zvxmllib/foundation/CriticalSection.h"

namespace ZvXmlLib16 {

// A generated class fills GetBase, GetTargetNamespace, GetNamespace and the five slots below; all writing,
// reading and validation is done here, by walking the tables. The tables are static, the same for every
// instance, built at first use under m_csInit, and read by any number of threads.
class ZV_API CXmlGeneratedClass : public CXmlObjectBase {
protected:
    ~CXmlGeneratedClass() override;
    void AttributesToXml_Int(CXmlWriter* writer, CSerializationContext const& ctx) const override;
    void ToXml_Int(CXmlWriter* writer, bool isRoot, char const* ns, CSerializationContext const& ctx,
                   bool optionalChoice) const override;
    CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* current, CSerializationContext const& ctx,
                             bool optionalChoice) override;

public:
    // The gate to the properties that the tables name by a number: with `read` it stores the property in
    // `value`, invalid if it holds nothing; otherwise it sets the property, and may move a string or bytes
    // out of `value`. It refuses values by CZvException. A class whose tables name members alone leaves it as
    // it is; it then throws CZvInvalidParamException.
    virtual void AccessProperty(int index, bool read, ZvVariant& value);
    // Never null.
    virtual ZvXmlLib16Data::CParentElementInfo* GetClassInfo() = 0;
    // The child elements in schema order, and the attributes, each closed by a null entry.
    virtual ZvXmlLib16Data::CElementInfo** GetClassElementInfo() = 0;
    virtual ZvXmlLib16Data::CAttributeInfo** GetClassAttributeInfo() = 0;
    // Called at the start of each read: optional properties empty, collections present and empty, mandatory
    // class properties holding a fresh object.
    virtual void Init() = 0;

protected:
    CXmlGeneratedClass();
    CXmlGeneratedClass(CXmlGeneratedClass const&) = default;
    CXmlGeneratedClass& operator=(CXmlGeneratedClass const&) = default;

    // Stores a property in `value`; invalid if it holds nothing.
    void ReadProperty(int index, ZvVariant& value) const;
    // Whether a choice may be empty: it has an optional entry, or a collection that may be empty.
    bool DoesElementContainOptionalElements() const;
    // Whether an entry of the element table accepts `element`.
    bool IsElementInList(CSerializationContext const& ctx, CXmlElement* element) const;
    // Offers the attributes of `element` to the attribute table, then tests for those that are required.
    void ProcessAttributesFromXml(CSerializationContext const& ctx, CXmlElement* element, bool failIfUnknown);
    // Deletes tables built on the heap and sets the three to null. Each may be null already.
    static void CleanMetaData(ZvXmlLib16Data::CParentElementInfo*& info,
                              ZvXmlLib16Data::CElementInfo**& elements,
                              ZvXmlLib16Data::CAttributeInfo**& attributes);

    // Generated code builds its tables under this lock. The library does not take it.
    static CZVCriticalSection m_csInit;

private:
    struct Reading; // one walk over the children of an element

    CXmlGeneratedClass& Mutable() const { return const_cast<CXmlGeneratedClass&>(*this); }
    INillable* FindNillable(ZvXmlLib16Data::CParentElementInfo const& info) const;

    void WriteContent(CXmlWriter& writer, CSerializationContext const& ctx, bool optionalChoice,
                      ZvXmlLib16Data::CParentElementInfo const& info) const;
    void ProcessAttributesToXml(CSerializationContext const& ctx, ZvXmlLib16Data::CElementInfo** elements,
                                ZvXmlLib16Data::CAttributeInfo** attributes, CXmlWriter* writer) const;
    void ProcessElementSeqToXml(CSerializationContext const& ctx, ZvXmlLib16Data::CElementInfo** elements,
                                CXmlWriter* writer) const;
    void ProcessElementChoiceToXml(CSerializationContext const& ctx, ZvXmlLib16Data::CElementInfo** elements,
                                   CXmlWriter* writer, bool optionalChoice) const;
    void ProcessElementAllToXml(CSerializationContext const& ctx, ZvXmlLib16Data::CElementInfo** elements,
                                CXmlWriter* writer) const;

    CXmlElement* ReadContent(CXmlElement* element, CXmlElement* current, CSerializationContext const& ctx,
                             bool optionalChoice, ZvXmlLib16Data::CParentElementInfo const& info);
    void ReadSimpleContent(CSerializationContext const& ctx, CXmlElement const& element,
                           ZvXmlLib16Data::CParentElementInfo const& info);
    void WriteSimpleContent(CXmlWriter& writer, CSerializationContext const& ctx,
                            ZvXmlLib16Data::CParentElementInfo const& info) const;
    void ReadNilAttribute(CSerializationContext const& ctx, CXmlElement const& element,
                          CXmlAttribute const& attribute);
    CXmlElement* ReadStrictly(CXmlElement* element, CXmlElement* current, CSerializationContext const& ctx,
                              bool optionalChoice, ZvXmlLib16Data::CParentElementInfo const& info);
    CXmlElement* ReadGroupStrictly(CXmlElement* element, CXmlElement* current,
                                   CSerializationContext const& ctx, bool optionalChoice,
                                   ZvXmlLib16Data::CParentElementInfo const& info);
    void CheckOneChoice() const;
    CXmlElement* ProcessElementSeqFromXml(CSerializationContext const& ctx, CXmlElement* element,
                                          CXmlElement* current, XmlElementType elementType);
    CXmlElement* ProcessElementChoiceFromXml(CSerializationContext const& ctx, CXmlElement* element,
                                             CXmlElement* current, XmlElementType elementType,
                                             bool optionalChoice);
    CXmlElement* ProcessElementAllFromXml(CSerializationContext const& ctx, CXmlElement* element,
                                          CXmlElement* current, XmlElementType elementType);
    int GetClassElementInfoCount() const;
};

} // namespace ZvXmlLib16
