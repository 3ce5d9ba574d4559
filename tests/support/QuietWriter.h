// A writer that writes nothing: a test replaces what it looks at.
#pragma once

#include "zvxmllib/writers/XmlWriter.h"

#include <string>

class QuietWriter : public ZvXmlLib16::CXmlWriter {
public:
    QuietWriter() : CXmlWriter("QuietWriter") {}

    void WriteComment(std::string const&) override {}
    void WriteProcessingInstruction(std::string const&) override {}
    void WriteInlineSchema(std::string const&) override {}
    void WriteElementStart(std::string const&, std::string const&) override {}
    void WriteElementValue(std::string const&, ZvXmlLib16::ItemType, bool) override {}
    void WriteElementEnd() override {}
    void WriteAttribute(std::string const&, std::string const&, std::string const&,
                        ZvXmlLib16::ItemType) override {}
    void WriteTypeAttribute(std::string const&, std::string const&, ZvXmlLib16::ItemType) override {}
    void WriteNilAttribute() override {}
};
