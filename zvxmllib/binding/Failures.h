// Every failure of the binding core.
#pragma once

#include <cstdint>
#include <string>

namespace ZvXmlLib16 {

class CZvException;
class CZvValidationException;

[[noreturn]] void FailWrongVersion(std::int32_t generatorMajor, std::int32_t generatorMinor);
[[noreturn]] void FailNestingTooDeep(int limit);

[[noreturn]] void FailPropertyIsNull(std::string const& name);
[[noreturn]] void FailElementNameDiffers(std::string const& required, std::string const& actual);
[[noreturn]] void FailChoiceAlreadySelected(std::string const& selected);
[[noreturn]] void FailChoiceAlreadyValid(std::string const& selected);
[[noreturn]] void FailNamespaceNotAllowed(std::string const& ns, std::string const& allowed,
                                          std::string const& target);

[[noreturn]] void FailTargetNamespaceOfCollection();
[[noreturn]] void FailTooManyItems(std::string const& elementName, int maxOccurs);
[[noreturn]] void FailTooFewItems(std::string const& elementName, int minOccurs);

// Elements and attributes of a document.
[[noreturn]] void FailUnreadElement(std::string const& name, std::string const& unread,
                                    std::string const& path);
[[noreturn]] void FailNoSubstitution(std::string const& name, std::string const& path);
[[noreturn]] void FailRequiredWildcard(std::string const& ns, std::string const& path);
[[noreturn]] void FailUnexpectedAttribute(std::string const& path);
[[noreturn]] void FailNilNotAllowed(std::string const& path);
[[noreturn]] void FailNilValue(std::string const& value, std::string const& path);
CZvValidationException WithPathOfElement(std::string const& path, CZvException const& cause);
[[noreturn]] void FailContentOfNil(std::string const& name, std::string const& path);
[[noreturn]] void FailFacetOfRead(CZvException const& cause, std::string const& path);
[[noreturn]] void FailUnknownAlias(std::string const& alias, std::string const& path);
[[noreturn]] void FailRootElement(std::string const& name, std::string const& ns,
                                  std::string const& foundName, std::string const& foundNs,
                                  std::string const& path);

} // namespace ZvXmlLib16
