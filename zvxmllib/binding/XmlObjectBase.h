// CXmlObjectBase, the root of all bound objects: reference count, element name, and the entry points
// that write and read an object tree.
#pragma once

#include "zvxmllib/binding/EventSink.h"
#include "zvxmllib/foundation/Enumerations.h"
#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/foundation/SharedText.h"
#include "zvxmllib/foundation/SmartPtr.h"
#include "zvxmllib/values/binary/BinaryData.h"

#include <atomic>
#include <cstdint>
#include <string>
#include <string_view>

namespace ZvXmlLib16 {

// Made with a count of 0 and held by CSmartPtr; the Release that brings the count back to 0 deletes the
// object. AddRef and Release are thread-safe; everything else belongs to one thread at a time.
//
// The order of the virtual operations is a contract with generated code. All entry points throw the
// CZvException family: first for a wrong generator version, then for what goes wrong. A failed write leaves
// the object as it was; a failed read leaves it partly filled, unless the document could not be parsed.
class ZV_API CXmlObjectBase : public IEventSink {
protected:
    void OnEvent(CXmlObjectBase* sender, IEventSink::MsgType type, void* data) override;

public:
    // The object's own CXmlObjectBase part.
    virtual CXmlObjectBase* GetBase() = 0;

    // An existing file is overwritten; after a failure it may be incomplete. `includeDocHeader` writes the
    // XML declaration. ZLib compression is refused here.
    virtual void ToXmlFile(char const* fileName, bool includeDocHeader, bool formatted, XmlEncoding encoding,
                           EOLType eol, CSerializationContext const& ctx, CompressionType compression) const;
    virtual void ToFastInfosetFile(char const* fileName, FInfoDecl declaration,
                                   CSerializationContext const& ctx, CompressionType compression) const;
    virtual void ToJsonFile(char const* fileName, bool formatted, XmlEncoding encoding, EOLType eol,
                            CSerializationContext const& ctx, CompressionType compression) const;
    // Text in the local encoding, which the declaration does not name.
    virtual std::string ToXml(bool includeDocHeader, bool formatted, EOLType eol,
                              CSerializationContext const& ctx);
    virtual std::string ToJson(bool formatted, EOLType eol, CSerializationContext const& ctx);
    // Bytes without a byte order mark.
    virtual CBinaryData ToXmlStream(bool includeDocHeader, bool formatted, XmlEncoding encoding, EOLType eol,
                                    CSerializationContext const& ctx, CompressionType compression);
    virtual CBinaryData ToFastInfosetStream(FInfoDecl declaration, CSerializationContext const& ctx,
                                            CompressionType compression);
    virtual CBinaryData ToJsonStream(bool formatted, XmlEncoding encoding, EOLType eol,
                                     CSerializationContext const& ctx, CompressionType compression);

    // File and stream forms recognise gzip, zlib, Fast Infoset and XML text by their content; the text forms
    // take plain XML text. Text and bytes stay unchanged until the call returns, so they are no part of the
    // object itself. JSON becomes XML by the JSON options of the context, and goes through FromXmlStream;
    // except in mode full round trip, the context ignores namespaces during the call.
    virtual void FromXmlFile(char const* fileName, CSerializationContext const& ctx);
    virtual void FromJsonFile(char const* fileName, CSerializationContext const& ctx);
    virtual void FromXml(wchar_t const* text, CSerializationContext const& ctx);
    virtual void FromXml(char const* text, CSerializationContext const& ctx);
    virtual void FromJson(wchar_t const* text, CSerializationContext const& ctx);
    virtual void FromJson(char const* text, CSerializationContext const& ctx);
    virtual void FromXmlStream(CBinaryData const& data, CSerializationContext const& ctx);
    virtual void FromXmlStream(unsigned char* const data, std::uint32_t length,
                               CSerializationContext const& ctx);
    virtual void FromJsonStream(CBinaryData const& data, CSerializationContext const& ctx);
    virtual void FromJsonStream(unsigned char* const data, std::uint32_t length,
                                CSerializationContext const& ctx);
    virtual void FromXmlElement(CElement const* element, CSerializationContext const& ctx);
    virtual void FromXmlElement(CXmlElement const* element, CSerializationContext const& ctx);

protected:
    virtual ~CXmlObjectBase();
    // The namespace of the outermost element of a document.
    virtual std::string GetTargetNamespace() = 0;

public:
    // The namespace of the object's own type, to which its wildcards refer.
    virtual std::string GetNamespace() = 0;

protected:
    // Writes the attributes of the object, whose start tag is open.
    virtual void AttributesToXml_Int(CXmlWriter* writer, CSerializationContext const& ctx) const;
    // `isRoot` is true for the outermost object only; `optionalChoice` allows a choice with nothing set.
    virtual void ToXml_Int(CXmlWriter* writer, bool isRoot, char const* ns, CSerializationContext const& ctx,
                           bool optionalChoice) const = 0;
    // Reads from `element`, starting at its child `current`; returns the first child not consumed, or null.
    virtual CXmlElement* FromXml_Int(CXmlElement* element, CXmlElement* current,
                                     CSerializationContext const& ctx, bool optionalChoice) = 0;

public:
    // The same for a const object.
    CXmlObjectBase const* GetBase() const { return const_cast<CXmlObjectBase*>(this)->GetBase(); }

