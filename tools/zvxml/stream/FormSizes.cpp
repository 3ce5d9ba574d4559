// What is in a document, and its size in each form, without the forms.
#include "FormSizes.h"

#include "ByteOutput.h"
#include "Sinks.h"

#include <algorithm>
#include <deque>
#include <memory>

using namespace ZvXmlLib16;

namespace zvxml {

namespace {

constexpr std::size_t kAddLength = 6; // of Fast Infoset, as by default
constexpr char kIndent[] = "\t";

class Counter final : public Receiver {
public:
    explicit Counter(DocumentCounts& counts) : m_counts(counts) {}

    void Start(StartTag const& tag) override {
        if (m_counts.elements++ == 0) {
            m_counts.root = tag.name.local;
            m_counts.ns = tag.name.uri;
        }
        m_counts.attributes += tag.attributes.size();
        m_counts.depth = std::max(m_counts.depth, ++m_depth);
    }
    void Text(std::string_view text) override { m_counts.textBytes += text.size(); }
    void End(std::string_view) override { --m_depth; }
    void Comment(std::string_view) override { ++m_counts.comments; }
    void Instruction(std::string_view, std::string_view) override { ++m_counts.instructions; }

private:
    DocumentCounts& m_counts;
    std::uint64_t m_depth = 0;
};

// Passes events to several receivers. A receiver that fails gets no more.
class Tee final : public Receiver {
public:
    void Add(std::unique_ptr<Receiver> receiver, std::string& fault) {
        m_parts.push_back({std::move(receiver), &fault});
    }

    void XmlDeclaration() override {
        Send([](Receiver& r) { r.XmlDeclaration(); });
    }
    void Start(StartTag const& tag) override {
        Send([&](Receiver& r) { r.Start(tag); });
    }
    void Text(std::string_view text) override {
        Send([&](Receiver& r) { r.Text(text); });
    }
    void End(std::string_view name) override {
        Send([&](Receiver& r) { r.End(name); });
    }
    void Comment(std::string_view text) override {
        Send([&](Receiver& r) { r.Comment(text); });
    }
    void Instruction(std::string_view target, std::string_view data) override {
        Send([&](Receiver& r) { r.Instruction(target, data); });
    }
    void Type(DocumentType const& type) override {
        Send([&](Receiver& r) { r.Type(type); });
    }
    void StartSection() override {
        Send([](Receiver& r) { r.StartSection(); });
    }
    void EndSection() override {
        Send([](Receiver& r) { r.EndSection(); });
    }
    void Finish() override {
        Send([](Receiver& r) { r.Finish(); });
    }

private:
    struct Part {
        std::unique_ptr<Receiver> receiver;
        std::string* fault;
    };

    template <class Action>
    void Send(Action action) {
        for (Part& part : m_parts) {
            if (!part.fault->empty())
                continue;
            try {
                action(*part.receiver);
            } catch (DocumentError const& e) {
                *part.fault = e.what();
            }
        }
    }

    std::vector<Part> m_parts;
};

// The document is written in each of these forms.
struct WrittenForm {
    char const* title;
    Form form;
    bool isPretty;
    XmlEncoding encoding;
    CompressionType compression;
};
constexpr WrittenForm kWrittenForms[] = {
    {"compact", Form::kXml, false, XmlEncoding_UTF8, CompressionType_None},
    {"UTF-16", Form::kXml, false, XmlEncoding_UTF16, CompressionType_None},
    {"gzip", Form::kXml, false, XmlEncoding_UTF8, CompressionType_GZip},
    {"zlib", Form::kXml, false, XmlEncoding_UTF8, CompressionType_ZLib},
    {"JSON", Form::kJson, false, XmlEncoding_UTF8, CompressionType_None},
    {"Fast Infoset", Form::kInfoset, false, XmlEncoding_UTF8, CompressionType_None},
    {"pretty", Form::kXml, true, XmlEncoding_UTF8, CompressionType_None},
};

} // namespace

FormSizes::FormSizes(Source& source) : m_source(source), m_losses(source, std::string(), true) {
    Tee tee;
    std::string none;
    tee.Add(std::make_unique<Counter>(m_counts), none);
    tee.Add(MakeXmlShape(m_xmlShape), none);
    tee.Add(MakeJsonShape(m_jsonShape, JsonRoundTrip_Full, source, m_losses), m_jsonFault);
    source.Read(tee);
}

std::vector<FormSize> FormSizes::Measure() {
    std::vector<FormSize> sizes;
    for (WrittenForm const& form : kWrittenForms)
        sizes.push_back({form.title, 0, form.form == Form::kJson ? m_jsonFault : std::string()});
    std::deque<ByteOutput> outputs;
    Tee tee;
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        WrittenForm const& form = kWrittenForms[i];
        WriteOptions options;
        options.isPretty = form.isPretty;
        options.encoding = form.encoding;
        options.compression = form.compression;
        ByteOutput& output = outputs.emplace_back(sizes[i].bytes, options, form.form != Form::kInfoset);
        if (form.form == Form::kXml)
            tee.Add(MakeXmlSink(output, options, DeclarationMode::kNever,
                                form.isPretty ? Indent::kShape : Indent::kNone, kIndent, m_xmlShape,
                                m_losses),
                    sizes[i].fault);
        else if (form.form == Form::kJson)
            tee.Add(MakeJsonSink(output, options, JsonRoundTrip_Full, kIndent, m_jsonShape), sizes[i].fault);
        else
            tee.Add(MakeInfosetSink(output, false, kAddLength, m_losses), sizes[i].fault);
    }
    m_source.Read(tee);
    for (ByteOutput& output : outputs)
        output.Commit();
    return sizes;
}

} // namespace zvxml
