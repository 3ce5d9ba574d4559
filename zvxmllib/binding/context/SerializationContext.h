// CSerializationContext, the options of one serialisation or one read.
#pragma once

#include "zvxmllib/binding/context/NamespaceAliasMap.h"
#include "zvxmllib/foundation/Enumerations.h"
#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/foundation/SmartPtr.h"
#include "zvxmllib/platform/Api.h"

#include <list>
#include <mutex>
#include <string>

namespace ZvXmlLib16 {

// Plain configuration, passed by const reference to the entry points and reusable. Belongs to one thread
// at a time; the default context may be read by several threads as long as none changes it.
class ZV_API CSerializationContext {
public:
    CSerializationContext();
    // Shares the additional root attributes, copies everything else.
    CSerializationContext(CSerializationContext const& other);
    CSerializationContext& operator=(CSerializationContext const& other);
    virtual ~CSerializationContext();

    // The context of calls that name none. A change lasts for the life of the process.
    static CSerializationContext& GetDefaultContext();

    // Declared at the root when not empty; elements in it get no prefix.
    std::string GetDefaultNamespaceURI() const;
    void SetDefaultNamespaceURI(char const* uri);

    // Whether xsi:type names the class of an object under another element name than its own. True.
    bool GetWriteTypeAttribute() const noexcept;
    void SetWriteTypeAttribute(bool write) noexcept;

    // The prefixes declared at the root.
    CNamespaceAliasMap const& GetNamespaceAliases() const noexcept;
    CNamespaceAliasMap& GetNamespaceAliases() noexcept;

    // Attributes written on the root element, ahead of the object's own. Made at first use.
    CSmartPtr<CAttributeCol> GetAdditionalRootAttributes() const;

    // Whole instructions, written in order ahead of the root element.
    std::list<std::string> const& GetProcessingInstructions() const noexcept;
    std::list<std::string>& GetProcessingInstructions() noexcept;

    // Written as it is inside the root's start tag, behind its attributes.
    std::string GetInLineSchema() const;
    void SetInLineSchema(char const* schema);

    bool GetIgnoreInvalidCollectionCounts() const noexcept;
    void SetIgnoreInvalidCollectionCounts(bool ignore) noexcept;

    bool GetIgnoreMissingChoice() const noexcept;
    void SetIgnoreMissingChoice(bool ignore) noexcept;

    // The next two exclude each other; setting both throws CZvInvalidStateException.
    bool GetIgnoreMissingMandatoryElements() const noexcept;
    void SetIgnoreMissingMandatoryElements(bool ignore);
    bool GetIgnoreUnknownElements() const noexcept;
    void SetIgnoreUnknownElements(bool ignore);

    bool GetIgnoreUnknownAttributes() const noexcept;
    void SetIgnoreUnknownAttributes(bool ignore) noexcept;

    // Match by local names alone; always true for SchemaType_NoNamespaces.
    bool GetIgnoreNamespaces() const noexcept;
    void SetIgnoreNamespaces(bool ignore) noexcept;

    SchemaType GetSchemaType() const noexcept;
    void SetSchemaType(SchemaType type) noexcept;

    // An optional attribute that equals its default is not written.
    bool GetNoOptionalAttributeDefaultOutput() const noexcept;
    void SetNoOptionalAttributeDefaultOutput(bool noOutput) noexcept;

    // An element that equals its default is written with its text; otherwise it is written empty.
    bool GetWriteDefaultElementValues() const noexcept;
    void SetWriteDefaultElementValues(bool write) noexcept;

    // False keeps the marks of CDATA sections in the texts read. True.
    bool GetStripCDATA() const noexcept;
    void SetStripCDATA(bool strip) noexcept;

    // One unit of indent: blanks and tabs, one tab at first; null for none. Other characters throw
    // CZvInvalidParamException.
    std::string GetIndentChars() const;
    void SetIndentChars(char const* indent);

private:
    std::string m_defaultNamespaceUri;
    CNamespaceAliasMap m_namespaceAliases;
    mutable CSmartPtr<CAttributeCol> m_additionalRootAttributes; // guarded by s_partsMutex
    std::list<std::string> m_processingInstructions;
    std::string m_inLineSchema;
    std::string m_indentChars{"\t"};
    SchemaType m_schemaType = SchemaType_Namespaces;
    bool m_writeTypeAttribute = true;
    bool m_ignoreInvalidCollectionCounts = false;
    bool m_ignoreMissingChoice = false;
    bool m_ignoreMissingMandatoryElements = false;
    bool m_ignoreUnknownElements = false;
    bool m_ignoreUnknownAttributes = false;
    bool m_ignoreNamespaces = false;
    bool m_noOptionalAttributeDefaultOutput = false;
    bool m_writeDefaultElementValues = false;
    bool m_stripCDATA = true;
};

} // namespace ZvXmlLib16
