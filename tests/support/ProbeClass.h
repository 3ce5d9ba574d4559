// A bound class whose tables are given at run time, so that each test describes its own content model.
#pragma once

#include "zvxmllib/collections/Element.h"
#include "zvxmllib/collections/XmlCollection.h"
#include "zvxmllib/document/XmlElement.h"
#include "zvxmllib/driver/ElementInfo.h"
#include "zvxmllib/driver/XmlGeneratedClass.h"
#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/values/variant/ZvVariant.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

class Probe;

// What a generated class has as static tables.
struct Model {
    ZvXmlLib16::XmlElementGroupType group = ZvXmlLib16::XmlElementGroupType_Sequence;
    ZvXmlLib16::XmlElementType type = ZvXmlLib16::XmlElementType_Element;
    std::vector<ZvXmlLib16Data::CElementInfo*> elements;
    std::vector<ZvXmlLib16Data::CAttributeInfo*> attributes;
    std::string name = "order";
    std::string ns;
    bool failsForUnknownAttributes = true;
    bool hasBaseClasses = false;
    int contentIndex = -1;
    ZvXmlLib16::ItemType contentType = ZvXmlLib16::ItemType_invalid;
    bool contentAsText = false;
    std::function<void(Probe&)> init; // fills the properties that a fresh object has
    std::unique_ptr<ZvXmlLib16Data::CParentElementInfo> info;

    Model() = default;
    Model(Model const&) = delete;
    Model& operator=(Model const&) = delete;
    ~Model() {
        for (auto* entry : elements)
            delete entry;
        for (auto* entry : attributes)
            delete entry;
    }

    // Closes the tables; to be called once they are filled.
    Model& Finish() {
        elements.push_back(nullptr);
        attributes.push_back(nullptr);
        info = std::make_unique<ZvXmlLib16Data::CParentElementInfo>(
            group, type, name.c_str(), ns.c_str(), failsForUnknownAttributes, hasBaseClasses, contentIndex,
            contentType, nullptr, contentAsText);
        return *this;
    }
};

class Probe : public ZvXmlLib16::CXmlGeneratedClass {
public:
    static constexpr int kProperties = 12;

    explicit Probe(Model& model) : m_model(model) {
        SetElementName(model.name.c_str());
        Fill();
    }

    using CXmlGeneratedClass::CleanMetaData;
    using CXmlGeneratedClass::DoesElementContainOptionalElements;
    using CXmlGeneratedClass::FromXml_Int;
    using CXmlGeneratedClass::IsElementInList;
    using CXmlGeneratedClass::ToXml_Int;
    using CXmlObjectBase::GetBase;
    using CXmlObjectBase::SetElementName;

    ZvXmlLib16::CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() override { return m_model.ns; }
    std::string GetTargetNamespace() override { return m_model.ns; }
    ZvXmlLib16Data::CParentElementInfo* GetClassInfo() override { return m_model.info.get(); }
    ZvXmlLib16Data::CElementInfo** GetClassElementInfo() override { return m_model.elements.data(); }
    ZvXmlLib16Data::CAttributeInfo** GetClassAttributeInfo() override { return m_model.attributes.data(); }

    void AccessProperty(int index, bool read, ZvXmlLib16::ZvVariant& value) override {
        if (index == refused)
            throw ZvXmlLib16::CZvInvalidParamException("The property refuses");
        ZvXmlLib16::ZvVariant& property = properties[static_cast<std::size_t>(index)];
        if (read)
            value = property;
        else
            property = value;
    }
    void Init() override {
        for (ZvXmlLib16::ZvVariant& property : properties)
            property.SetInvalid();
        Fill();
    }

    Probe* ObjectAt(int index) {
        return dynamic_cast<Probe*>(properties[static_cast<std::size_t>(index)].FindXmlObject());
    }

    std::vector<ZvXmlLib16::ZvVariant> properties{kProperties};
    int refused = -1; // the property that no access is allowed to

protected:
    ~Probe() override = default;

private:
    void Fill() {
        if (m_model.init)
            m_model.init(*this);
    }

    Model& m_model;
};

class NillableProbe : public Probe, public ZvXmlLib16::INillable {
public:
    using Probe::Probe;
    bool GetIsNil() override { return m_isNil; }
    void SetIsNil(bool isNil) override { m_isNil = isNil; }

private:
    bool m_isNil = false;
};

// A repeating element of one class.
class ProbeCol : public ZvXmlLib16::CXmlCollection {
public:
    ProbeCol(Model& model, int minOccurs, int maxOccurs)
        : CXmlCollection(model.name.c_str(), model.ns.c_str(), minOccurs, maxOccurs), m_model(model) {}

    using CXmlObjectBase::GetBase;
    CXmlObjectBase* GetBase() override { return this; }

    Probe* Add() {
        CSmartPtr<Probe> const item(new Probe(m_model));
        AppendItem(item);
        return item;
    }
    Probe* Item(int index) {
        return static_cast<Probe*>(static_cast<CXmlObjectBase*>(GetNodeAtIndex(index)->m_item));
    }

protected:
    ~ProbeCol() override { Clear(); }

    void ToXml_Int(ZvXmlLib16::CXmlWriter* writer, bool, char const* ns,
                   ZvXmlLib16::CSerializationContext const& ctx, bool) const override {
        ValidateCount(ctx);
        for (CNode const* node = m_pHead; node != nullptr; node = node->m_pNext)
            CXmlObjectBase::ToXml_Int(node->m_item->GetBase(), writer, false, ns, ctx, false);
    }
    ZvXmlLib16::CXmlElement* FromXml_Int(ZvXmlLib16::CXmlElement* element, ZvXmlLib16::CXmlElement* current,
                                         ZvXmlLib16::CSerializationContext const& ctx, bool) override {
        while (current != nullptr) {
            CSmartPtr<Probe> const item(new Probe(m_model));
            bool const isGroup = m_model.type == ZvXmlLib16::XmlElementType_Pseudo;
            if (!isGroup && !DoesElementNameMatch(ctx, current, m_model.name.c_str(), m_model.ns.c_str()))
                break;
            ZvXmlLib16::CXmlElement* const next =
                isGroup ? CXmlObjectBase::FromXml_Int(item, element, current, ctx)
                        : current->GetNextSiblingElement();
            if (next == current)
                break;
            if (!isGroup)
                CXmlObjectBase::FromXml_Int(item, current, current->GetFirstElement(), ctx);
            AppendItem(item);
            current = next;
        }
        return current;
    }

private:
    Model& m_model;
};
