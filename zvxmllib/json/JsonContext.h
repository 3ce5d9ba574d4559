// CJsonContext, the JSON options of one serialisation or one read.
#pragma once

#include "zvxmllib/platform/Api.h"

#include <cstdint>
#include <string>

namespace ZvXmlLib16 {

// How much of the XML a JSON text keeps, on writing and on reading.
enum JsonRoundTrip : std::int32_t {
    JsonRoundTrip_None = 0,         // attributes as plain members, texts beside them under the empty name
    JsonRoundTrip_NoNamespaces = 1, // attributes with "@" before the name, texts as "#text"
    JsonRoundTrip_Full = 2          // also prefixes on names, their declarations, and xsi:type
};

// Part of a CSerializationContext, returned by its GetJsonContext. Belongs to one thread, as the context
// does.
class ZV_API CJsonContext {
public:
    CJsonContext();
    CJsonContext(CJsonContext const& other);
    CJsonContext& operator=(CJsonContext const& other);
    virtual ~CJsonContext();

    // JsonRoundTrip_Full at first.
    JsonRoundTrip GetSupportRoundtrip() const noexcept { return m_roundTrip; }
    void SetSupportRoundtrip(JsonRoundTrip roundTrip) noexcept { m_roundTrip = roundTrip; }

    // Reading: the name of the root element, for texts whose outermost object is the root itself. Empty for
    // texts whose outermost object has the root as its one member. Null counts as empty.
    std::string GetRootElementName() const;
    void SetRootElementName(char const* name);

    // Reading: whether comments may stand between tokens. True at first.
    bool GetAllowComments() const noexcept { return m_allowComments; }
    // Sets it.
    void GetAllowComments(bool allow) noexcept { m_allowComments = allow; }

private:
    JsonRoundTrip m_roundTrip = JsonRoundTrip_Full;
    std::string m_rootElementName;
    bool m_allowComments = true;
};

} // namespace ZvXmlLib16
