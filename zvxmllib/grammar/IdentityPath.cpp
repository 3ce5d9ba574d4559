#include "zvxmllib/grammar/IdentityPath.h"

#include "zvxmllib/foundation/Exceptions.h"

#include <algorithm>

namespace ZvXmlLib16::grammar {

namespace {

class PathParser {
public:
    PathParser(std::string_view text, bool isField) noexcept
        : m_text(text), m_rest(text), m_isField(isField) {}

    std::vector<IdentityPath> Parse() {
        std::vector<IdentityPath> paths;
        do {
            paths.push_back(ParseAlternative());
        } while (Take("|"));
        if (!m_rest.empty())
            Fail();
        return paths;
    }

private:
    [[noreturn]] void Fail() const {
        throw CZvInvalidParamException("The path [" + std::string(m_text) +
                                       "] is not one of an identity constraint.");
    }
    bool Take(std::string_view token) noexcept {
        if (m_rest.compare(0, token.size(), token) != 0)
            return false;
        m_rest.remove_prefix(token.size());
        return true;
    }
    IdentityPath ParseAlternative() {
        IdentityPath path;
        path.isDeep = Take(".//");
        do {
            if (m_isField && Take("@")) {
                path.hasAttribute = true;
                path.attribute = ParseName();
                return path;
            }
            if (!Take("."))
                path.steps.push_back(ParseName());
        } while (Take("/"));
        return path;
    }
    NameTest ParseName() {
        NameTest test;
        bool hasNamespace = false;
        if (Take("{")) {
            std::size_t const end = m_rest.find('}');
            if (end == std::string_view::npos)
                Fail();
            test.ns = m_rest.substr(0, end);
            m_rest.remove_prefix(end + 1);
            hasNamespace = true;
        }
        std::string_view const name =
            m_rest.substr(0, std::min(m_rest.find_first_of("/|@{}: \t\r\n"), m_rest.size()));
        if (name.empty())
            Fail();
        m_rest.remove_prefix(name.size());
        test.isAnyName = name == "*";
        test.isAnyNamespace = test.isAnyName && !hasNamespace;
        test.name = name;
        return test;
    }

    std::string_view m_text;
    std::string_view m_rest;
    bool m_isField;
};

} // namespace

std::vector<IdentityPath> ParseIdentityPath(std::string_view text, bool isField) {
    return PathParser(text, isField).Parse();
}

} // namespace ZvXmlLib16::grammar
