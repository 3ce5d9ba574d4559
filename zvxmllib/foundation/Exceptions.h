// The CZvException family: every failure of the library except std::bad_alloc. Thrown by value, caught by
// reference.
#pragma once

#include "zvxmllib/platform/Api.h"

#include <cstdint>
#include <memory>
#include <string>

namespace ZvXmlLib16 {

// A message, the path of the place in the document where the failure arose, and an owned copy of the
// exception that caused this one. A non-empty path is appended to the message after "\nPath: ".
class ZV_API CZvException {
public:
    CZvException();
    // By message, path, and cause, which is copied.
    explicit CZvException(std::string message);
    CZvException(std::string message, CZvException const& inner);
    CZvException(std::string message, std::string path);
    CZvException(std::string message, std::string path, CZvException const& inner);
    CZvException(CZvException const& other);
    CZvException& operator=(CZvException const& other);
    virtual ~CZvException();

    // The message of this exception alone, with its path line.
    std::string GetMessage() const;
    // The chain from this exception to its cause, separated by line feeds.
    std::string GetFullMessage() const;
    // Empty when there is no path.
    std::string GetPath() const;
    // Null when there is none. Owned by this exception.
    CZvException const* GetInnerException() const;

    // Where a document that was read failed: line and column, both from 1, of XML and JSON; of Fast Infoset
    // the octet as the column, from 1, of line 0. Both are 0 where that is not known, see
    // CSerializationContext::SetKeepPositions. An exception has the position of its cause.
    std::uint64_t GetLine() const noexcept { return m_line; }
    std::uint64_t GetColumn() const noexcept { return m_column; }
    bool HasPosition() const noexcept { return m_column != 0; }
    void SetPosition(std::uint64_t line, std::uint64_t column) noexcept;

protected:
    // A new copy of the most derived class, owned by the caller.
    virtual CZvException* Clone() const;

private:
    std::string m_message;
    std::string m_path;
    std::unique_ptr<CZvException> m_inner;
    std::uint64_t m_line = 0;
    std::uint64_t m_column = 0;
};

// The classes below add no state. Each can be made from a base object, whose message, path and cause it
// copies.

// The document or a value violates the schema.
class ZV_API CZvValidationException : public CZvException {
public:
    CZvValidationException();
    // By message, path, and cause; or from a base object.
    CZvValidationException(std::string message, std::string path);
    CZvValidationException(std::string message, std::string path, CZvException const& inner);
    explicit CZvValidationException(CZvException const& other);
    ~CZvValidationException() override;

protected:
    CZvException* Clone() const override;
};

// A value that cannot be parsed or violates a facet.
class ZV_API CZvInvalidValueException : public CZvValidationException {
public:
    CZvInvalidValueException();
    // By message and cause; or from a base object.
    explicit CZvInvalidValueException(std::string message);
    CZvInvalidValueException(std::string message, CZvException const& inner);
    explicit CZvInvalidValueException(CZvException const& other);
    ~CZvInvalidValueException() override;

protected:
    CZvException* Clone() const override;
};

// An element or attribute in the wrong namespace.
class ZV_API CZvInvalidNamespaceException : public CZvValidationException {
public:
    CZvInvalidNamespaceException();
    // By message, path, and cause; or from a base object.
    CZvInvalidNamespaceException(std::string message, std::string path);
    CZvInvalidNamespaceException(std::string message, std::string path, CZvException const& inner);
    explicit CZvInvalidNamespaceException(CZvException const& other);
    ~CZvInvalidNamespaceException() override;

protected:
    CZvException* Clone() const override;
};

// An operation not allowed in the object's present state.
class ZV_API CZvInvalidStateException : public CZvException {
public:
    CZvInvalidStateException();
    // By message and cause; or from a base object.
    explicit CZvInvalidStateException(std::string message);
    CZvInvalidStateException(std::string message, CZvException const& inner);
    explicit CZvInvalidStateException(CZvException const& other);
    ~CZvInvalidStateException() override;

protected:
    CZvException* Clone() const override;
};

// A bad argument.
class ZV_API CZvInvalidParamException : public CZvException {
public:
    CZvInvalidParamException();
    // By message and cause; or from a base object.
    explicit CZvInvalidParamException(std::string message);
    CZvInvalidParamException(std::string message, CZvException const& inner);
    explicit CZvInvalidParamException(CZvException const& other);
    ~CZvInvalidParamException() override;

protected:
    CZvException* Clone() const override;
};

// Arithmetic beyond a limit of the value classes.
class ZV_API CZvOverFlowException : public CZvException {
public:
    CZvOverFlowException();
    // By message and cause; or from a base object.
    explicit CZvOverFlowException(std::string message);
    CZvOverFlowException(std::string message, CZvException const& inner);
    explicit CZvOverFlowException(CZvException const& other);
    ~CZvOverFlowException() override;

protected:
    CZvException* Clone() const override;
};

} // namespace ZvXmlLib16
