// Reading and writing of whole documents, for generated functions.
#pragma once

#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/foundation/SmartPtr.h"
#include "zvxmllib/generated/BoundSchema.h"
#include "zvxmllib/generated/TypedObject.h"
#include "zvxmllib/values/binary/BinaryData.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace ZvXmlLib16::generated {

// What generated functions take where the caller gives no context: strict.
CSerializationContext const& StrictContext();

// A document whose root is the global element `element`. XML text, JSON or Fast Infoset, gzip or zlib around
// it; the text forms take XML or JSON in the local encoding. Throw CZvException.
CSmartPtr<CTypedObject> ReadFile(BoundSchema const& schema, std::uint32_t element, std::string const& file,
                                 CSerializationContext const& ctx);
CSmartPtr<CTypedObject> ReadBytes(BoundSchema const& schema, std::uint32_t element,
                                  unsigned char const* bytes, std::size_t length,
                                  CSerializationContext const& ctx);
CSmartPtr<CTypedObject> ReadXmlText(BoundSchema const& schema, std::uint32_t element, std::string const& text,
                                    CSerializationContext const& ctx);
CSmartPtr<CTypedObject> ReadJsonText(BoundSchema const& schema, std::uint32_t element,
                                     std::string const& text, CSerializationContext const& ctx);

// An empty object for a global element.
CSmartPtr<CTypedObject> NewObject(BoundSchema const& schema, std::uint32_t element);

// The object as one of the class that generated code has for its element.
template <class Class>
CSmartPtr<Class> As(CSmartPtr<CTypedObject> const& object) {
    return CSmartPtr<Class>(static_cast<Class*>(static_cast<CTypedObject*>(object)));
}

// Write the object under the name of the global element. The ending of the file decides: .json, .fi or .finf,
// with .gz behind it or not, and XML for all others. Throw CZvException.
void WriteFile(CTypedObject const& object, std::uint32_t element, std::string const& file,
               CSerializationContext const& ctx);
std::string WriteXmlText(CTypedObject const& object, std::uint32_t element, CSerializationContext const& ctx);
std::string WriteJsonText(CTypedObject const& object, std::uint32_t element,
                          CSerializationContext const& ctx);
CBinaryData WriteFastInfoset(CTypedObject const& object, std::uint32_t element,
                             CSerializationContext const& ctx);

} // namespace ZvXmlLib16::generated
