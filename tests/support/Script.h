// The calls of a writer in short form, for tests.
#pragma once

#include "zvxmllib/writers/XmlWriter.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

// "(a @x=1 'hi')" is an element with an attribute and a text. The parts, between which blanks are free:
//   (name  )             start and end of an element
//   'hi'  #5             its value as a text, and as an i4
//   @name=1  @name='hi'  an attribute; a name may have its namespace ahead: @ns|name=1, (ns|name
//   ^ns|name  %          the attributes xsi:type and xsi:nil
//   !p=ns  *ns           an alias for a namespace, and the default namespace
//   [  ]                 begin and end of a collection
//   ?  $  ~              the instruction <?p?>, the schema <s/> and the comment c
class Script {
public:
    Script(char const* text) : m_text(text) {}
    Script(std::string text) : m_text(std::move(text)) {}

    void operator()(ZvXmlLib16::CXmlWriter& w) const {
        for (Place at{m_text}; !at.rest.empty();)
            Call(w, at);
    }

private:
    struct Place {
        std::string_view rest;

        char Take() {
            char const c = rest.front();
            rest.remove_prefix(1);
            return c;
        }
        bool TakeIf(char c) { return !rest.empty() && rest.front() == c && (Take(), true); }
        std::string Word() {
            bool const isQuoted = TakeIf('\'');
            std::size_t const end = rest.find_first_of(isQuoted ? "'" : " ()[]=|'");
            std::string word(rest.substr(0, end));
            rest.remove_prefix(std::min(word.size() + isQuoted, rest.size()));
            return word;
        }
        std::pair<std::string, std::string> NamespaceAndName() {
            std::string first = Word();
            return TakeIf('|') ? std::pair(first, Word()) : std::pair(std::string(), first);
        }
        std::string WordBehind(char c) { return TakeIf(c) ? Word() : std::string(); }
    };

    static void Call(ZvXmlLib16::CXmlWriter& w, Place& at) {
        using namespace ZvXmlLib16;
        if (at.rest.front() == '\'')
            return w.WriteElementValue(at.Word(), ItemType_string, false);
        switch (at.Take()) {
        case '#':
            return w.WriteElementValue(at.Word(), ItemType_i4, false);
        case '(': {
            auto const [ns, name] = at.NamespaceAndName();
            return w.WriteElementStart(name, ns);
        }
        case ')':
            return w.WriteElementEnd();
        case '@': {
            auto const [ns, name] = at.NamespaceAndName();
            return w.WriteAttribute(name, ns, at.WordBehind('='), ItemType_string);
        }
        case '^': {
            auto const [ns, name] = at.NamespaceAndName();
            return w.WriteTypeAttribute(ns, name, ItemType_string);
        }
        case '%':
            return w.WriteNilAttribute();
        case '!': {
            std::string const alias = at.Word();
            return w.AddNamespaceAlias(alias, at.WordBehind('='));
        }
        case '*':
            return w.SetDefaultNamespace(at.Word());
        case '[':
            return w.SetCollectionState(1);
        case ']':
            return w.SetCollectionState(3);
        case '?':
            return w.WriteProcessingInstruction("<?p?>");
        case '$':
            return w.WriteInlineSchema("<s/>");
        case '~':
            return w.WriteComment("c");
        default: // a blank
            return;
        }
    }

    std::string m_text;
};
