// The events of the JSON parser, and where in the text a failure arose.
#pragma once

#include "zvxmllib/foundation/InstanceMonitor.h"

#include <string>

namespace ZvXmlLib16 {

// Receives the events of one parse in the order of the text. Strings are local text without NULs; they belong
// to the parser and are valid during the call only.
class IJsonReaderHandler : public CInstanceMonitor {
public:
    IJsonReaderHandler();
    IJsonReaderHandler(IJsonReaderHandler const&) = delete;
    IJsonReaderHandler& operator=(IJsonReaderHandler const&) = delete;
    ~IJsonReaderHandler() override;

    virtual void StartDocument() = 0;
    virtual void EndDocument() = 0;
    // The value of this member comes next.
    virtual void OnName(std::string const& name) = 0;
    virtual void OnString(std::string const& value) = 0;
    // The number, unparsed.
    virtual void OnNumber(std::string const& text) = 0;
    virtual void StartObject() = 0;
    virtual void EndObject() = 0;
    virtual void StartArray() = 0;
    virtual void EndArray() = 0;
    virtual void OnBool(bool value) = 0;
    virtual void OnNull() = 0;
};

class IErrorPathProvider {
public:
    // The open members, innermost first, each preceded by a dot; arrays are left out.
    virtual std::string GetErrorPath() const = 0;

protected:
    ~IErrorPathProvider() = default;
};

} // namespace ZvXmlLib16
