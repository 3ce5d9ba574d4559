#include "TypedConversion.h"

#include "SchemaOptions.h"

#include "zvxmllib/generated/BoundSchema.h"
#include "zvxmllib/generated/TypedObject.h"

using namespace ZvXmlLib16;

namespace zvxml {

struct TypedConversion::Parts {
    std::unique_ptr<schema::Schema> schema;
    std::unique_ptr<generated::BoundSchema> bound;
};

TypedConversion::TypedConversion(SchemaOptions const& options) : m_parts(std::make_unique<Parts>()) {
    m_parts->schema = options.Read();
    m_parts->bound = std::make_unique<generated::BoundSchema>(m_parts->schema->GetRows());
}

TypedConversion::~TypedConversion() = default;

CSmartPtr<CXmlObjectBase> TypedConversion::Read(CXmlElement& root, bool isFromJson,
                                                CSerializationContext const& ctx) const {
    auto order = generated::InputOrder::kAsWritten;
    if (isFromJson)
        order = ctx.GetJsonContext().GetSupportRoundtrip() == JsonRoundTrip_Full
                    ? generated::InputOrder::kAny
                    : generated::InputOrder::kAnyWithoutNamespaces;
    CSmartPtr<generated::CTypedObject> const object = m_parts->bound->Read(root, ctx, grammar::kNone, order);
    return CSmartPtr<CXmlObjectBase>(object->GetBase());
}

} // namespace zvxml
