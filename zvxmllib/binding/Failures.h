// Every failure of the binding core.
#pragma once

#include <cstdint>
#include <string>

namespace ZvXmlLib16 {

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

} // namespace ZvXmlLib16
