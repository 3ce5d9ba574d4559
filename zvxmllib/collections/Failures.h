// Every failure of the collections and of untyped content.
#pragma once

#include "zvxmllib/values/dates/DateTime.h"

#include <string>

namespace ZvXmlLib16 {

class CZvException;

[[noreturn]] void FailIndexOutOfRange();
[[noreturn]] void FailIndexOutOfRange(int index, int count);
[[noreturn]] void FailItemNotFound();
// `kind` is the one that the collection takes.
[[noreturn]] void FailKindOfDate(CDateTime::DTType kind);

[[noreturn]] void FailAttributeReadAlone();
[[noreturn]] void FailAttributeNamespace(std::string const& localName, std::string const& path);
[[noreturn]] void FailNullElementName();
[[noreturn]] void FailNullElementNamespace();
[[noreturn]] void FailNullNamespaceRestriction();
[[noreturn]] void FailNullTargetNamespace();
[[noreturn]] void FailReservedNamespace(std::string const& ns);
[[noreturn]] void FailNoItemNamespace();
[[noreturn]] void FailInvalidElement(std::string const& localName, std::string const& path);
[[noreturn]] void FailNamespaceRestriction(std::string const& ns, std::string const& name,
                                           std::string const& allowed, CZvException const& cause);

} // namespace ZvXmlLib16
