// The entries of an all group: 16 classes.
#pragma once

#include "zvxmllib/binding/metadata/ElementParts.h"

namespace ZvXmlLib16Data {

// A generated class or a nested group. Its object is made by Init, so factory and class id are not used.
class ZV_API CElementInfoAllClsMnd : public CElementInfo {
public:
    CElementInfoAllClsMnd(char const* name, char const* ns, std::int32_t propertyIndex,
                          XmlElementType elementType, ClassFactory factory, int classId,
                          bool contentMandatory);
    ~CElementInfoAllClsMnd() override;

    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;
    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
    bool Validate(Ctx const& ctx, Object const* object, bool found, bool checkMandatory) const override;
    void PseudoChildAttributeToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;

private:
    ClassPart const m_class;
    bool const m_contentMandatory;
};

class ZV_API CElementInfoAllClsOpt : public CElementInfo {
public:
    CElementInfoAllClsOpt(char const* name, char const* ns, std::int32_t propertyIndex,
                          XmlElementType elementType, ClassFactory factory, int classId);
    ~CElementInfoAllClsOpt() override;

    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;
    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
    bool Validate(Ctx const& ctx, Object const* object, bool found, bool checkMandatory) const override;
    void PseudoChildAttributeToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;

private:
    ClassPart const m_class;
};

class ZV_API CElementInfoAllAbsClsMnd : public CElementInfo {
public:
    // Nothing reads `reserved`.
    CElementInfoAllAbsClsMnd(char const* name, char const* ns, std::int32_t propertyIndex,
                             XmlElementType elementType, ElementFactory factory, int reserved);
    ~CElementInfoAllAbsClsMnd() override;

    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;
    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
    bool Validate(Ctx const& ctx, Object const* object, bool found, bool checkMandatory) const override;
    void PseudoChildAttributeToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;

private:
    AbstractClassPart const m_class;
};

class ZV_API CElementInfoAllAbsClsOpt : public CElementInfo {
public:
    CElementInfoAllAbsClsOpt(char const* name, char const* ns, std::int32_t propertyIndex,
                             XmlElementType elementType, ElementFactory factory);
    ~CElementInfoAllAbsClsOpt() override;

    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;
    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
    bool Validate(Ctx const& ctx, Object const* object, bool found, bool checkMandatory) const override;
    void PseudoChildAttributeToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;

private:
    AbstractClassPart const m_class;
};

class ZV_API CElementInfoAllPrimMnd : public CElementInfo {
public:
    CElementInfoAllPrimMnd(char const* name, char const* ns, std::int32_t propertyIndex, bool nillable,
                           ItemType type, char const* formatOverride, CWhitespaceUtils::WhitespaceRule rule,
                           CPrimitiveRestrictions const& restrictions, char const* defaultValue);
    ~CElementInfoAllPrimMnd() override;

    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;
    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
    bool Validate(Ctx const& ctx, Object const* object, bool found, bool checkMandatory) const override;
};

class ZV_API CElementInfoAllPrimOpt : public CElementInfo {
public:
    CElementInfoAllPrimOpt(char const* name, char const* ns, std::int32_t propertyIndex, bool nillable,
                           ItemType type, char const* formatOverride, CWhitespaceUtils::WhitespaceRule rule,
                           CPrimitiveRestrictions const& restrictions, char const* defaultValue);
    ~CElementInfoAllPrimOpt() override;

    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;
    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
    bool Validate(Ctx const& ctx, Object const* object, bool found, bool checkMandatory) const override;
};

class ZV_API CElementInfoAllEnumMnd : public CElementInfo {
public:
    CElementInfoAllEnumMnd(char const* name, char const* ns, std::int32_t propertyIndex, bool nillable,
                           EnumToString enumToString, StringToEnum stringToEnum, char const* defaultValue);
    ~CElementInfoAllEnumMnd() override;

    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;
    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
    bool Validate(Ctx const& ctx, Object const* object, bool found, bool checkMandatory) const override;
};

class ZV_API CElementInfoAllEnumOpt : public CElementInfo {
public:
    CElementInfoAllEnumOpt(char const* name, char const* ns, std::int32_t propertyIndex, bool nillable,
                           EnumToString enumToString, StringToEnum stringToEnum, char const* defaultValue);
    ~CElementInfoAllEnumOpt() override;

    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;
    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
    bool Validate(Ctx const& ctx, Object const* object, bool found, bool checkMandatory) const override;
};

// An untyped element of this name, or a wildcard under the name "AnyElement".
class ZV_API CElementInfoAllUntpdMnd : public CElementInfo {
public:
    CElementInfoAllUntpdMnd(char const* name, char const* ns, std::int32_t propertyIndex,
                            char const* allowedNamespaces, char const* targetNamespace);
    ~CElementInfoAllUntpdMnd() override;

    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;
    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
    bool Validate(Ctx const& ctx, Object const* object, bool found, bool checkMandatory) const override;

private:
    UntypedPart const m_untyped;
};

class ZV_API CElementInfoAllUntpdOpt : public CElementInfo {
public:
    CElementInfoAllUntpdOpt(char const* name, char const* ns, std::int32_t propertyIndex,
                            char const* allowedNamespaces, char const* targetNamespace);
    ~CElementInfoAllUntpdOpt() override;

    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;
    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
    bool Validate(Ctx const& ctx, Object const* object, bool found, bool checkMandatory) const override;

private:
    UntypedPart const m_untyped;
};

// A collection as such, and the base of the other collections.
class ZV_API CElementInfoAllCol : public CElementInfo {
public:
    CElementInfoAllCol(char const* name, char const* ns, std::int32_t propertyIndex);
    ~CElementInfoAllCol() override;

    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;
    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
    bool Validate(Ctx const& ctx, Object const* object, bool found, bool checkMandatory) const override;
};

class ZV_API CElementInfoAllClsCol : public CElementInfoAllCol {
public:
    CElementInfoAllClsCol(char const* name, char const* ns, std::int32_t propertyIndex,
                          XmlElementType elementType);
    ~CElementInfoAllClsCol() override;

    void PseudoChildAttributeToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;

private:
    XmlElementType const m_elementType;
};

class ZV_API CElementInfoAllAbsClsCol : public CElementInfoAllCol {
public:
    CElementInfoAllAbsClsCol(char const* name, char const* ns, std::int32_t propertyIndex,
                             XmlElementType elementType);
    ~CElementInfoAllAbsClsCol() override;

    void PseudoChildAttributeToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;

private:
    XmlElementType const m_elementType;
};

class ZV_API CElementInfoAllPrimCol : public CElementInfoAllCol {
public:
    CElementInfoAllPrimCol(char const* name, char const* ns, std::int32_t propertyIndex);
    ~CElementInfoAllPrimCol() override;
};

// Stays abstract: no table holds one.
class ZV_API CElementInfoAllEnumCol : public CElementInfo {
public:
    ~CElementInfoAllEnumCol() override;

protected:
    CElementInfoAllEnumCol(char const* name, char const* ns, std::int32_t propertyIndex);
};

class ZV_API CElementInfoAllUntpdCol : public CElementInfoAllCol {
public:
    CElementInfoAllUntpdCol(char const* name, char const* ns, std::int32_t propertyIndex);
    ~CElementInfoAllUntpdCol() override;

    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
};

} // namespace ZvXmlLib16Data
