#include "schema/frontend/SchemaCheck.h"

#include "schema/frontend/OccursNumbers.h"
#include "schema/frontend/PatternTexts.h"
#include "schema/frontend/XercesText.h"

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/framework/XMLGrammarPoolImpl.hpp>
#include <xercesc/parsers/SAX2XMLReaderImpl.hpp>
#include <xercesc/sax/SAXParseException.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/SecurityManager.hpp>
#include <xercesc/util/XMLEntityResolver.hpp>
#include <xercesc/util/XMLResourceIdentifier.hpp>
#include <xercesc/util/XMLUni.hpp>
#include <xercesc/validators/common/Grammar.hpp>

#include <cstring>
#include <list>
#include <memory>

namespace ZvXmlLib16::schema {

namespace {

// Documents made up for the check: for a namespace of several roots one that includes them, and one that
// imports all namespaces. So it does not matter that the parser takes one document only for a namespace that
// is imported, nor in which order.
constexpr char const kOwnIds[] = "zvxml:";
constexpr char const kMasterId[] = "zvxml:set";
constexpr char const kNamespaceId[] = "zvxml:namespace/";
constexpr char const kDocumentId[] = "zvxml:document/";
constexpr char const kEmptyId[] = "zvxml:empty/";
constexpr XMLSize_t kMostEntityExpansions = 10000;

std::string Escape(std::string const& text) {
    std::string escaped;
    for (char const c : text) {
        if (c == '&')
            escaped += "&amp;";
        else if (c == '<')
            escaped += "&lt;";
        else if (c == '"')
            escaped += "&quot;";
        else
            escaped += c;
    }
    return escaped;
}

std::string SchemaText(std::string const& ns, std::string const& content) {
    return std::string("<xs:schema xmlns:xs=\"") + kSchemaNamespace + "\"" +
           (ns.empty() ? "" : " targetNamespace=\"" + Escape(ns) + "\"") + ">" + content + "</xs:schema>";
}

class SetResolver : public xercesc::XMLEntityResolver {
public:
    explicit SetResolver(SchemaSet const& set) : m_set(set), m_numbers(set) {}

    // What the check begins with.
    xercesc::InputSource* NewMaster() {
        bool const isOne = m_set.GetRoots().size() == 1 && m_set.GetRoots().front().files.size() == 1;
        return isOne ? NewDocument(m_set.GetRoots().front().files.front())
                     : NewSource(MakeMaster(), kMasterId);
    }

    xercesc::InputSource* resolveEntity(xercesc::XMLResourceIdentifier* id) override {
        std::string const location = ToUtf8(id->getSchemaLocation());
        switch (id->getResourceIdentifierType()) {
        case xercesc::XMLResourceIdentifier::SchemaImport:
            return ImportOf(ToUtf8(id->getNameSpace()));
        case xercesc::XMLResourceIdentifier::SchemaInclude:
        case xercesc::XMLResourceIdentifier::SchemaRedefine:
            return IncludeOf(ToUtf8(id->getBaseURI()), location);
        default:
            return NewSource({}, NewEmptyId()); // an external entity: nothing is loaded
        }
    }

private:
    std::string MakeMaster() const {
        std::string parts;
        for (std::size_t i = 0; i < m_set.GetRoots().size(); ++i) {
            std::string const& ns = m_set.GetRoots()[i].ns;
            if (ns.empty())
                parts += IncludesOf(i);
            else
                parts += "<xs:import namespace=\"" + Escape(ns) + "\" schemaLocation=\"" + kNamespaceId +
                         std::to_string(i) + "\"/>";
        }
        return SchemaText({}, parts);
    }

    // The parser refuses to include the same document twice.
    std::string NewEmptyId() { return kEmptyId + std::to_string(m_texts.size()); }

    std::string IncludesOf(std::size_t root) const {
        std::string parts;
        for (std::size_t i = 0; i < m_set.GetRoots()[root].files.size(); ++i)
            parts += std::string("<xs:include schemaLocation=\"") + kDocumentId + std::to_string(root) + "/" +
                     std::to_string(i) + "\"/>";
        return parts;
    }

