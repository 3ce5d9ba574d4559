// Documents as objects of a schema's types, for convert.
#pragma once

#include <memory>

#include <zvxmllib/ZvXmlLib.h>

namespace zvxml {

struct SchemaOptions;

class TypedConversion {
public:
    // Throws SchemaError.
    explicit TypedConversion(SchemaOptions const& options);
    TypedConversion(TypedConversion const&) = delete;
    TypedConversion& operator=(TypedConversion const&) = delete;
    ~TypedConversion();

    // Throws CZvException for a document that is not valid by the schema. The object may not outlive this.
    ZvXmlLib16::CSmartPtr<ZvXmlLib16::CXmlObjectBase>
    Read(ZvXmlLib16::CXmlElement& root, bool isFromJson, ZvXmlLib16::CSerializationContext const& ctx) const;

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace zvxml
