// What strict writing gives, against what was to be written.
#pragma once

#include "Fuzz.h"
#include "tests/support/Infoset.h"

#include <iostream>

// "none" where there is no element; documents that are equal have equal ones.
inline std::string Printed(std::optional<Infoset> const& document, TextPlaces places) {
    return document ? Print(*document, places) : "none";
}

// nlohmann/json takes the bare number -0 for 0.
inline std::string WithoutMinusZeros(std::string printed) {
    constexpr std::string_view kMinusZero = "'-0'";
    for (std::size_t at = 0; (at = printed.find(kMinusZero, at)) != std::string::npos;)
        printed.erase(at + 1, 1);
    return printed;
}

// `text` is what was written, in its format.
inline void RequireEqual(std::string const& written, std::string const& meant, std::string_view text) {
    if (written != meant)
        std::cerr << text << "\nwritten: " << written << "\nmeant: " << meant << '\n';
    Require(written == meant);
}

inline std::string_view TextOf(CBinaryData const& octets) {
    return TextOf(octets.GetData(), octets.GetLength());
}

inline CSerializationContext Strict() {
    CSerializationContext ctx;
    ctx.SetStrict(true);
    return ctx;
}

inline std::string XmlOf(CXmlObjectBase& object, CSerializationContext const& ctx = Strict()) {
    return object.ToXml(false, false, EOLType_LF, ctx);
}

// Reads the root element of a document strictly. Throws what the library throws.
template <class Read>
CSmartPtr<CElement> ReadUntyped(Read read) {
    CSmartPtr<CElement> element(new CElement(""));
    read(static_cast<CXmlObjectBase&>(*element), Strict());
    return element;
}

// What is read is what was meant.
template <class Read>
void RequireReadable(std::string_view text, std::string const& meant, Read read) {
    std::string again;
    try {
        again = Printed(InfosetOfXml(XmlOf(*ReadUntyped(read))), TextPlaces::Exact);
    } catch (CZvException const& failure) {
        again = failure.GetFullMessage();
    }
    RequireEqual(again, meant, text);
}
