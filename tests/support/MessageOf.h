// What an operation throws, as text, for tests of failures.
#pragma once

#include "zvxmllib/foundation/Exceptions.h"

#include <string>
#include <typeinfo>

// The full message of the exception, if its class is exactly E; otherwise a text that no exception has.
template <class E, class Operation>
std::string MessageOf(Operation operation) {
    try {
        operation();
    } catch (ZvXmlLib16::CZvException const& failure) {
        return typeid(failure) == typeid(E) ? failure.GetFullMessage()
                                            : std::string("another class: ") + typeid(failure).name();
    }
    return "nothing was thrown";
}
