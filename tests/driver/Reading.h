// Reads an XML text into a probe of a model and writes it again.
#pragma once

#include "tests/support/Entries.h"
#include "tests/support/MessageOf.h"
#include "tests/support/PlainContext.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/document/XmlElement.h"

#include <gmock/gmock.h>

#include <utility>

namespace entries {

// An element "order" of these entries.
struct OrderOf : Model {
    OrderOf(XmlElementGroupType groupType, std::vector<CElementInfo*> entries,
            std::function<void(Probe&)> initial = {}) {
        group = groupType;
        elements = std::move(entries);
        init = std::move(initial);
        Finish();
    }
    explicit OrderOf(std::vector<CElementInfo*> entries, std::function<void(Probe&)> initial = {})
        : OrderOf(XmlElementGroupType_Sequence, std::move(entries), std::move(initial)) {}
};

inline std::string Write(Probe& probe, CSerializationContext const& ctx = CSerializationContext()) {
    return probe.ToXml(false, false, EOLType_LF, ctx);
}

inline std::string Rewrite(Model& model, char const* xml,
                           CSerializationContext const& ctx = CSerializationContext()) {
    CSmartPtr<Probe> const probe(new Probe(model));
    probe->FromXml(xml, ctx);
    return Write(*probe, ctx);
}

// The outcome of reading: what is written again, or the failure with its class and chain.
inline std::string Outcome(Model& model, char const* xml,
                           CSerializationContext const& ctx = CSerializationContext()) {
    try {
        return Rewrite(model, xml, ctx);
    } catch (CZvException const& failure) {
        return failure.GetFullMessage();
    }
}

struct ReadRow {
    std::string xml;
    std::string outcome; // empty if the same is written again
};

inline void ExpectOutcomes(Model& model, std::vector<ReadRow> const& rows,
                           CSerializationContext const& ctx = CSerializationContext()) {
    for (ReadRow const& row : rows)
        EXPECT_EQ(Outcome(model, row.xml.c_str(), ctx), row.outcome.empty() ? row.xml : row.outcome)
            << row.xml;
}

// The failures of reading an order, and of writing one.
inline std::string Unread(char const* child) {
    return std::string("Failed read all the elements held within the element [order]. The unexpected element "
                       "[") +
           child + "] remains un processed\nPath: /order";
}
inline std::string Missing(char const* child, char const* path = "/order") {
    return std::string("Failed to find the required child element [") + child + "].\nPath: " + path;
}
inline std::string Failed(std::string const& cause) {
    return "Failed to process the element.\nPath: /order\n" + cause;
}
template <class Exception = CZvException>
std::string ReadFailure(Probe& probe, char const* xml,
                        CSerializationContext const& ctx = CSerializationContext()) {
    return MessageOf<Exception>([&] { probe.FromXml(xml, ctx); });
}
// Behind the link of the order itself.
inline std::string WriteFailure(Probe& probe) {
    std::string const message = MessageOf<CZvValidationException>([&] { Write(probe); });
    std::string const link = "Failed to convert the element [order] to XML\n";
    return message.substr(0, link.size()) == link ? message.substr(link.size())
                                                  : "without a link: " + message;
}

inline CSerializationContext Ignoring(void (CSerializationContext::*option)(bool)) {
    CSerializationContext ctx;
    (ctx.*option)(true);
    return ctx;
}

} // namespace entries
