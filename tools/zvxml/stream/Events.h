// A document as a stream of events: what sources of all forms send, and sinks of all forms take.
#pragma once

#include "../Errors.h"

#include <string_view>
#include <vector>

namespace zvxml {

// All texts are UTF-8, borrowed, and valid during the call only.
struct Name {
    std::string_view qualified; // with its prefix
    std::string_view prefix;
    std::string_view local;
    std::string_view uri;
};

// An empty prefix is that of the default namespace.
struct Declaration {
    std::string_view prefix;
    std::string_view uri;
};

struct Attribute {
    Name name;
    std::string_view value;
};

struct StartTag {
    Name name;
    std::vector<Declaration> declarations;
    std::vector<Attribute> attributes;
};

struct DocumentType {
    std::string_view text; // from "<!DOCTYPE" to ">"; empty where it is not XML text
};

// Events come in the order of the document, which is well-formed and has its prefixes declared.
class Receiver {
public:
    Receiver() = default;
    Receiver(Receiver const&) = delete;
    Receiver& operator=(Receiver const&) = delete;
    virtual ~Receiver() = default;

    // Of XML text that has one.
    virtual void XmlDeclaration() {}
    virtual void Start(StartTag const& tag) = 0;
    // May come in several pieces.
    virtual void Text(std::string_view text) = 0;
    // `name` is the qualified one.
    virtual void End(std::string_view name) = 0;
    virtual void Comment(std::string_view) {}
    virtual void Instruction(std::string_view /*target*/, std::string_view /*data*/) {}
    virtual void Type(DocumentType const&) {}
    // Around the text of a CDATA section.
    virtual void StartSection() {}
    virtual void EndSection() {}
    // After the last event.
    virtual void Finish() {}
};

class InfosetVocabulary;

// A document that can be read from its beginning any number of times.
class Source {
public:
    Source() = default;
    Source(Source const&) = delete;
    Source& operator=(Source const&) = delete;
    virtual ~Source() = default;

    // Throws DocumentError, which has the place.
    virtual void Read(Receiver& receiver) = 0;
    // Of the event that is being sent.
    virtual Place GetPlace() const = 0;
    // What Fast Infoset refers to by numbers, as it is after Read; null for other forms.
    virtual InfosetVocabulary const* GetVocabulary() const { return nullptr; }
};

} // namespace zvxml
