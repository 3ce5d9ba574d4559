// Sets the local character encoding for one test.
#pragma once

#include "zvxmllib/values/binary/Encoder.h"

class LocalEncoding {
public:
    explicit LocalEncoding(unsigned int codePage, bool asciiOnly = false) {
        ZvXmlLib16::SetLocalCharEncoding(codePage);
        ZvXmlLib16::ASCIIOnly(asciiOnly);
    }
    LocalEncoding(LocalEncoding const&) = delete;
    LocalEncoding& operator=(LocalEncoding const&) = delete;
    ~LocalEncoding() {
        ZvXmlLib16::SetLocalCharEncoding(3);
        ZvXmlLib16::ASCIIOnly(false);
    }
};
