// Keys, unique values and references in small documents, by rows that state the constraints.
#include "zvxmllib/grammar/IdentityConstraints.h"
#include "zvxmllib/document/XmlAttribute.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/document/XmlElement.h"
#include "zvxmllib/foundation/Exceptions.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace ZvXmlLib16;
using namespace ZvXmlLib16::grammar;

// Declared by all elements of this name.
struct Constraint {
    char const* element;
    IdentityKind kind;
    char const* name;
    std::uint32_t refer; // index in the list
    char const* selector;
    std::vector<char const*> fields;
};

constexpr auto kKey = IdentityKind::kKey;
constexpr auto kKeyRef = IdentityKind::kKeyRef;
constexpr auto kUnique = IdentityKind::kUnique;

// Elements named nil are nillable, and nilled if they are empty.
class Walker {
public:
    explicit Walker(std::vector<Constraint> const& constraints) : m_constraints(constraints) {
        for (Constraint const& each : constraints) {
            m_identities.push_back({each.kind,
                                    each.name,
                                    "",
                                    each.refer,
                                    each.selector,
                                    {static_cast<std::uint32_t>(m_texts.size()),
                                     static_cast<std::uint32_t>(each.fields.size())}});
            m_texts.insert(m_texts.end(), each.fields.begin(), each.fields.end());
        }
        m_rows.identities = {m_identities.data(), m_identities.size()};
        m_rows.texts = {m_texts.data(), m_texts.size()};
    }
    std::string Test(std::string const& xml) {
        CXmlDocument document;
        document.LoadXml(xml.c_str());
        IdentityPaths const paths(m_rows);
        IdentityWalk walk(paths);
        m_faults.clear();
        Visit(*document.GetDocumentElement(), walk);
        std::string all;
        for (IdentityFault const& fault : m_faults)
            all += (all.empty() ? "" : " ") + fault.message;
        return all;
    }

private:
    void Visit(CXmlElement const& element, IdentityWalk& walk) {
        Range identities;
        for (std::uint32_t i = 0; i < m_constraints.size(); ++i) {
            if (m_constraints[i].element == element.GetLocalName() && identities.count++ == 0)
                identities.first = i;
        }
        walk.EnterElement(element, identities);
        for (CXmlAttribute const* attribute : element.GetAttributes()) {
            SimpleValue value;
            value.key = "\"" + attribute->GetValue();
            walk.AddAttribute(attribute->GetLocalName(), attribute->GetNamespaceURI(), &value,
                              attribute->GetValue());
        }
        for (auto const* child = element.GetFirstElement(); child != nullptr;
             child = child->GetNextSiblingElement())
            Visit(*child, walk);
        SimpleValue value;
        value.key = "\"" + element.GetText(); // as that of a string
        bool const isNillable = element.GetLocalName() == "nil";
        bool const hasSimpleType = element.GetFirstElement() == nullptr;
        bool const hasValue = hasSimpleType && !(isNillable && value.key.size() == 1);
        walk.LeaveElement(hasValue ? &value : nullptr, element.GetText(), hasSimpleType, isNillable,
                          m_faults);
    }

    std::vector<Constraint> const& m_constraints;
    std::vector<IdentityRow> m_identities;
    std::vector<char const*> m_texts;
    GrammarRows m_rows;
    std::vector<IdentityFault> m_faults;
};

struct Row {
    std::vector<Constraint> constraints;
    char const* xml;
    char const* faults;
};

constexpr char const* kTwice = "The key [k] is not unique: [1] stands twice.";
constexpr char const* kDangling = "The keyref [f] has no key [1] to refer to.";

