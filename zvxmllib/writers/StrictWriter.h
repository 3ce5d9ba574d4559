// StrictWriter, a writer that refuses the calls which no document of XML would come of. Header only.
#pragma once

#include "zvxmllib/foundation/XmlNamespaces.h"
#include "zvxmllib/writers/Failures.h"
#include "zvxmllib/writers/WriterChecks.h"
#include "zvxmllib/writers/XmlWriter.h"

#include <string>
#include <utility>

namespace ZvXmlLib16 {

// Looks at each call, then leaves it to its base, the writer of a format. What the format itself does with
// text is the base's.
template <class Base>
class StrictWriter : public Base {
public:
    // The other arguments are those of the base.
    template <class... Arguments>
    explicit StrictWriter(bool hasNamespaces, Arguments&&... arguments)
        : Base(std::forward<Arguments>(arguments)...), m_checks(hasNamespaces) {}

    void Close() override {
        m_checks.RequireRoot(); // before the base gives up a file that is there
        Base::Close();
    }
    void SetDefaultNamespace(std::string const& ns) override {
        m_checks.RequireDefaultNamespace(ns);
        Base::SetDefaultNamespace(ns);
    }
    void AddNamespaceAlias(std::string const& alias, std::string const& ns) override {
        if (alias.empty() && ns == kXmlNamespace) // none, but this one has its alias always
            return;
        m_checks.RequireAlias(alias, ns);
        if (this->m_pContext == nullptr)
            m_checks.AddDocumentAlias(alias, ns);
        Base::AddNamespaceAlias(alias, ns);
    }
    void DeclareOnNextElement(std::string const& alias, std::string const& ns) override {
        m_checks.RequireDeclaration(alias, ns);
        Base::DeclareOnNextElement(alias, ns);
    }
    void WriteComment(std::string const& text) override {
        m_checks.RequireComment(text);
        Base::WriteComment(text);
    }
    void WriteProcessingInstruction(std::string const& text) override {
        RequireInstruction(text);
        Base::WriteProcessingInstruction(text);
    }
    void WriteInlineSchema(std::string const&) override { FailInlineSchema(); }
    void WriteElementStart(std::string const& name, std::string const& ns) override {
        m_checks.StartElement(name, ns);
        Base::WriteElementStart(name, ns);
    }
    void WriteElementValue(std::string const& text, ItemType type, bool isDefault) override {
        m_checks.RequireValue(text);
        Base::WriteElementValue(text, type, isDefault);
    }
    void WriteElementEnd() override {
        Base::WriteElementEnd();
        m_checks.EndElement();
    }
    // Of the three operations that this stands for, the second one looks at the text.
    bool TryWriteTextElement(std::string const& name, std::string const& ns, std::string const& text,
                             ItemType type) override {
        if constexpr (Base::kWritesTextElements) {
            m_checks.StartElement(name, ns);
            if (!m_checks.IsValue(text) || !Base::TryWriteTextElement(name, ns, text, type)) {
                Base::WriteElementStart(name, ns);
                WriteElementValue(text, type, false);
                Base::WriteElementEnd();
            }
            m_checks.EndElement();
            return true;
        } else {
            return false;
        }
    }
    // xsi:type and xsi:nil come here, too.
    void WriteAttribute(std::string const& name, std::string const& ns, std::string const& value,
                        ItemType type) override {
        m_checks.AddAttribute(name, ns, value);
        Base::WriteAttribute(name, ns, value, type);
    }
    void WriteTypeAttribute(std::string const& ns, std::string const& typeName, ItemType type) override {
        m_checks.RequireType(ns, typeName);
        Base::WriteTypeAttribute(ns, typeName, type);
    }

private:
    WriterChecks m_checks;
};

} // namespace ZvXmlLib16
