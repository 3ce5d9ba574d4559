#include "zvxmllib/grammar/SimpleTypeFaults.h"

#include "zvxmllib/foundation/Exceptions.h"

namespace ZvXmlLib16::grammar {

namespace {

// Beyond this a value is cut, in bytes, though never within a character.
constexpr std::size_t kMostOfValue = 80;

void AppendShort(std::string_view text, std::string& message) {
    message += '[';
    std::size_t length = text.size();
    if (length > kMostOfValue) {
        length = kMostOfValue;
        while (length > 0 && (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80U)
            --length;
    }
    message.append(text.substr(0, length));
    message += length < text.size() ? "...]" : "]";
}

void Begin(std::string_view value, std::string& message) {
    message = "The value ";
    AppendShort(value, message);
}

void End(char const* type, std::string& message) {
    if (*type != '\0') {
        message += " of the type [";
        message += type;
        message += ']';
    }
    message += '.';
}

void AppendFacet(Facet facet, char const* limit, std::string& message) {
    message += "the ";
    message += NameOf(facet);
    message += ' ';
    AppendShort(limit, message);
}

} // namespace

void FailPattern(std::string const& pattern, std::string const& error) {
    std::string message = "The pattern ";
    AppendShort(pattern, message);
    throw CZvInvalidParamException(message + " cannot be used: " + error + ".");
}

void FailFacet(Facet facet, char const* value, char const* type) {
    std::string message = "The facet ";
    message += NameOf(facet);
    message += ' ';
    AppendShort(value, message);
    message += " cannot be used";
    message += *type == '\0' ? "" : " in the definition";
    End(type, message);
    throw CZvInvalidParamException(message);
}

void FailTypeRow(char const* type) {
    std::string message = "The row";
    End(type, message);
    message.pop_back();
    throw CZvInvalidParamException(message +
                                   " is made of what is not a simple type before it, or is a list of lists.");
}

void TellForm(std::string& message, std::string_view value, BuiltIn type) {
    Begin(value, message);
    message += " is not a valid ";
    message += NameOf(type);
    message += '.';
}

void TellPrefix(std::string& message, std::string_view value, std::string_view prefix) {
    Begin(value, message);
    message += " has the prefix ";
    AppendShort(prefix, message);
    message += ", which is not declared.";
}

void TellNotation(std::string& message, std::string_view value) {
    Begin(value, message);
    message += " is not a declared notation.";
}

void TellMembers(std::string& message, std::string_view value, char const* type) {
    Begin(value, message);
    message += " is not valid for any member";
    End(*type == '\0' ? "union" : type, message);
}

void TellPattern(std::string& message, std::string_view value, std::string_view pattern, char const* type) {
    Begin(value, message);
    message += " does not match the pattern ";
    AppendShort(pattern, message);
    End(type, message);
}

void TellEnumeration(std::string& message, std::string_view value, char const* type) {
    Begin(value, message);
    message += " is not in the enumeration";
    End(type, message);
}

void TellSize(std::string& message, std::string_view value, std::size_t count, char const* unit, Facet facet,
              char const* limit, char const* type) {
    Begin(value, message);
    message += " has ";
    message += std::to_string(count);
    message += ' ';
    message += unit;
    message += count == 1 ? "" : "s";
    message += facet == Facet::kLength ? ", not " : facet == Facet::kMinLength ? ", below " : ", above ";
    AppendFacet(facet, limit, message);
    End(type, message);
}

void TellBound(std::string& message, std::string_view value, bool hasOrder, Facet facet, char const* limit,
               char const* type) {
    Begin(value, message);
    if (!hasOrder)
        message += " cannot be compared with ";
    else if (facet == Facet::kMinInclusive)
        message += " is below ";
    else if (facet == Facet::kMaxInclusive)
        message += " is above ";
    else
        message += facet == Facet::kMinExclusive ? " is not above " : " is not below ";
    AppendFacet(facet, limit, message);
    End(type, message);
}

} // namespace ZvXmlLib16::grammar