    // Both return the new count.
    std::int32_t AddRef() noexcept { return m_refCount.fetch_add(1, std::memory_order_relaxed) + 1; }
    std::int32_t Release() noexcept {
        std::int32_t const count = m_refCount.fetch_sub(1, std::memory_order_acq_rel) - 1;
        if (count == 0)
            DeleteUnreferenced();
        return count;
    }

    // Like the wchar_t forms, for UTF-16 text.
    void FromXml(char16_t const* text, CSerializationContext const& ctx);
    void FromJson(char16_t const* text, CSerializationContext const& ctx);

protected:
    CXmlObjectBase();
    // A copy starts with a count of 0; assignment leaves the count alone.
    CXmlObjectBase(CXmlObjectBase const& other);
    CXmlObjectBase& operator=(CXmlObjectBase const& other);

    // The name of the element that the object is written as; reading sets it to that of the element read.
    // Null counts as empty. The last form is for other objects than this.
    std::string const& GetElementName() const noexcept { return m_elementName.Get(); }
    void SetElementName(char const* name);
    static void SetElementName(CXmlObjectBase* object, char const* name);

    // Forward to the virtual operation of `object`, and count a level of nesting. FromXml_Int passes
    // optionalChoice false.
    static void ToXml_Int(CXmlObjectBase const* object, CXmlWriter* writer, bool isRoot, char const* ns,
                          CSerializationContext const& ctx, bool optionalChoice);
    static void AttributesToXml_Int(CXmlObjectBase const* object, CXmlWriter* writer,
                                    CSerializationContext const& ctx);
    static CXmlElement* FromXml_Int(CXmlObjectBase* object, CXmlElement* element, CXmlElement* current,
                                    CSerializationContext const& ctx);

    // Deliver one event to `sink`; an index of -1 arrives as null.
    static void FireOnCollectionChangeEvent(IEventSink* sink, CXmlCollectionBase* collection);
    static void FireOnCollectionAddEvent(IEventSink* sink, CXmlCollectionBase* collection, void* item);
    static void FireOnCollectionAddCompleteEvent(IEventSink* sink, CXmlCollectionBase* collection,
                                                 void* item);
    static void FireOnCollectionRemoveEvent(IEventSink* sink, CXmlCollectionBase* collection, int index);
    static void FireOnCollectionRemoveCompleteEvent(IEventSink* sink, CXmlCollectionBase* collection,
                                                    int index);

    // For generated setters. Throws CZvInvalidParamException.
    static void Throw_IfPropertyIsNull(CXmlObjectBase* value, char const* name);
    static void Throw_IfElementNameDiffers(CXmlObjectBase* value, char const* name);
    // How a strict context reads `root`, which is the root of a document or an element that the application
    // names: all of it, or CZvValidationException is thrown.
    void ReadRootStrictly(CXmlElement* root, CSerializationContext const& ctx, bool isDocument);

    // The bookkeeping of a choice: `selected` is the element name of the member that is set, empty for none.
    // They throw CZvInvalidStateException if another member is set.
    static void Choice_SelectElement(char const* name, CXmlObjectBase* value, std::string& selected);
    static void Choice_SetElementValid(bool valid, char const* name, std::string& selected);
    static void Choice_CollectionChanged(char const* name, std::int32_t count, std::string& selected);
    static void Choice_Read_Collection(CXmlCollectionBase* collection, CXmlElement* element,
                                       CXmlElement*& current, std::int32_t& count,
                                       CSerializationContext const& ctx);

    // Test a namespace against the list of an XML Schema wildcard with its target namespace. TestNamespace
    // throws CZvInvalidNamespaceException.
    void TestNamespace(char const* ns, char const* allowed, char const* target) const;
    bool IsNamespaceValid(char const* ns, char const* allowed, char const* target) const;
    bool DoesElementNameMatch(CSerializationContext const& ctx, CXmlElement const* element, char const* name,
                              char const* ns) const;

private:
    // The entries of the tables of generated classes work with the objects that they describe.
    friend class ZvXmlLib16Data::CAttributeInfo;
    friend class ZvXmlLib16Data::CElementInfo;

    // Deletes this object. Deep trees are taken apart in a loop, without a deep stack.
    void DeleteUnreferenced() noexcept;
    void WriteXmlText(CTextStream& sink, bool includeDocHeader, bool formatted, EOLType eol,
                      CSerializationContext const& ctx) const;
    void WriteJsonText(CTextStream& sink, bool formatted, EOLType eol,
                       CSerializationContext const& ctx) const;
    void ReadDocument(CXmlDocument& document, CSerializationContext const& ctx);
    void ReadElement(CXmlElement* root, CSerializationContext const& ctx, bool isDocument);
    void ReadStrictBytes(CBinaryData const& xml, CSerializationContext const& ctx);
    void FromJson_Int(std::string_view json, CSerializationContext const& ctx);

    detail::SharedText m_elementName;
    std::atomic<std::int32_t> m_refCount{0};
};

} // namespace ZvXmlLib16
