// The entries of a choice: 11 classes.
#pragma once

#include "zvxmllib/binding/metadata/ElementParts.h"

namespace ZvXmlLib16Data {

// The object is in place while it is filled; a nested choice may be empty.
class ZV_API CElementInfoChoiceClsOpt : public CElementInfo {
public:
    CElementInfoChoiceClsOpt(char const* name, char const* ns, std::int32_t propertyIndex,
                             XmlElementType elementType, ClassFactory factory, int classId);
    ~CElementInfoChoiceClsOpt() override;

    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;
    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
    void PseudoChildAttributeToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;

private:
    ClassPart const m_class;
};

class ZV_API CElementInfoChoiceAbsClsOpt : public CElementInfo {
public:
    CElementInfoChoiceAbsClsOpt(char const* name, char const* ns, std::int32_t propertyIndex,
                                XmlElementType elementType, ElementFactory factory);
    ~CElementInfoChoiceAbsClsOpt() override;

    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;
    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
    void PseudoChildAttributeToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;

private:
    AbstractClassPart const m_class;
};

class ZV_API CElementInfoChoicePrimOpt : public CElementInfo {
public:
    CElementInfoChoicePrimOpt(char const* name, char const* ns, std::int32_t propertyIndex, bool nillable,
                              ItemType type, char const* formatOverride,
                              CWhitespaceUtils::WhitespaceRule rule,
                              CPrimitiveRestrictions const& restrictions, char const* defaultValue);
    ~CElementInfoChoicePrimOpt() override;

    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;
    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
};

class ZV_API CElementInfoChoiceEnumOpt : public CElementInfo {
public:
    CElementInfoChoiceEnumOpt(char const* name, char const* ns, std::int32_t propertyIndex, bool nillable,
                              EnumToString enumToString, StringToEnum stringToEnum, char const* defaultValue);
    ~CElementInfoChoiceEnumOpt() override;

    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;
    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
};

// An untyped element of this name, or a wildcard under the name "AnyElement".
class ZV_API CElementInfoChoiceUntpdOpt : public CElementInfo {
public:
    CElementInfoChoiceUntpdOpt(char const* name, char const* ns, std::int32_t propertyIndex,
                               char const* allowedNamespaces, char const* targetNamespace);
    ~CElementInfoChoiceUntpdOpt() override;

    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;
    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;

private:
    UntypedPart const m_untyped;
};

// A collection as such, and the base of the other collections.
class ZV_API CElementInfoChoiceCol : public CElementInfo {
public:
    CElementInfoChoiceCol(char const* name, char const* ns, std::int32_t propertyIndex);
    ~CElementInfoChoiceCol() override;

    bool ElementToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;
    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
};

class ZV_API CElementInfoChoiceClsCol : public CElementInfoChoiceCol {
public:
    CElementInfoChoiceClsCol(char const* name, char const* ns, std::int32_t propertyIndex,
                             XmlElementType elementType);
    ~CElementInfoChoiceClsCol() override;

    void PseudoChildAttributeToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;

private:
    XmlElementType const m_elementType;
};

class ZV_API CElementInfoChoiceAbsClsCol : public CElementInfoChoiceCol {
public:
    CElementInfoChoiceAbsClsCol(char const* name, char const* ns, std::int32_t propertyIndex,
                                XmlElementType elementType);
    ~CElementInfoChoiceAbsClsCol() override;

    void PseudoChildAttributeToXml(Ctx const& ctx, Object const* object, CXmlWriter* writer) const override;

private:
    XmlElementType const m_elementType;
};

class ZV_API CElementInfoChoicePrimCol : public CElementInfoChoiceCol {
public:
    CElementInfoChoicePrimCol(char const* name, char const* ns, std::int32_t propertyIndex);
    ~CElementInfoChoicePrimCol() override;
};

class ZV_API CElementInfoChoiceEnumCol : public CElementInfoChoiceCol {
public:
    CElementInfoChoiceEnumCol(char const* name, char const* ns, std::int32_t propertyIndex);
    ~CElementInfoChoiceEnumCol() override;
};

class ZV_API CElementInfoChoiceUntpdCol : public CElementInfoChoiceCol {
public:
    CElementInfoChoiceUntpdCol(char const* name, char const* ns, std::int32_t propertyIndex);
    ~CElementInfoChoiceUntpdCol() override;

    bool ElementFromXml(Ctx const& ctx, Object* object, CXmlElement* element, CXmlElement** current,
                        char const* ns, XmlElementType parentType) override;
};

} // namespace ZvXmlLib16Data
