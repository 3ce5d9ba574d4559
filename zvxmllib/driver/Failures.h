// Every message of generated classes and their tables.
#pragma once

#include "zvxmllib/foundation/Forward.h"

#include <string>

namespace ZvXmlLib16Data {

using ZvXmlLib16::CZvException;

// The driver. The texts of a group type out of range differ between writing and reading.
[[noreturn]] void FailToWriteElement(std::string const& name, CZvException const& cause);
[[noreturn]] void FailToWriteAttributes(CZvException const& cause);
[[noreturn]] void FailUnknownXmlGroupType();
[[noreturn]] void FailNoChoiceToWrite();
[[noreturn]] void FailToReadElement(std::string const& path, CZvException const& cause);
[[noreturn]] void FailUnknownGroupType();
[[noreturn]] void FailNoChoiceFound(std::string const& name, std::string const& path);
[[noreturn]] void FailUnreadElement(std::string const& name, std::string const& unread,
                                    std::string const& path);

// The entries.
[[noreturn]] void FailPropertyGet(std::string const& name, CZvException const& cause);
[[noreturn]] void FailAttributePropertySet(std::string const& value, std::string const& path,
                                           CZvException const& cause);
[[noreturn]] void FailElementPropertySet(std::string const& path, CZvException const& cause);
[[noreturn]] void FailRequiredAttribute(std::string const& name);
[[noreturn]] void FailNoAttributeCollection();
[[noreturn]] void FailNoCollection(std::string const& name);
[[noreturn]] void FailNoValidate();
[[noreturn]] void FailCheckRestriction(std::string const& type);
[[noreturn]] void FailMandatoryProperty(std::string const& name);
[[noreturn]] void FailRequiredChild(std::string const& name, std::string const& path);
[[noreturn]] void FailMandatoryElement(std::string const& name);
[[noreturn]] void FailNoSubstitution(std::string const& name, std::string const& path);
[[noreturn]] void FailRequiredWildcard(std::string const& ns, std::string const& path);
[[noreturn]] void FailUnexpectedAttribute(std::string const& path);
[[noreturn]] void FailNilNotAllowed(std::string const& path);
[[noreturn]] void FailNilValue(std::string const& value, std::string const& path);

} // namespace ZvXmlLib16Data
