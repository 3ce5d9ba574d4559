// From a document to objects, while it is validated.
#pragma once

#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/foundation/SmartPtr.h"
#include "zvxmllib/generated/BoundSchema.h"
#include "zvxmllib/generated/TypedObject.h"
#include "zvxmllib/grammar/Validator.h"

#include <string_view>
#include <vector>

namespace ZvXmlLib16::generated {

class ObjectBuilder : private grammar::IAssessmentReceiver {
public:
    // Both are borrowed.
    ObjectBuilder(BoundSchema const& schema, CSerializationContext const& ctx) noexcept
        : m_schema(schema), m_ctx(ctx) {}

    // Validates the element and returns it as an object: `target` if that is not null, whose content is
    // replaced.
    CSmartPtr<CTypedObject> Build(CXmlElement& root, CTypedObject* target,
                                  InputOrder order = InputOrder::kAsWritten);

private:
    // An open element: an object, or a value that becomes a node of the object outside.
    struct Frame {
        CTypedObject* object; // null for a value
        grammar::Assessment assessment;
    };

    void OnElement(CXmlElement& element, grammar::Assessment const& assessment) override;
    void OnPlainValue(std::uint32_t declaration, std::uint32_t particleDeclaration,
                      std::string_view text) override;
    void OnAttribute(CXmlAttribute& attribute, grammar::AttributeRow const* row) override;
    void OnDefaultAttribute(grammar::AttributeRow const&) override {}
    void OnValue(std::string_view text, std::uint32_t type) override;
    void OnText(CXmlElement& element, std::string_view text) override;
    void OnElementEnd() override;
    void OnSkipped(CXmlElement& element) override;

    bool IsPlainValue(CXmlElement const& element, grammar::Assessment const& assessment) const;
    CTypedObject& Outer();
    void AddNode(grammar::Assessment const& assessment, CSmartPtr<CXmlObjectBase> object,
                 std::string_view text);
    static void MakeRoom(CXmlElement const& element, CTypedObject& object);
    void KeepPrefixes(std::string_view text);

    BoundSchema const& m_schema;
    CSerializationContext const& m_ctx;
    CTypedObject* m_target = nullptr;
    CSmartPtr<CTypedObject> m_root;
    std::vector<Frame> m_frames;
    CXmlElement* m_element = nullptr; // the one that began last
};

} // namespace ZvXmlLib16::generated
