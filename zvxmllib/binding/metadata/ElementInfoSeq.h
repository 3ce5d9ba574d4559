// The entries of a sequence: 16 classes.
#pragma once

#include "zvxmllib/binding/metadata/ElementParts.h"

namespace ZvXmlLib16Data {

// A generated class or a nested group. Its object is made by Init, so factory and class id are not used.
class ZV_API CElementInfoSeqClsMnd : public CElementInfo {
public:
    CElementInfoSeqClsMnd(char const* name, char const* ns, std::int32_t propertyIndex,
                          XmlElementType elementType, ClassFactory factory, int classId,
                          bool contentMandatory);
    ~CElementInfoSeqClsMnd() override;

    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;
    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
    void PseudoChildAttributeToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;

private:
    bool ReadOptionalGroup(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                           XmlElementType parentType) const;
    bool ReadMandatoryGroup(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                            XmlElementType parentType) const;

    ClassPart const m_class;
    bool const m_contentMandatory;
};

// The object is made by the class factory for each reading.
class ZV_API CElementInfoSeqClsOpt : public CElementInfo {
public:
    CElementInfoSeqClsOpt(char const* name, char const* ns, std::int32_t propertyIndex,
                          XmlElementType elementType, ClassFactory factory, int classId);
    ~CElementInfoSeqClsOpt() override;

    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;
    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
    void PseudoChildAttributeToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;

private:
    ClassPart const m_class;
};

// The object is what the element factory makes of the element.
class ZV_API CElementInfoSeqAbsClsMnd : public CElementInfo {
public:
    CElementInfoSeqAbsClsMnd(char const* name, char const* ns, std::int32_t propertyIndex,
                             XmlElementType elementType, ElementFactory factory);
    ~CElementInfoSeqAbsClsMnd() override;

    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;
    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
    void PseudoChildAttributeToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;

private:
    AbstractClassPart const m_class;
};

class ZV_API CElementInfoSeqAbsClsOpt : public CElementInfo {
public:
    CElementInfoSeqAbsClsOpt(char const* name, char const* ns, std::int32_t propertyIndex,
                             XmlElementType elementType, ElementFactory factory);
    ~CElementInfoSeqAbsClsOpt() override;

    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;
    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
    void PseudoChildAttributeToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;

private:
    AbstractClassPart const m_class;
};

class ZV_API CElementInfoSeqPrimMnd : public CElementInfo {
public:
    CElementInfoSeqPrimMnd(char const* name, char const* ns, std::int32_t propertyIndex, bool nillable,
                           ItemType type, char const* formatOverride, CWhitespaceUtils::WhitespaceRule rule,
                           CPrimitiveRestrictions const& restrictions, char const* defaultValue);
    ~CElementInfoSeqPrimMnd() override;

    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;
    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
};

class ZV_API CElementInfoSeqPrimOpt : public CElementInfo {
public:
    CElementInfoSeqPrimOpt(char const* name, char const* ns, std::int32_t propertyIndex, bool nillable,
                           ItemType type, char const* formatOverride, CWhitespaceUtils::WhitespaceRule rule,
                           CPrimitiveRestrictions const& restrictions, char const* defaultValue);
    ~CElementInfoSeqPrimOpt() override;

    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;
    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
};

class ZV_API CElementInfoSeqEnumMnd : public CElementInfo {
public:
    CElementInfoSeqEnumMnd(char const* name, char const* ns, std::int32_t propertyIndex, bool nillable,
                           EnumToString enumToString, StringToEnum stringToEnum, char const* defaultValue);
    ~CElementInfoSeqEnumMnd() override;

    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;
    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
};

class ZV_API CElementInfoSeqEnumOpt : public CElementInfo {
public:
    CElementInfoSeqEnumOpt(char const* name, char const* ns, std::int32_t propertyIndex, bool nillable,
                           EnumToString enumToString, StringToEnum stringToEnum, char const* defaultValue);
    ~CElementInfoSeqEnumOpt() override;

    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;
    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
};

// An untyped element of this name, or a wildcard under the name "AnyElement".
class ZV_API CElementInfoSeqUntpdMnd : public CElementInfo {
public:
    CElementInfoSeqUntpdMnd(char const* name, char const* ns, std::int32_t propertyIndex,
                            char const* allowedNamespaces, char const* targetNamespace);
    ~CElementInfoSeqUntpdMnd() override;

    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;
    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;

private:
    UntypedPart const m_untyped;
};

class ZV_API CElementInfoSeqUntpdOpt : public CElementInfo {
public:
    CElementInfoSeqUntpdOpt(char const* name, char const* ns, std::int32_t propertyIndex,
                            char const* allowedNamespaces, char const* targetNamespace);
    ~CElementInfoSeqUntpdOpt() override;

    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;
    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;

private:
    UntypedPart const m_untyped;
};

// A collection as such, and the base of the other collections.
class ZV_API CElementInfoSeqCol : public CElementInfo {
public:
    CElementInfoSeqCol(char const* name, char const* ns, std::int32_t propertyIndex);
    ~CElementInfoSeqCol() override;

    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;
    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
};

class ZV_API CElementInfoSeqClsCol : public CElementInfoSeqCol {
public:
    CElementInfoSeqClsCol(char const* name, char const* ns, std::int32_t propertyIndex,
                          XmlElementType elementType);
    ~CElementInfoSeqClsCol() override;

    void PseudoChildAttributeToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;

private:
    XmlElementType const m_elementType;
};

class ZV_API CElementInfoSeqAbsClsCol : public CElementInfoSeqCol {
public:
    CElementInfoSeqAbsClsCol(char const* name, char const* ns, std::int32_t propertyIndex,
                             XmlElementType elementType);
    ~CElementInfoSeqAbsClsCol() override;

    void PseudoChildAttributeToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;

private:
    XmlElementType const m_elementType;
};

class ZV_API CElementInfoSeqPrimCol : public CElementInfoSeqCol {
public:
    CElementInfoSeqPrimCol(char const* name, char const* ns, std::int32_t propertyIndex);
    ~CElementInfoSeqPrimCol() override;
};

class ZV_API CElementInfoSeqEnumCol : public CElementInfoSeqCol {
public:
    CElementInfoSeqEnumCol(char const* name, char const* ns, std::int32_t propertyIndex);
    ~CElementInfoSeqEnumCol() override;
};

class ZV_API CElementInfoSeqUntpdCol : public CElementInfoSeqCol {
public:
    CElementInfoSeqUntpdCol(char const* name, char const* ns, std::int32_t propertyIndex);
    ~CElementInfoSeqUntpdCol() override;

    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
};

} // namespace ZvXmlLib16Data
