// A bound object written by hand: what it writes is a function of the test's.
#pragma once

#include "zvxmllib/binding/XmlObjectBase.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/XmlElement.h"
#include "zvxmllib/writers/XmlWriter.h"

#include <functional>
#include <string>
#include <utility>

class WrittenObject : public ZvXmlLib16::CXmlObjectBase {
public:
    using Body = std::function<void(ZvXmlLib16::CXmlWriter&)>;

    explicit WrittenObject(Body body = {}, std::string targetNamespace = {})
        : m_body(std::move(body)), m_targetNamespace(std::move(targetNamespace)) {}

    using CXmlObjectBase::GetBase;
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() override { return m_targetNamespace; }

    // What generated code and the rest of the library use from inside.
    using CXmlObjectBase::Choice_CollectionChanged;
    using CXmlObjectBase::Choice_Read_Collection;
    using CXmlObjectBase::Choice_SelectElement;
    using CXmlObjectBase::Choice_SetElementValid;
    using CXmlObjectBase::DoesElementNameMatch;
    using CXmlObjectBase::GetElementName;
    using CXmlObjectBase::IsNamespaceValid;
    using CXmlObjectBase::SetElementName;
    using CXmlObjectBase::TestNamespace;
    using CXmlObjectBase::Throw_IfElementNameDiffers;
    using CXmlObjectBase::Throw_IfPropertyIsNull;
    static void Write(CXmlObjectBase const* object, ZvXmlLib16::CXmlWriter& writer) {
        CXmlObjectBase::ToXml_Int(object, &writer, false, "", ZvXmlLib16::CSerializationContext(), false);
    }

    // The names of what FromXml_Int was called with, "-" for null.
    std::string m_readElement;
    std::string m_readCurrent;

protected:
    ~WrittenObject() override = default;

    std::string GetTargetNamespace() override { return m_targetNamespace; }
    void ToXml_Int(ZvXmlLib16::CXmlWriter* writer, bool, char const*,
                   ZvXmlLib16::CSerializationContext const&, bool) const override {
        if (m_body)
            m_body(*writer);
    }
    ZvXmlLib16::CXmlElement* FromXml_Int(ZvXmlLib16::CXmlElement* element, ZvXmlLib16::CXmlElement* current,
                                         ZvXmlLib16::CSerializationContext const&, bool) override {
        m_readElement = element->GetLocalName();
        m_readCurrent = current == nullptr ? "-" : current->GetLocalName();
        return current;
    }

private:
    Body m_body;
    std::string m_targetNamespace;
};

// The XML text of what `body` writes, without a declaration.
inline std::string
XmlOf(WrittenObject::Body body, bool formatted = false, ZvXmlLib16::EOLType eol = ZvXmlLib16::EOLType_LF,
      ZvXmlLib16::CSerializationContext const& ctx = ZvXmlLib16::CSerializationContext::GetDefaultContext()) {
    CSmartPtr<WrittenObject> const object(new WrittenObject(std::move(body)));
    return object->ToXml(false, formatted, eol, ctx);
}
