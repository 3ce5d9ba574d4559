// What is in a document, and its size in each form, without the forms.
#pragma once

#include "Events.h"
#include "Losses.h"
#include "Shape.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zvxml {

struct DocumentCounts {
    std::string root; // its local name
    std::string ns;
    std::uint64_t elements = 0;
    std::uint64_t attributes = 0;
    std::uint64_t textBytes = 0;
    std::uint64_t comments = 0;
    std::uint64_t instructions = 0;
    std::uint64_t depth = 0; // 1 for the root alone
};

struct FormSize {
    char const* title;
    std::uint64_t bytes;
    std::string fault; // why the form cannot hold the document
};

// Reads the document when it is made, and once more to measure.
class FormSizes {
public:
    // Borrowed. Throws DocumentError.
    explicit FormSizes(Source& source);

    DocumentCounts const& GetCounts() const noexcept { return m_counts; }
    // Comments and the like are left out where a form has no place for them.
    std::vector<FormSize> Measure();

private:
    Source& m_source;
    Losses m_losses;
    DocumentCounts m_counts;
    Shape m_xmlShape;
    Shape m_jsonShape;
    std::string m_jsonFault;
};

} // namespace zvxml
