// Reads an XML text into a probe of a model and writes it again.
#pragma once

#include "tests/support/Entries.h"
#include "zvxmllib/binding/context/SerializationContext.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/document/XmlElement.h"

#include <gmock/gmock.h>

namespace entries {

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

inline CSerializationContext Ignoring(void (CSerializationContext::*option)(bool)) {
    CSerializationContext ctx;
    (ctx.*option)(true);
    return ctx;
}

} // namespace entries
