// KnownElements, what the tables of a class and of the groups in it know.
#pragma once

#include "zvxmllib/driver/XmlGeneratedClass.h"

#include <vector>

namespace ZvXmlLib16Data {

// Made for one object ahead of its reading, and asked for each child of its element.
class KnownElements {
public:
    // `object` outlives this one.
    explicit KnownElements(ZvXmlLib16::CXmlGeneratedClass& object);

    // True for what an entry accepts, and for all where the tables do not tell everything.
    bool Accept(ZvXmlLib16::CSerializationContext const& ctx, ZvXmlLib16::CXmlElement const& element) const;

private:
    struct Entry {
        CElementInfo const* info;
        ZvXmlLib16::CXmlGeneratedClass const* object;
    };

    void Add(ZvXmlLib16::CXmlGeneratedClass& object);

    std::vector<Entry> m_entries;
    std::vector<CSmartPtr<ZvXmlLib16::CXmlObjectBase>> m_groups; // that were made to be asked
    bool m_isComplete = true;
};

} // namespace ZvXmlLib16Data