    xercesc::InputSource* ImportOf(std::string const& ns) {
        for (std::size_t i = 0; i < m_set.GetRoots().size(); ++i) {
            if (m_set.GetRoots()[i].ns != ns)
                continue;
            if (m_set.GetRoots()[i].files.size() == 1)
                return NewDocument(m_set.GetRoots()[i].files.front());
            return NewSource(SchemaText(ns, IncludesOf(i)), kNamespaceId + std::to_string(i));
        }
        return NewSource(SchemaText(ns, {}), NewEmptyId());
    }

    xercesc::InputSource* IncludeOf(std::string const& base, std::string const& location) {
        std::string const prefix = kDocumentId;
        std::string const* file = nullptr;
        if (base.compare(0, std::strlen(kOwnIds), kOwnIds) == 0 &&
            location.compare(0, prefix.size(), prefix) == 0) {
            std::size_t const slash = location.find('/', prefix.size());
            file = &m_set.GetRoots()[std::stoul(location.substr(prefix.size(), slash - prefix.size()))]
                        .files[std::stoul(location.substr(slash + 1))];
        } else {
            file = m_set.FindFile(base, location);
        }
        return file == nullptr ? NewSource(SchemaText({}, {}), NewEmptyId()) : NewDocument(*file);
    }

    xercesc::InputSource* NewDocument(std::string const& file) {
        std::string const* const bytes = m_set.FindBytes(file);
        return bytes == nullptr ? NewSource(SchemaText({}, {}), NewEmptyId())
                                : NewSource(m_numbers.Shorten(HidePatterns(*bytes)), file);
    }

    xercesc::InputSource* NewSource(std::string text, std::string const& id) {
        m_texts.push_back(std::move(text));
        std::string const& kept = m_texts.back();
        XercesText const name(id);
        return new xercesc::MemBufInputSource(reinterpret_cast<XMLByte const*>(kept.data()), kept.size(),
                                              name.Get());
    }

    SchemaSet const& m_set;
    OccursNumbers m_numbers;
    std::list<std::string> m_texts; // sources borrow them
};

// The parser looks up the prefixes of paths in the wrong document of several; the resolver tests them.
class SetErrors : public XercesErrors {
public:
    using XercesErrors::XercesErrors;

    void error(xercesc::SAXParseException const& failure) override {
        if (ToUtf8(failure.getMessage()).find("used in XPath expression can not be resolved") ==
            std::string::npos)
            XercesErrors::error(failure);
    }
};

} // namespace

void CheckSchemaSet(SchemaSet const& set, Diagnostics& diagnostics) {
    SetErrors errors(diagnostics, {});
    SetResolver resolver(set);
    xercesc::SecurityManager limits;
    limits.setEntityExpansionLimit(kMostEntityExpansions);
    xercesc::XMLGrammarPoolImpl pool;
    auto const reader =
        std::make_unique<xercesc::SAX2XMLReaderImpl>(xercesc::XMLPlatformUtils::fgMemoryManager, &pool);
    reader->setFeature(xercesc::XMLUni::fgXercesSchema, true);
    reader->setFeature(xercesc::XMLUni::fgXercesSchemaFullChecking, true);
    reader->setFeature(xercesc::XMLUni::fgXercesHandleMultipleImports, true);
    reader->setFeature(xercesc::XMLUni::fgXercesLoadExternalDTD, false);
    reader->setProperty(xercesc::XMLUni::fgXercesSecurityManager, &limits);
    reader->setErrorHandler(&errors);
    reader->setXMLEntityResolver(&resolver);
    std::unique_ptr<xercesc::InputSource> const master(resolver.NewMaster());
    try {
        reader->loadGrammar(*master, xercesc::Grammar::SchemaGrammarType, true);
    } catch (xercesc::OutOfMemoryException const&) {
        throw std::bad_alloc();
    } catch (xercesc::XMLException const& failure) {
        diagnostics.Error({}, ToUtf8(failure.getMessage()));
    } catch (xercesc::SAXException const& failure) {
        diagnostics.Error({}, ToUtf8(failure.getMessage()));
    }
}

} // namespace ZvXmlLib16::schema
