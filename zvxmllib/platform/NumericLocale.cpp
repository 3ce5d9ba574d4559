// Makes number formatting and parsing of the current thread independent of the process locale.
#include "zvxmllib/platform/NumericLocale.h"

#include <locale.h>

namespace ZvXmlLib16::platform {

namespace {

locale_t CLocale() noexcept {
    static locale_t const locale = ::newlocale(LC_ALL_MASK, "C", nullptr);
    return locale;
}

} // namespace

// Setting a null locale changes nothing and returns the current one, so the guard is harmless without one.
CNumericLocaleGuard::CNumericLocaleGuard() noexcept : m_previous(::uselocale(CLocale())) {}

CNumericLocaleGuard::~CNumericLocaleGuard() {
    ::uselocale(static_cast<locale_t>(m_previous));
}

} // namespace ZvXmlLib16::platform
