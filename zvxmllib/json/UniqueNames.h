// UniqueNames, which finds a name that stands twice in a JSON object. Header only.
#pragma once

#include "zvxmllib/document/PlainNames.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace ZvXmlLib16::detail {

// The names of the open objects. Each name remembers the innermost object that has it, so a question takes
// the same time however many members an object has.
class UniqueNames {
public:
    // What was there before an object began.
    struct Place {
        std::uint64_t object;
        std::size_t members;
    };
    Place Enter() {
        Place const outside{m_object, m_members.size()};
        m_object = ++m_lastObject;
        return outside;
    }
    void Leave(Place const& outside) noexcept {
        for (; m_members.size() != outside.members; m_members.pop_back())
            m_members.back().name->object = m_members.back().objectBefore;
        m_object = outside.object;
    }

    // Whether it has been a member before.
    static bool IsKnown(PlainName const& name) noexcept { return name.object != 0; }
    // A member of the innermost object, or of the whole text. False if that has one of this name.
    bool Add(PlainName& name) {
        if (name.object == m_object)
            return false;
        m_members.push_back({&name, IsKnown(name) ? name.object : kNoObject});
        name.object = m_object;
        return true;
    }

private:
    static constexpr std::uint64_t kNoObject = 1;

    struct Member {
        PlainName* name;
        std::uint64_t objectBefore;
    };

    std::vector<Member> m_members; // of all open objects, the innermost last
    std::uint64_t m_object = 2;
    std::uint64_t m_lastObject = m_object;
};

} // namespace ZvXmlLib16::detail
