// What is written as Fast Infoset, octet by octet.
#pragma once

#include "tests/support/Bytes.h"
#include "tests/support/WrittenObject.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/fastinfoset/FastInfosetContext.h"

#include <cstdio>
#include <string>
#include <string_view>
#include <utility>

namespace ZvXmlLib16 {

inline std::string Hex(std::string_view octets) {
    std::string text;
    for (char const c : octets) {
        char number[4];
        std::snprintf(number, sizeof number, "%02X ", static_cast<unsigned>(static_cast<unsigned char>(c)));
        text += number;
    }
    if (!text.empty())
        text.pop_back();
    return text;
}

inline std::string FastInfosetBytes(WrittenObject::Body body, CSerializationContext const& ctx,
                                    FInfoDecl declaration = FInfoDecl_None) {
    CSmartPtr<WrittenObject> const object(new WrittenObject(std::move(body)));
    return TextOf(object->ToFastInfosetStream(declaration, ctx, CompressionType_None));
}

// A document whose header has no component, in hexadecimal, without that header.
inline std::string FastInfosetOf(WrittenObject::Body body,
                                 CSerializationContext const& ctx = CSerializationContext()) {
    std::string const bytes = FastInfosetBytes(std::move(body), ctx);
    constexpr std::string_view kHead("\xE0\x00\x00\x01\x00", 5);
    if (std::string_view(bytes).substr(0, 5) != kHead)
        return "another header: " + Hex(bytes);
    return Hex(std::string_view(bytes).substr(5));
}

} // namespace ZvXmlLib16
