// Which operations of the object base a class has not replaced. For these the library may take a shorter way
// to the same result. Header only.
#pragma once

#include "zvxmllib/binding/XmlObjectBase.h"
#include "zvxmllib/platform/VirtualFunction.h"

#include <string>

namespace ZvXmlLib16::detail {

// A class that replaces only what it must.
class PlainObject final : public CXmlObjectBase {
public:
    ~PlainObject() override = default;
    CXmlObjectBase* GetBase() override { return this; }
    std::string GetNamespace() override { return std::string(); }

private:
    std::string GetTargetNamespace() override { return std::string(); }
    void ToXml_Int(CXmlWriter*, bool, char const*, CSerializationContext const&, bool) const override {}
    CXmlElement* FromXml_Int(CXmlElement*, CXmlElement* current, CSerializationContext const&,
                             bool) override {
        return current;
    }
};

// The forms of the overloaded operations.
using ReadText = void (CXmlObjectBase::*)(char const*, CSerializationContext const&);
using ReadData = void (CXmlObjectBase::*)(CBinaryData const&, CSerializationContext const&);
using ReadBytes = void (CXmlObjectBase::*)(unsigned char*, std::uint32_t, CSerializationContext const&);

// True if a call of `operation` on this object is certain to reach the object base.
template <auto operation>
bool KeepsOperation(CXmlObjectBase const& object) {
    static void const* const own = platform::CodeBehind<CXmlObjectBase>(PlainObject(), operation);
    void const* const code = platform::CodeBehind(object, operation);
    return code != nullptr && code == own;
}

// No derived class has replaced the reading of XML bytes.
inline bool KeepsReadingOfBytes(CXmlObjectBase const& object) {
    return KeepsOperation<static_cast<ReadData>(&CXmlObjectBase::FromXmlStream)>(object) &&
           KeepsOperation<static_cast<ReadBytes>(&CXmlObjectBase::FromXmlStream)>(object);
}

} // namespace ZvXmlLib16::detail
