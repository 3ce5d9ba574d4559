#include "schema/frontend/Outline.h"

#include "schema/frontend/XercesText.h"

#include <xercesc/framework/MemBufInputSource.hpp>
#include <xercesc/sax/Locator.hpp>
#include <xercesc/sax2/Attributes.hpp>
#include <xercesc/sax2/DefaultHandler.hpp>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/sax2/XMLReaderFactory.hpp>
#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/PlatformUtils.hpp>
#include <xercesc/util/SecurityManager.hpp>
#include <xercesc/util/XMLUni.hpp>

#include <algorithm>

namespace ZvXmlLib16::schema {

namespace {

constexpr char const* kWhiteSpace = " \t\r\n";
constexpr std::size_t kMostDepth = 5000;

// How often entities may stand in a document: what they hold together is bounded, since none is longer than
// the document.
XMLSize_t MostEntityExpansions(std::size_t documentSize) {
    constexpr std::size_t kMostText = 50000000;
    return std::clamp<XMLSize_t>(kMostText / (documentSize + 1), 500, 10000);
}

std::string Trim(std::string const& text) {
    std::size_t const begin = text.find_first_not_of(kWhiteSpace);
    return begin == std::string::npos ? std::string()
                                      : text.substr(begin, text.find_last_not_of(kWhiteSpace) - begin + 1);
}

// Thrown through the parser, which hands it on.
struct TooDeep {};

class OutlineBuilder : public xercesc::DefaultHandler {
public:
    std::unique_ptr<OutlineNode> TakeRoot() { return std::move(m_root); }

    void setDocumentLocator(xercesc::Locator const* locator) override { m_locator = locator; }

    void startPrefixMapping(XMLCh const* prefix, XMLCh const* uri) override {
        m_bindings.emplace_back(ToUtf8(prefix), ToUtf8(uri));
    }

    void startElement(XMLCh const* uri, XMLCh const* name, XMLCh const*,
                      xercesc::Attributes const& attributes) override {
        if (m_ignored != 0 || (!m_open.empty() && IsOpaque(*m_open.back()))) {
            ++m_ignored;
            m_bindings.clear();
            return;
        }
        if (m_open.size() >= kMostDepth)
            throw TooDeep();
        auto node = std::make_unique<OutlineNode>();
        node->name = ToUtf8(name);
        node->ns = ToUtf8(uri);
        for (XMLSize_t i = 0; i < attributes.getLength(); ++i) {
            std::string ns = ToUtf8(attributes.getURI(i));
            std::string value = ToUtf8(attributes.getValue(i));
            // Patterns and other facets keep their white space.
            std::string local = ToUtf8(attributes.getLocalName(i));
            if (local != "value" && local != "default" && local != "fixed")
                value = Trim(value);
            node->attributes.push_back({std::move(local), std::move(ns), std::move(value)});
        }
        std::shared_ptr<NamespaceScope const> const outer = m_open.empty() ? nullptr : m_open.back()->scope;
        node->scope = outer;
        if (!m_bindings.empty() || outer == nullptr) {
            auto scope = std::make_shared<NamespaceScope>();
            scope->parent = outer;
            scope->bindings.swap(m_bindings);
            node->scope = scope;
        }
        node->line = static_cast<unsigned>(m_locator->getLineNumber());
        node->column = static_cast<unsigned>(m_locator->getColumnNumber());
        OutlineNode* const raw = node.get();
        if (m_open.empty())
            m_root = std::move(node);
        else
            m_open.back()->children.push_back(std::move(node));
        m_open.push_back(raw);
    }

    void endElement(XMLCh const*, XMLCh const*, XMLCh const*) override {
        if (m_ignored != 0)
            --m_ignored;
        else
            m_open.pop_back();
    }

    void characters(XMLCh const* text, XMLSize_t length) override {
        if (!m_open.empty() && IsOpaque(*m_open.back()))
            m_open.back()->text += ToUtf8(text, length);
    }

private:
    static bool IsOpaque(OutlineNode const& node) {
        return node.IsSchema("documentation") || node.IsSchema("appinfo");
    }

