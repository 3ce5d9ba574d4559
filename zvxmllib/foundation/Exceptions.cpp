// The CZvException family and its message chain.
#include "zvxmllib/foundation/Exceptions.h"

#include <utility>

namespace ZvXmlLib16 {

CZvException::CZvException() = default;

CZvException::CZvException(std::string message) : m_message(std::move(message)) {}

CZvException::CZvException(std::string message, CZvException const& inner)
    : m_message(std::move(message)), m_inner(inner.Clone()), m_line(inner.m_line), m_column(inner.m_column) {}

CZvException::CZvException(std::string message, std::string path)
    : m_message(std::move(message)), m_path(std::move(path)) {
    if (!m_path.empty())
        m_message.append("\nPath: ").append(m_path);
}

CZvException::CZvException(std::string message, std::string path, CZvException const& inner)
    : CZvException(std::move(message), std::move(path)) {
    m_inner.reset(inner.Clone());
    SetPosition(inner.m_line, inner.m_column);
}

CZvException::CZvException(CZvException const& other)
    : m_message(other.m_message), m_path(other.m_path),
      m_inner(other.m_inner != nullptr ? other.m_inner->Clone() : nullptr), m_line(other.m_line),
      m_column(other.m_column) {}

CZvException& CZvException::operator=(CZvException const& other) {
    CZvException copy(other); // first, since `other` may be this object or a part of its own chain
    m_message.swap(copy.m_message);
    m_path.swap(copy.m_path);
    m_inner.swap(copy.m_inner);
    SetPosition(copy.m_line, copy.m_column);
    return *this;
}

CZvException::~CZvException() = default;

CZvException* CZvException::Clone() const {
    return new CZvException(*this);
}

std::string CZvException::GetMessage() const {
    return m_message;
}

std::string CZvException::GetFullMessage() const {
    std::string text = m_message;
    for (CZvException const* cause = m_inner.get(); cause != nullptr; cause = cause->m_inner.get())
        text.append("\n").append(cause->m_message);
    return text;
}

std::string CZvException::GetPath() const {
    return m_path;
}

void CZvException::SetPosition(std::uint64_t line, std::uint64_t column) noexcept {
    m_line = line;
    m_column = column;
}

CZvException const* CZvException::GetInnerException() const {
    return m_inner.get();
}

// What all derived classes share, and the two kinds of their other constructors.
#define ZV_DEFINE_EXCEPTION(Class, Base)                                                                     \
    Class::Class() = default;                                                                                \
    Class::Class(CZvException const& other) : Base(other) {}                                                 \
    Class::~Class() = default;                                                                               \
    CZvException* Class::Clone() const {                                                                     \
        return new Class(*this);                                                                             \
    }
#define ZV_DEFINE_WITH_PATH(Class, Base)                                                                     \
    ZV_DEFINE_EXCEPTION(Class, Base)                                                                         \
    Class::Class(std::string message, std::string path) : Base(std::move(message), std::move(path)) {}       \
    Class::Class(std::string message, std::string path, CZvException const& inner)                           \
        : Base(std::move(message), std::move(path), inner) {}
#define ZV_DEFINE_WITHOUT_PATH(Class, Base)                                                                  \
    ZV_DEFINE_EXCEPTION(Class, Base)                                                                         \
    Class::Class(std::string message) : Base(std::move(message), std::string()) {}                           \
    Class::Class(std::string message, CZvException const& inner)                                             \
        : Base(std::move(message), std::string(), inner) {}

ZV_DEFINE_WITH_PATH(CZvValidationException, CZvException)
ZV_DEFINE_WITHOUT_PATH(CZvInvalidValueException, CZvValidationException)
ZV_DEFINE_WITH_PATH(CZvInvalidNamespaceException, CZvValidationException)
ZV_DEFINE_WITHOUT_PATH(CZvInvalidStateException, CZvException)
ZV_DEFINE_WITHOUT_PATH(CZvInvalidParamException, CZvException)
ZV_DEFINE_WITHOUT_PATH(CZvOverFlowException, CZvException)

#undef ZV_DEFINE_WITHOUT_PATH
#undef ZV_DEFINE_WITH_PATH
#undef ZV_DEFINE_EXCEPTION

} // namespace ZvXmlLib16
