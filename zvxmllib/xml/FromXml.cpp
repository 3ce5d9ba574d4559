// The XML reading entry points of the object base.
#include "zvxmllib/binding/GeneratorVersion.h"
#include "zvxmllib/binding/XmlObjectBase.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/Failures.h"
#include "zvxmllib/document/NodePositions.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/document/XmlElement.h"
#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/foundation/Utf16.h"

namespace ZvXmlLib16 {

void CXmlObjectBase::ReadDocument(CXmlDocument& document, CSerializationContext const& ctx) {
    ReadElement(document.GetDocumentElement(), ctx, true);
}

void CXmlObjectBase::ReadElement(CXmlElement* root, CSerializationContext const& ctx, bool isDocument) {
    detail::FailureNotes& notes = ctx.GetFailureNotes();
    bool const goesOn = notes.GetLimit() != 0;
    if (goesOn)
        notes.Begin();
    try {
        if (ctx.GetStrict())
            ReadRootStrictly(root, ctx, isDocument);
        else
            FromXml_Int(root, root->GetFirstElement(), ctx, false);
    } catch (CZvException& failure) {
        LocateFailureByPath(failure, *root);
        if (goesOn)
            notes.ThrowFirst();
        throw;
    }
    if (goesOn)
        notes.ThrowFirst();
}

void CXmlObjectBase::FromXmlFile(char const* fileName, CSerializationContext const& ctx) {
    detail::CheckGeneratorVersion();
    CXmlDocument document(ctx);
    document.Load(fileName);
    ReadDocument(document, ctx);
}

void CXmlObjectBase::FromXml(wchar_t const* text, CSerializationContext const& ctx) {
    detail::CheckGeneratorVersion();
    CXmlDocument document(ctx);
    document.LoadXml(text);
    ReadDocument(document, ctx);
}

void CXmlObjectBase::FromXml(char16_t const* text, CSerializationContext const& ctx) {
    detail::CheckGeneratorVersion();
    CXmlDocument document(ctx);
    document.LoadXml(text);
    ReadDocument(document, ctx);
}

void CXmlObjectBase::FromXml(char const* text, CSerializationContext const& ctx) {
    detail::CheckGeneratorVersion();
    CXmlDocument document(ctx);
    document.BorrowInput();
    document.LoadXml(text);
    ReadDocument(document, ctx);
}

void CXmlObjectBase::FromXmlStream(CBinaryData const& data, CSerializationContext const& ctx) {
    // The object may change `data` while it is being read. The operation takes a non-const pointer, but does
    // not change the bytes.
    CBinaryData const kept(data); // NOLINT(performance-unnecessary-copy-initialization)
    FromXmlStream(const_cast<unsigned char*>(kept.GetData()), kept.GetLength(), ctx);
}

void CXmlObjectBase::FromXmlStream(unsigned char* const data, std::uint32_t length,
                                   CSerializationContext const& ctx) {
    detail::CheckGeneratorVersion();
    CXmlDocument document(ctx);
    document.BorrowInput();
    document.LoadXmlStream(data, length);
    ReadDocument(document, ctx);
}

void CXmlObjectBase::FromXmlElement(CXmlElement const* element, CSerializationContext const& ctx) {
    detail::CheckGeneratorVersion();
    if (element == nullptr)
        FailNullElement();
    ReadElement(const_cast<CXmlElement*>(element), ctx, false);
}

} // namespace ZvXmlLib16
