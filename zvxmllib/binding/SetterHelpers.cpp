// Helpers for generated setters: null, name and choice tests, and the tests of namespaces.
#include "zvxmllib/binding/Failures.h"
#include "zvxmllib/binding/NamespaceRules.h"
#include "zvxmllib/binding/XmlCollectionBase.h"
#include "zvxmllib/binding/XmlObjectBase.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/XmlElement.h"
#include "zvxmllib/foundation/TextOrEmpty.h"

namespace ZvXmlLib16 {

void CXmlObjectBase::Throw_IfPropertyIsNull(CXmlObjectBase* value, char const* name) {
    if (value == nullptr)
        FailPropertyIsNull(detail::TextOrEmpty(name));
}

void CXmlObjectBase::Throw_IfElementNameDiffers(CXmlObjectBase* value, char const* name) {
    if (value == nullptr)
        return;
    std::string const& actual = value->GetBase()->GetElementName();
    if (actual != detail::TextOrEmpty(name))
        FailElementNameDiffers(detail::TextOrEmpty(name), actual);
}

// An empty choice takes the name even without a value.
void CXmlObjectBase::Choice_SelectElement(char const* name, CXmlObjectBase* value, std::string& selected) {
    if (selected == detail::TextOrEmpty(name)) {
        if (value == nullptr)
            selected.clear();
    } else if (selected.empty()) {
        selected = detail::TextOrEmpty(name);
    } else if (value != nullptr) {
        FailChoiceAlreadySelected(selected);
    }
}

void CXmlObjectBase::Choice_SetElementValid(bool valid, char const* name, std::string& selected) {
    if (!valid) {
        selected.clear();
        return;
    }
    if (!selected.empty() && selected != detail::TextOrEmpty(name))
        FailChoiceAlreadyValid(selected);
    selected = detail::TextOrEmpty(name);
}

void CXmlObjectBase::Choice_CollectionChanged(char const* name, std::int32_t count, std::string& selected) {
    if (selected == detail::TextOrEmpty(name)) {
        if (count == 0)
            selected.clear();
    } else if (selected.empty()) {
        if (count > 0)
            selected = detail::TextOrEmpty(name);
    } else if (count != 0) {
        FailChoiceAlreadySelected(selected);
    }
}

void CXmlObjectBase::Choice_Read_Collection(CXmlCollectionBase* collection, CXmlElement* element,
                                            CXmlElement*& current, std::int32_t& count,
                                            CSerializationContext const& ctx) {
    if (count > 0)
        return;
    CXmlElement* const next =
        static_cast<CXmlObjectBase*>(collection)->FromXml_Int(element, current, ctx, false);
    if (next == current)
        return;
    current = next;
    collection->ValidateCount(ctx);
    ++count;
}

void CXmlObjectBase::TestNamespace(char const* ns, char const* allowed, char const* target) const {
    if (!IsNamespaceValid(ns, allowed, target))
        FailNamespaceNotAllowed(detail::TextOrEmpty(ns), detail::TextOrEmpty(allowed),
                                detail::TextOrEmpty(target));
}

bool CXmlObjectBase::IsNamespaceValid(char const* ns, char const* allowed, char const* target) const {
    return IsNamespaceAllowed(detail::TextOrEmpty(ns), detail::TextOrEmpty(allowed),
                              detail::TextOrEmpty(target));
}

bool CXmlObjectBase::DoesElementNameMatch(CSerializationContext const& ctx, CXmlElement const* element,
                                          char const* name, char const* ns) const {
    if (element->GetLocalName() != detail::TextOrEmpty(name))
        return false;
    return ctx.GetIgnoreNamespaces() || element->GetNamespaceURI() == detail::TextOrEmpty(ns);
}

} // namespace ZvXmlLib16
