// CFastInfosetContext, the Fast Infoset options of one serialisation or one read.
#pragma once

#include "zvxmllib/fastinfoset/FIVocabulary.h"
#include "zvxmllib/foundation/Enumerations.h"
#include "zvxmllib/platform/Api.h"

#include <array>
#include <cstdint>
#include <string>

namespace ZvXmlLib16 {

// Part of a CSerializationContext, returned by its GetFIContext. Belongs to one thread, as the context does.
class ZV_API CFastInfosetContext {
public:
    // How a value is put into octets.
    enum EncodingType : std::uint32_t {
        EncodingType_String = 0,             // the text in UTF-8
        EncodingType_RestrictedAlphabet = 1, // four bits for each character
        EncodingType_Algorithm = 2           // the value in binary
    };

    // How the values of one ItemType are written.
    struct EncodedCharacterString {
        std::uint32_t type = EncodingType_String; // EncodingType
        // The alphabet: 1 "0123456789-+.e ", 2 "0123456789-:TZ ". Or the algorithm: 1 hexadecimal, 2 base64,
        // 3 short, 4 int, 5 long, 6 boolean, 7 float, 8 double, 9 uuid, 10 cdata.
        std::uint32_t index = 0;
    };

    CFastInfosetContext();
    CFastInfosetContext(CFastInfosetContext const& other);
    CFastInfosetContext& operator=(CFastInfosetContext const& other);
    ~CFastInfosetContext();

    // 0, which is UTF-8.
    std::uint8_t GetDefaultStringEncoding() const noexcept { return m_defaultStringEncoding; }

    // Both throw CZvInvalidParamException for a number that is not an ItemType. Strings at first.
    EncodedCharacterString GetEncoding(std::uint32_t itemType) const;
    void SetEncoding(std::uint32_t itemType, EncodedCharacterString encoding);
    // The algorithms and alphabets that suit the types, except for ItemType_string and ItemType_char, which
    // stay unchanged. A text that its encoding cannot express, such as a fraction of a second, fails when it
    // is written.
    void SetSuggestedValues();

    // Values of fewer characters are written once and then as an index; 0 for none. 6 at first. Characters
    // are counted in the local encoding, by bytes.
    std::uint32_t GetAttributeMaxAddLength() const noexcept { return m_attributeMaxAddLength; }
    void SetAttributeMaxAddLength(std::uint32_t length) noexcept { m_attributeMaxAddLength = length; }
    std::uint32_t GetElementMaxAddLength() const noexcept { return m_elementMaxAddLength; }
    void SetElementMaxAddLength(std::uint32_t length) noexcept { m_elementMaxAddLength = length; }

    // Whether documents start with the entries of GetVocabulary. False at first. Writer and reader must
    // agree, and their vocabularies must be equal: a document only names it.
    bool GetUseGeneratedVocabulary() const noexcept { return m_useGeneratedVocabulary; }
    void SetUseGeneratedVocabulary(bool use) noexcept { m_useGeneratedVocabulary = use; }
    CFIVocabulary* GetVocabulary() noexcept { return &m_vocabulary; }
    CFIVocabulary const* GetVocabulary() const noexcept { return &m_vocabulary; }
    // The name of the vocabulary in documents that start with it; if empty, the library uses its own.
    std::string GetExternalVocabularyURI() const { return m_externalVocabularyUri; }
    void SetExternalVocabularyURI(std::string const& uri) { m_externalVocabularyUri = uri; }

private:
    std::uint8_t m_defaultStringEncoding = 0;
    std::array<EncodedCharacterString, ItemType_XmlCollection + 1> m_encodings;
    std::uint32_t m_attributeMaxAddLength = 6;
    std::uint32_t m_elementMaxAddLength = 6;
    bool m_useGeneratedVocabulary = false;
    CFIVocabulary m_vocabulary;
    std::string m_externalVocabularyUri;
};

} // namespace ZvXmlLib16
