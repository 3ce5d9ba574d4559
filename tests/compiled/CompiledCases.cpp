// Reads documents by compiled classes and by the same schemas as data, and compares what comes of it: the
// failure, or the object as XML text, JSON and Fast Infoset. What the classes wrote they read again without a
// difference.
//
// Usage: PROGRAM LIST [MUTANTS]
// A line of the list is the number of a case, a tab, and a document. Of each document so many mutants are
// tried, too.
#include "CompiledCases.h"

#include "schema/diagnostics/Diagnostics.h"
#include "schema/frontend/SchemaReader.h"
#include "zvxmllib/binding/GeneratorVersion.h"
#include "zvxmllib/document/XmlDocument.h"
#include "zvxmllib/foundation/Exceptions.h"
#include "zvxmllib/generated/Documents.h"
#include "zvxmllib/grammar/Grammar.h"
#include "zvxmllib/values/binary/Encoder.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

using namespace ZvXmlLib16;
using generated::BoundSchema;
using generated::CTypedObject;

namespace {

constexpr char kFailure = '!'; // what a failure begins with

template <class Call>
std::string TextOrFailure(Call call) {
    try {
        return call();
    } catch (CZvException const& failure) {
        return kFailure + failure.GetFullMessage();
    }
}

bool IsFailure(std::string const& outcome) {
    return !outcome.empty() && outcome[0] == kFailure;
}

CSmartPtr<CTypedObject> Read(BoundSchema const& schema, std::string const& bytes) {
    return generated::ReadBytes(schema, grammar::kNone, reinterpret_cast<unsigned char const*>(bytes.data()),
                                bytes.size(), generated::StrictContext());
}

// In each format, or why not.
struct Forms {
    explicit Forms(CTypedObject& object)
        : xml(TextOrFailure(
              [&] { return object.ToXml(true, false, EOLType_LF, generated::StrictContext()); })),
          json(TextOrFailure([&] { return object.ToJson(false, EOLType_LF, generated::StrictContext()); })),
          fastInfoset(TextOrFailure([&] {
              CBinaryData const octets = object.ToFastInfosetStream(
                  FInfoDecl_None, generated::StrictContext(), CompressionType_None);
              return std::string(reinterpret_cast<char const*>(octets.GetData()), octets.GetLength());
          })) {}

    std::string xml;
    std::string json;
    std::string fastInfoset;
};

std::string OutcomeOf(BoundSchema const& schema, std::string const& bytes) {
    return TextOrFailure([&] {
        Forms const forms(*Read(schema, bytes));
        return forms.xml + "\n" + forms.json + "\n" + forms.fastInfoset;
    });
}

// JSON has no place for white space beside children.
std::string WithoutBlanks(std::string const& xml) {
    std::string text;
    for (std::size_t at = 0; at < xml.size();) {
        std::size_t const next = xml.find_first_not_of(" \t\n", at);
        bool const isBetweenTags =
            at != 0 && xml[at - 1] == '>' && next != std::string::npos && xml[next] == '<';
        at = isBetweenTags ? next : at;
        text += xml[at++];
    }
    return text;
}

// What is lost on the way through a format; empty for nothing.
std::string Loss(BoundSchema const& schema, std::string const& bytes) {
    Forms const forms(*Read(schema, bytes));
    for (std::string const* form : {&forms.xml, &forms.json, &forms.fastInfoset}) {
        if (IsFailure(*form))
            continue;
        std::string const again = TextOrFailure([&] { return Forms(*Read(schema, *form)).xml; });
        bool const isKept =
            form == &forms.json ? WithoutBlanks(again) == WithoutBlanks(forms.xml) : again == forms.xml;
        if (!isKept)
            return *form + "\nis read as\n" + again + "\ninstead of\n" + forms.xml;
    }
    return {};
}

// Changes of one place each: text, names, tags that are lost, doubled or in another order.
class Mutants {
public:
    explicit Mutants(std::string text) : m_text(std::move(text)) {
        for (std::size_t at = m_text.find('<'); at != std::string::npos; at = m_text.find('<', at + 1))
            m_tags.push_back(at);
    }