TEST(IdentityConstraints, HoldOrTellWhatBreaksThem) {
    std::vector<Constraint> const kRef{{"r", kKey, "k", kNone, "a", {"@i"}},
                                       {"r", kKeyRef, "f", 0, "b", {"@i"}}};
    // The key belongs to g, the reference to r, which is further out.
    std::vector<Constraint> const kInner{{"g", kKey, "k", kNone, "a", {"@i"}},
                                         {"r", kKeyRef, "f", 0, "b", {"@i"}}};
    // Both the key and the reference belong to each g, which nests.
    std::vector<Constraint> const kNested{{"g", kKey, "k", kNone, "a", {"@i"}},
                                          {"g", kKeyRef, "f", 0, "b", {"@i"}}};
    for (Row const& row : {
             Row{{{"r", kKey, "k", kNone, "a", {"@i"}}}, "<r><a i='1'/><a i='2'/></r>", ""},
             Row{{{"r", kKey, "k", kNone, "a", {"@i"}}}, "<r><a i='1'/><a i='1'/></r>", kTwice},
             Row{{{"r", kKey, "k", kNone, "a", {"@i"}}}, "<x><r><a i='1'/></r><r><a i='1'/></r></x>", ""},
             Row{{{"r", kKey, "k", kNone, "a", {"@i"}}}, "<r><a/></r>", "The key [k] lacks its field [@i]."},
             Row{{{"r", kUnique, "k", kNone, "a", {"@i"}}},
                 "<r><a i='1'/><a/><a/><a i='1'/></r>",
                 "The unique [k] is not unique: [1] stands twice."},
             // Several fields: joined texts that look alike differ.
             Row{{{"r", kKey, "k", kNone, "a", {"@i", "@j"}}},
                 "<r><a i='1' j='23'/><a i='12' j='3'/></r>",
                 ""},
             Row{{{"r", kKey, "k", kNone, "a", {"@i", "@j"}}},
                 "<r><a i='1' j='2'/><a j='2' i='1'/></r>",
                 "The key [k] is not unique: [1, 2] stands twice."},
             // Paths.
             Row{{{"r", kKey, "k", kNone, ".//a", {"."}}}, "<r><b><a>1</a></b><a>1</a></r>", kTwice},
             Row{{{"r", kKey, "k", kNone, "a", {"."}}}, "<r><b><a>1</a></b><a>1</a></r>", ""},
             Row{{{"r", kKey, "k", kNone, ".//b/a", {"."}}},
                 "<r><c><b><a>1</a></b></c><b><a>1</a></b></r>",
                 kTwice},
             Row{{{"r", kKey, "k", kNone, "./a/./b", {"./@i"}}},
                 "<r><a><b i='1'/><b i='1'/></a></r>",
                 kTwice},
             Row{{{"r", kKey, "k", kNone, "a|b|*", {"@i|@j"}}}, "<r><a i='1'/><b j='1'/></r>", kTwice},
             Row{{{"r", kKey, "k", kNone, "*", {"@i|@*"}}}, "<r><a i='1'/></r>", ""},
             Row{{{"r", kKey, "k", kNone, ".", {".//@i"}}}, "<r><c><a i='1'/></c></r>", ""},
             Row{{{"r", kKey, "k", kNone, "{urn:a}x", {"@i"}}},
                 "<r xmlns:p='urn:a'><p:x i='1'/><x i='1'/><p:x i='1'/></r>",
                 kTwice},
             Row{{{"r", kKey, "k", kNone, "{urn:a/b}*", {"@{urn:a/b}i"}}},
                 "<r xmlns:p='urn:a/b'><p:x p:i='1' i='2'/><x/><p:y p:i='1'/></r>",
                 kTwice},
             Row{{{"r", kKey, "k", kNone, "{}x", {"@{}i"}}}, "<r xmlns:p='urn:a'><p:x/><x i='1'/></r>", ""},
             // What a field may select.
             Row{{{"r", kUnique, "k", kNone, "a", {"b"}}},
                 "<r><a><b>1</b><b>2</b></a></r>",
                 "The unique [k] has several nodes for its field [b]."},
             Row{{{"r", kUnique, "k", kNone, "a", {".//nil"}}},
                 "<r><a><nil/><b><nil>1</nil></b></a></r>",
                 "The unique [k] has several nodes for its field [.//nil]."},
             Row{{{"r", kUnique, "k", kNone, "a", {"b"}}},
                 "<r><a><b><c/></b></a></r>",
                 "The unique [k] has an element without a simple type for its field [b]."},
             Row{{{"r", kKey, "k", kNone, "a", {"nil"}}},
                 "<r><a><nil>1</nil></a></r>",
                 "The key [k] has a nillable element for its field [nil]."},
             Row{{{"r", kUnique, "k", kNone, "a", {"nil"}}}, "<r><a><nil/></a><a><nil/></a></r>", ""},
             // References, also ahead of their keys.
             Row{kRef, "<r><b i='1'/><b/><b i='1'/><a i='1'/></r>", ""},
             Row{kRef, "<r><b i='1'/><a i='2'/></r>", kDangling},
             Row{kInner, "<r><b i='1'/><g><a i='1'/></g></r>", ""},
             Row{kInner, "<r><b i='1'/><x><g><a i='1'/></g></x><g><a i='2'/></g></r>", ""},
             Row{kInner, "<r><b i='1'/></r>", kDangling},
             // A key that stands in two children counts in neither; in their parent's own key it does.
             Row{kInner, "<r><b i='1'/><g><a i='1'/></g><g><a i='1'/></g></r>", kDangling},
             Row{kInner, "<r><b i='1'/><g><a i='1'/></g><g><a i='1'/></g><g><a i='1'/></g></r>", kDangling},
             Row{kInner,
                 "<r><b i='1'/><g><a i='1'/></g><x><g><a i='2'/><a i='1'/></g></x><g><a i='1'/></g></r>",
                 kDangling},
             Row{kNested, "<g><b i='1'/><a i='1'/><g><a i='1'/></g><g><a i='1'/></g></g>", ""},
             Row{kNested, "<g><a i='1'/><g><b i='1'/></g></g>", kDangling},
             // Once dropped it is gone: further out another place of it is the only one.
             Row{kInner, "<r><b i='1'/><x><g><a i='1'/></g><g><a i='1'/></g></x><g><a i='1'/></g></r>", ""},
         })
        EXPECT_EQ(Walker(row.constraints).Test(row.xml), row.faults)
            << row.constraints[0].selector << " in " << row.xml;
}

TEST(IdentityConstraints, RefusePathsThatAreNone) {
    for (char const* path :
         {"", "/", "a/", "/a", "a//b", "a|", "|a", "{urn:a", "{urn:a}", "@", "@a/b", "a b"}) {
        std::vector<Constraint> const constraints{{"r", kKey, "k", kNone, "a", {path}}};
        EXPECT_THROW(Walker(constraints).Test("<r/>"), CZvInvalidParamException) << path;
    }
    std::vector<Constraint> const constraints{{"r", kKey, "k", kNone, "a/@b", {"."}}};
    EXPECT_THROW(Walker(constraints).Test("<r/>"), CZvInvalidParamException);
}

} // namespace
