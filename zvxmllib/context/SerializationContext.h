// CSerializationContext, the options of one serialisation or one read.
#pragma once

#include "zvxmllib/context/NamespaceAliasMap.h"
#include "zvxmllib/context/OnDemandPart.h"
#include "zvxmllib/context/ReadFailures.h"
#include "zvxmllib/context/SharedFlag.h"
#include "zvxmllib/foundation/Enumerations.h"
#include "zvxmllib/foundation/Forward.h"
#include "zvxmllib/foundation/SmartPtr.h"
#include "zvxmllib/platform/Api.h"

#include <cstddef>
#include <list>
#include <string>
#include <vector>

namespace ZvXmlLib16::detail {
struct RootAttributes;
} // namespace ZvXmlLib16::detail

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

    // The context of calls without one. A change lasts for the life of the process.
    static CSerializationContext& GetDefaultContext();

    // Declared at the root when not empty; elements in it get no prefix.
    std::string GetDefaultNamespaceURI() const;
    void SetDefaultNamespaceURI(char const* uri);

    // Whether an object whose element name is not that of its type gets an xsi:type. True at first.
    bool GetWriteTypeAttribute() const noexcept { return m_writeTypeAttribute; }
    void SetWriteTypeAttribute(bool write) noexcept { m_writeTypeAttribute = write; }

    // The prefixes declared at the root.
    CNamespaceAliasMap const& GetNamespaceAliases() const noexcept { return m_namespaceAliases; }
    CNamespaceAliasMap& GetNamespaceAliases() noexcept { return m_namespaceAliases; }

    // Attributes written on the root element, before the object's own. Made at first use.
    CSmartPtr<CAttributeCol> GetAdditionalRootAttributes() const;

    // Whole instructions, written in order before the root element.
    std::list<std::string> const& GetProcessingInstructions() const noexcept {
        return m_processingInstructions;
    }
    std::list<std::string>& GetProcessingInstructions() noexcept { return m_processingInstructions; }

    // Written unchanged into the root's start tag, after its attributes.
    std::string GetInLineSchema() const;
    void SetInLineSchema(char const* schema);

    // Whether a collection may hold fewer or more items than its bounds say. False at first.
    bool GetIgnoreInvalidCollectionCounts() const noexcept { return m_ignoreInvalidCollectionCounts; }
    void SetIgnoreInvalidCollectionCounts(bool ignore) noexcept { m_ignoreInvalidCollectionCounts = ignore; }

    // Whether a choice may have no member set. False at first.
    bool GetIgnoreMissingChoice() const noexcept { return m_ignoreMissingChoice; }
    void SetIgnoreMissingChoice(bool ignore) noexcept { m_ignoreMissingChoice = ignore; }

    // Whether a mandatory element may be missing, and whether elements that no entry knows are passed over.
    // False at first. The two exclude each other; setting both throws CZvInvalidStateException.
    bool GetIgnoreMissingMandatoryElements() const noexcept { return m_ignoreMissingMandatoryElements; }
    void SetIgnoreMissingMandatoryElements(bool ignore);
    bool GetIgnoreUnknownElements() const noexcept { return m_ignoreUnknownElements; }
    // Whether the walk over the children of a generated class passes over what it does not expect. In a
    // strict context it does not: the unknown elements are taken out ahead of it.
    bool SkipsUnexpectedElements() const noexcept { return m_ignoreUnknownElements && !m_strict; }
    void SetIgnoreUnknownElements(bool ignore);

    // Whether attributes that no entry knows are passed over in reading; otherwise they are a failure. False
    // at first.
    bool GetIgnoreUnknownAttributes() const noexcept { return m_ignoreUnknownAttributes; }
    void SetIgnoreUnknownAttributes(bool ignore) noexcept { m_ignoreUnknownAttributes = ignore; }

    // Match by local names alone; always true for SchemaType_NoNamespaces. Reading JSON in another mode than
    // full round trip turns this on during the call, even in a shared context: another thread that reads with
    // the same context at that time ignores namespaces too, and the two may leave it on or off. Give each
    // thread that reads such JSON a context of its own.
    bool GetIgnoreNamespaces() const noexcept {
        return m_ignoreNamespaces || m_schemaType == SchemaType_NoNamespaces;
    }
    void SetIgnoreNamespaces(bool ignore) noexcept { m_ignoreNamespaces = ignore; }

    // Whether documents have namespaces. SchemaType_Namespaces at first.
    SchemaType GetSchemaType() const noexcept { return m_schemaType; }
    void SetSchemaType(SchemaType type) noexcept { m_schemaType = type; }

    // Whether an optional attribute that equals its default is left out.
    bool GetNoOptionalAttributeDefaultOutput() const noexcept { return m_noOptionalAttributeDefaultOutput; }
    void SetNoOptionalAttributeDefaultOutput(bool noOutput) noexcept {
        m_noOptionalAttributeDefaultOutput = noOutput;
    }

    // An element that equals its default is written with its text; otherwise it is written empty.
    bool GetWriteDefaultElementValues() const noexcept { return m_writeDefaultElementValues; }
    void SetWriteDefaultElementValues(bool write) noexcept { m_writeDefaultElementValues = write; }

    // False keeps the CDATA marks in the texts that are read. True at first.
    bool GetStripCDATA() const noexcept { return m_stripCDATA; }
    void SetStripCDATA(bool strip) noexcept { m_stripCDATA = strip; }

    // One unit of indent: blanks and tabs, one tab at first; null for none. Other characters throw
    // CZvInvalidParamException.
    std::string GetIndentChars() const;
    void SetIndentChars(char const* indent);

    // Keep XML 1.0, Namespaces in XML, XML Schema 1.0, RFC 8259, X.891 and RFC 1952 to the letter: what is
    // written is well-formed and valid, what is read is refused unless they allow it, and what would be lost
    // or invented is an exception. False: the usual rules.
    bool GetStrict() const noexcept { return m_strict; }
    void SetStrict(bool strict) noexcept { m_strict = strict; }

    // Whether a document remembers where its elements and attributes stand, so that a failure of reading says
    // it, see CZvException::GetLine. False; it takes memory for each element.
    bool GetKeepPositions() const noexcept { return m_keepPositions; }
    void SetKeepPositions(bool keep) noexcept { m_keepPositions = keep; }

    // With a limit above 0 reading goes on behind a failure, up to so many of them: a value or an attribute
    // that fails is passed over, an element that fails ends, and the next one is read. At the end reading
    // fails with the first failure, as it would without a limit. The list holds all of the last reading, the
    // first one too; reading fills it though the context is const, so one reader uses such a context at a
    // time. 0.
    void SetFailureLimit(std::size_t limit) noexcept { m_failures.SetLimit(limit); }
    std::size_t GetFailureLimit() const noexcept { return m_failures.GetLimit(); }
    std::vector<CReadFailure> const& GetFailures() const noexcept { return m_failures.GetList(); }
    // For the library's readers. The second takes over what was found with a copy of this context.
    detail::FailureNotes& GetFailureNotes() const noexcept { return m_failures; }
    void TakeFailures(CSerializationContext const& copy) const;

    // The options of JSON and of Fast Infoset, owned by the context and made at first use. A copied context
    // has copies of its own.
    CJsonContext& GetJsonContext() const;
    CFastInfosetContext& GetFIContext() const;

private:
    friend class IgnoredNamespaces; // for reading JSON

    detail::OnDemandPart<CJsonContext> m_json;
    detail::OnDemandPart<CFastInfosetContext> m_fastInfoset;
    std::string m_defaultNamespaceUri;
    CNamespaceAliasMap m_namespaceAliases;
    detail::OnDemandPart<detail::RootAttributes> m_rootAttributes; // a copied context shares the collection
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
    mutable detail::SharedFlag m_ignoreNamespaces = false; // reading JSON changes it during the call
    bool m_noOptionalAttributeDefaultOutput = false;
    bool m_writeDefaultElementValues = false;
    bool m_stripCDATA = true;
    mutable detail::FailureNotes m_failures;
    bool m_strict = false;
    bool m_keepPositions = false;
};

} // namespace ZvXmlLib16