    std::string Next() {
        std::string text = m_text;
        if (m_tags.size() < 4)
            return text;
        std::size_t const first = m_tags[Random(m_tags.size() - 1)];
        std::size_t const end = EndOfElement(first);
        std::string const element = text.substr(first, end - first);
        switch (Random(5)) {
        case 0:
            return text.erase(first, end - first);
        case 1:
            return text.insert(first, element);
        case 2: {
            std::size_t const other = m_tags[Random(m_tags.size())];
            return other < first || other >= end ? text.insert(other, element) : text;
        }
        case 3:
            text[Random(text.size())] = "0aZ -.:"[Random(7)];
            return text;
        default:
            return text.erase(Random(text.size()), 1 + Random(3));
        }
    }

private:
    std::size_t Random(std::size_t limit) {
        m_state = m_state * 6364136223846793005U + 1442695040888963407U;
        return static_cast<std::size_t>(m_state >> 33U) % limit;
    }
    // Of the element that begins there, or of its tag if it has no content.
    std::size_t EndOfElement(std::size_t start) const {
        int depth = 0;
        for (std::size_t at = start; at < m_text.size();) {
            std::size_t const close = m_text.find('>', at);
            if (close == std::string::npos)
                break;
            bool const isEmpty = m_text[close - 1] == '/' || m_text[at + 1] == '!' || m_text[at + 1] == '?';
            depth += m_text[at + 1] == '/' ? -1 : isEmpty ? 0 : 1;
            if (depth <= 0)
                return close + 1;
            at = m_text.find('<', close);
        }
        return start + 1;
    }

    std::string const m_text;
    std::vector<std::size_t> m_tags;
    std::uint64_t m_state = 1;
};

// A schema as data.
struct Interpreted {
    explicit Interpreted(std::string const& files) {
        std::vector<std::string> names;
        std::istringstream list(files);
        for (std::string name; std::getline(list, name, ';');)
            names.push_back(name);
        schema::SchemaFiles places;
        for (char const* const* location = compiled::kLocations; *location != nullptr; ++location) {
            std::string const text = *location;
            places.Map(text.substr(0, text.rfind('=')), text.substr(text.rfind('=') + 1));
        }
        schema::Diagnostics diagnostics;
        model = schema::ReadSchemas(names, places, diagnostics);
        if (model == nullptr) {
            std::printf("%s: the schema is refused\n", files.c_str());
            std::exit(2);
        }
        bound = std::make_unique<BoundSchema>(model->GetRows());
    }

    std::unique_ptr<schema::Schema> model;
    std::unique_ptr<BoundSchema> bound;
};

struct Counts {
    int documents = 0;
    int valid = 0;
    int mutants = 0;
    int differences = 0;
};

// Octets of Fast Infoset have no place on a terminal.
char const* Printable(std::string& text) {
    std::replace_if(
        text.begin(), text.end(),
        [](char c) { return static_cast<unsigned char>(c) < 0x20 && c != '\n' && c != '\t'; }, '?');
    std::replace_if(
        text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) > 0x7E; }, '?');
    return text.c_str();
}

void Compare(BoundSchema const& compiled, BoundSchema const& interpreted, std::string const& name,
             std::string const& bytes, Counts& counts) {
    std::string outcome = OutcomeOf(compiled, bytes);
    std::string expected = OutcomeOf(interpreted, bytes);
    std::string loss = IsFailure(outcome) ? "" : Loss(compiled, bytes);
    counts.valid += IsFailure(outcome) ? 0 : 1;
    if (outcome == expected && loss.empty())
        return;
    ++counts.differences;
    std::printf("%s:\n", name.c_str());
    if (outcome != expected)
        std::printf("compiled:    %s\ninterpreted: %s\n", Printable(outcome), Printable(expected));
    std::printf("%s\n", Printable(loss));
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2)
        return 2;
    SetGeneratorVersion(kLibraryMajorVersion, kLibraryMinorVersion);
    SetLocalCharEncoding(65001);
    int const mutants = argc > 2 ? std::atoi(argv[2]) : 0;
    std::ifstream list(argv[1]);
    std::unique_ptr<Interpreted> interpreted;
    std::size_t current = compiled::kCaseCount;
    Counts counts;
    for (std::string line; std::getline(list, line);) {
        auto const number = static_cast<std::size_t>(std::strtoul(line.c_str(), nullptr, 10));
        std::string const name = line.substr(line.find('\t') + 1);
        if (number != current) {
            interpreted = std::make_unique<Interpreted>(compiled::kCases[number].files);
            current = number;
        }
        BoundSchema const& schema = compiled::kCases[number].schema();
        std::ifstream stream(name, std::ios::binary);
        std::string const bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
        ++counts.documents;
        Compare(schema, *interpreted->bound, name, bytes, counts);
        Mutants changed(bytes);
        for (int i = 0; i < mutants; ++i, ++counts.mutants)
            Compare(schema, *interpreted->bound, name + " (mutant " + std::to_string(i) + ")", changed.Next(),
                    counts);
    }
    std::printf("%zu schemas, %d documents, %d mutants: %d valid, %d differences\n", compiled::kCaseCount,
                counts.documents, counts.mutants, counts.valid, counts.differences);
    return counts.differences == 0 && counts.documents != 0 ? 0 : 1;
}
