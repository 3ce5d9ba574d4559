// Every message of generated classes and their tables.
#pragma once

#include "zvxmllib/binding/Failures.h"
#include "zvxmllib/foundation/Forward.h"

#include <string>
#include <string_view>

namespace ZvXmlLib16Data {

using ZvXmlLib16::CZvException;

// Used by other readers of elements, too.
using ZvXmlLib16::FailFacetOfRead;
using ZvXmlLib16::FailNilNotAllowed;
using ZvXmlLib16::FailNilValue;
using ZvXmlLib16::FailNoSubstitution;
using ZvXmlLib16::FailRequiredWildcard;
using ZvXmlLib16::FailUnexpectedAttribute;
using ZvXmlLib16::FailUnreadElement;

// The driver. The texts of a group type out of range differ between writing and reading.
[[noreturn]] void FailToWriteElement(std::string const& name, CZvException const& cause);
[[noreturn]] void FailToWriteAttributes(CZvException const& cause);
[[noreturn]] void FailUnknownXmlGroupType();
[[noreturn]] void FailNoChoiceToWrite();
[[noreturn]] void FailUnknownGroupType();
[[noreturn]] void FailNoChoiceFound(std::string const& name, std::string const& path);

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

// Of a class without AccessProperty.
[[noreturn]] void FailUnknownProperty(int index);
// Of a table whose property is a member of a type that does not fit.
[[noreturn]] void FailMember(char const* name, bool isNillable);

// Of a strict context alone. `text` is of the document.
[[noreturn]] void FailPlaceOfText(std::string const& name, std::string const& path);
[[noreturn]] void FailText(std::string_view text, std::string const& path);
[[noreturn]] void FailNilToWrite(std::string const& name);
[[noreturn]] void FailEmptyOverDefault(std::string const& name, std::string const& defaultValue);

} // namespace ZvXmlLib16Data