    xercesc::Locator const* m_locator = nullptr;
    std::vector<std::pair<std::string, std::string>> m_bindings;
    std::unique_ptr<OutlineNode> m_root;
    std::vector<OutlineNode*> m_open;
    std::size_t m_ignored = 0; // levels inside documentation and appinfo
};

} // namespace

std::string const* NamespaceScope::Find(std::string_view prefix) const noexcept {
    for (NamespaceScope const* scope = this; scope != nullptr; scope = scope->parent.get()) {
        for (auto const& [name, uri] : scope->bindings) {
            if (name == prefix)
                return &uri;
        }
    }
    static std::string const xml = kXmlNamespace;
    return prefix == "xml" ? &xml : nullptr;
}

std::string const* OutlineNode::Find(std::string_view attribute) const noexcept {
    for (Attribute const& candidate : attributes) {
        if (candidate.name == attribute && candidate.ns.empty())
            return &candidate.value;
    }
    return nullptr;
}

std::string OutlineNode::Get(std::string_view attribute, std::string_view otherwise) const {
    std::string const* const found = Find(attribute);
    return found == nullptr ? std::string(otherwise) : *found;
}

bool OutlineNode::IsTrue(std::string_view attribute) const {
    std::string const* const found = Find(attribute);
    return found != nullptr && (*found == "true" || *found == "1");
}

OutlineNode const* OutlineNode::Child(std::string_view localName) const noexcept {
    for (auto const& child : children) {
        if (child->IsSchema(localName))
            return child.get();
    }
    return nullptr;
}

std::string OutlineNode::Documentation() const {
    std::string all;
    for (auto const& annotation : children) {
        if (!annotation->IsSchema("annotation"))
            continue;
        for (auto const& part : annotation->children) {
            if (part->IsSchema("documentation"))
                all += (all.empty() ? "" : "\n") + Trim(part->text);
        }
    }
    return all;
}

ParserLibrary::ParserLibrary() {
    xercesc::XMLPlatformUtils::Initialize();
}

ParserLibrary::~ParserLibrary() {
    xercesc::XMLPlatformUtils::Terminate();
}

std::unique_ptr<OutlineNode> ReadOutline(std::string const& bytes, std::string const& file,
                                         Diagnostics& diagnostics) {
    XercesErrors errors(diagnostics, file);
    OutlineBuilder builder;
    xercesc::SecurityManager limits;
    limits.setEntityExpansionLimit(MostEntityExpansions(bytes.size()));
    std::unique_ptr<xercesc::SAX2XMLReader> const reader(xercesc::XMLReaderFactory::createXMLReader());
    reader->setFeature(xercesc::XMLUni::fgSAX2CoreValidation, false);
    reader->setFeature(xercesc::XMLUni::fgXercesLoadExternalDTD, false);
    reader->setFeature(xercesc::XMLUni::fgXercesDisableDefaultEntityResolution, true);
    reader->setProperty(xercesc::XMLUni::fgXercesSecurityManager, &limits);
    reader->setContentHandler(&builder);
    reader->setErrorHandler(&errors);
    XercesText const id(file);
    xercesc::MemBufInputSource const source(reinterpret_cast<XMLByte const*>(bytes.data()), bytes.size(),
                                            id.Get());
    try {
        reader->parse(source);
    } catch (xercesc::OutOfMemoryException const&) {
        throw std::bad_alloc();
    } catch (xercesc::XMLException const& failure) {
        diagnostics.Error({file, static_cast<unsigned>(failure.getSrcLine()), 0},
                          ToUtf8(failure.getMessage()));
    } catch (xercesc::SAXException const& failure) {
        diagnostics.Error({file}, ToUtf8(failure.getMessage()));
    } catch (TooDeep const&) {
        diagnostics.Error({file}, "elements nest deeper than " + std::to_string(kMostDepth) + " levels");
    }
    return diagnostics.HasErrors() ? nullptr : builder.TakeRoot();
}

} // namespace ZvXmlLib16::schema
