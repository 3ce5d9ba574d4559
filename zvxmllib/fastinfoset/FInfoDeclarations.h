// The nine XML declarations that may stand ahead of a document (X.891, 12.3). Header only.
#pragma once

#include "zvxmllib/foundation/Enumerations.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace ZvXmlLib16 {

// In the order of FInfoDecl, without FInfoDecl_None.
inline constexpr std::array<std::string_view, 9> kFInfoDeclarations = {
    "<?xml encoding='finf'?>",
    "<?xml encoding='finf' standalone='yes'?>",
    "<?xml encoding='finf' standalone='no'?>",
    "<?xml version='1.0' encoding='finf'?>",
    "<?xml version='1.0' encoding='finf' standalone='yes'?>",
    "<?xml version='1.0' encoding='finf' standalone='no'?>",
    "<?xml version='1.1' encoding='finf'?>",
    "<?xml version='1.1' encoding='finf' standalone='yes'?>",
    "<?xml version='1.1' encoding='finf' standalone='no'?>",
};
static_assert(kFInfoDeclarations.size() == std::size_t{FInfoDecl_Version11StandaloneNo});

// What follows the declaration, or starts the document: the identification and the version (X.891, 12.6,
// 12.7).
inline constexpr std::string_view kFInfoMagic("\xE0\x00\x00\x01", 4);

// Names the vocabulary of documents whose context has no name for it.
inline constexpr std::string_view kDefaultVocabularyUri = "urn:zvxmllib:vocabulary";

} // namespace ZvXmlLib16
