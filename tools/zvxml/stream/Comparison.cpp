// Whether two documents hold the same.
#include "Comparison.h"

#include "../Errors.h"
#include "Shape.h"

#include <algorithm>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <optional>
#include <thread>
#include <tuple>
#include <utility>
#include <vector>

namespace zvxml {

namespace {

constexpr std::size_t kBatch = 512;
constexpr std::size_t kMostBatches = 8; // on their way from one thread to the other

struct Item {
    enum Kind { kStart, kText, kEnd, kFinish } kind;
    std::string text; // or the name: {namespace}name
    std::vector<std::pair<std::string, std::string>> attributes;
    Place place;
};
using Batch = std::vector<Item>;

std::string NameOf(Name const& name) {
    return name.uri.empty() ? std::string(name.local)
                            : '{' + std::string(name.uri) + '}' + std::string(name.local);
}

// Makes items of events, equal for documents that hold the same.
class Itemizer final : public Receiver {
public:
    // `take` gets each item.
    Itemizer(Source const& source, std::function<void(Item)> take)
        : m_source(source), m_take(std::move(take)) {}

    void Start(StartTag const& tag) override {
        SendText(true);
        Item item{Item::kStart, NameOf(tag.name), {}, m_source.GetPlace()};
        for (Attribute const& attribute : tag.attributes)
            item.attributes.emplace_back(NameOf(attribute.name), attribute.value);
        std::sort(item.attributes.begin(), item.attributes.end());
        m_take(std::move(item));
        m_isBehindStart = true;
    }
    void Text(std::string_view text) override {
        if (m_text.empty())
            m_textPlace = m_source.GetPlace();
        m_text += text;
    }
    void End(std::string_view) override {
        SendText(!m_isBehindStart);
        m_isBehindStart = false;
        m_take({Item::kEnd, {}, {}, m_source.GetPlace()});
    }
    void Finish() override { m_take({Item::kFinish, {}, {}, {}}); }

private:
    void SendText(bool isBesideElement) {
        if (!m_text.empty() && !(isBesideElement && IsBlank(m_text)))
            m_take({Item::kText, m_text, {}, m_textPlace});
        m_text.clear();
    }

    Source const& m_source;
    std::function<void(Item)> const m_take;
    std::string m_text;
    Place m_textPlace;
    bool m_isBehindStart = false;
};

// The way of the items from the thread that reads the second document. Either side may give up.
class Channel {
public:
    struct GivenUp {};

    void Put(Batch batch) {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [&] { return m_isGivenUp || m_batches.size() < kMostBatches; });
        if (m_isGivenUp)
            throw GivenUp();
        m_batches.push_back(std::move(batch));
        m_changed.notify_all();
    }
    void Fail(std::exception_ptr failure) {
        std::lock_guard const lock(m_mutex);
        m_failure = std::move(failure);
        m_changed.notify_all();
    }
    Batch Get() {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [&] { return m_failure != nullptr || !m_batches.empty(); });
        if (m_batches.empty())
            std::rethrow_exception(m_failure);
        Batch batch = std::move(m_batches.front());
        m_batches.erase(m_batches.begin());
        m_changed.notify_all();
        return batch;
    }
    void GiveUp() {
        std::lock_guard const lock(m_mutex);
        m_isGivenUp = true;
        m_changed.notify_all();
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<Batch> m_batches;
    std::exception_ptr m_failure;
    bool m_isGivenUp = false;
};

// Reads a document in a thread of its own, item by item.
class ItemReader {
public:
    ItemReader(ByteInput& input, JsonOptions const& json)
        : m_thread([this, &input, &json] { Run(input, json); }) {}
    ItemReader(ItemReader const&) = delete;
    ItemReader& operator=(ItemReader const&) = delete;
    ~ItemReader() {
        m_channel.GiveUp();
        m_thread.join();
    }

    Item const& Next() {
        if (m_at == m_batch.size()) {
            m_batch = m_channel.Get();
            m_at = 0;
        }
        return m_batch[m_at++];
    }

private:
    void Run(ByteInput& input, JsonOptions const& json) {
        try {
            WithFile(input.GetName(), [&] {
                std::unique_ptr<Source> const source = OpenSource(input, json);
                Batch batch;
                Itemizer itemizer(*source, [&](Item item) {
                    bool const isLast = item.kind == Item::kFinish;
                    batch.push_back(std::move(item));
                    if (isLast || batch.size() == kBatch)
                        m_channel.Put(std::exchange(batch, {}));
                });
                source->Read(itemizer);
            });
        } catch (Channel::GivenUp const&) {
        } catch (...) {
            m_channel.Fail(std::current_exception());
        }
    }

    Channel m_channel;
    Batch m_batch;
    std::size_t m_at = 0;
    std::thread m_thread; // the last: it uses the others
};

std::string Shown(std::string text) {
    constexpr std::size_t kLongest = 60;
    if (text.size() > kLongest) {
        std::size_t end = kLongest;
        while ((static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U)
            --end;
        text = text.substr(0, end) + "...";
    }
    return '"' + text + '"';
}

std::string Describe(Item const& item) {
    switch (item.kind) {
    case Item::kStart:
        return "the element " + item.text;
    case Item::kText:
        return "the text " + Shown(item.text);
    case Item::kEnd:
        return "the end of its element";
    case Item::kFinish:
        break;
    }
    return "its end";
}

// Of two lists of attributes that differ.
std::pair<std::string, std::string> DescribeAttributes(Item const& a, Item const& b) {
    auto const [first, second] =
        std::mismatch(a.attributes.begin(), a.attributes.end(), b.attributes.begin(), b.attributes.end());
    auto const describe = [](std::pair<std::string, std::string> const& attribute) {
        return "the attribute " + attribute.first + "=" + Shown(attribute.second);
    };
    bool const isOnlyFirst =
        second == b.attributes.end() || (first != a.attributes.end() && first->first < second->first);
    bool const isOnlySecond =
        first == a.attributes.end() || (second != b.attributes.end() && second->first < first->first);
    return {isOnlySecond ? "no attribute " + second->first : describe(*first),
            isOnlyFirst ? "no attribute " + first->first : describe(*second)};
}

struct Difference {
    Item first;
    Item second;
};

std::string Describe(Difference const& d, std::string const& first, std::string const& second) {
    auto words = std::pair(Describe(d.first), Describe(d.second));
    if (d.first.kind == Item::kStart && d.second.kind == Item::kStart && d.first.text == d.second.text)
        words = DescribeAttributes(d.first, d.second);
    return PlaceText(first, d.first.place) + words.first + ", but " + PlaceText(second, d.second.place) +
           words.second;
}

} // namespace

std::string FindDifference(ByteInput& first, ByteInput& second, JsonOptions const& json) {
    ItemReader others(second, json);
    try {
        WithFile(first.GetName(), [&] {
            std::unique_ptr<Source> const source = OpenSource(first, json);
            Itemizer itemizer(*source, [&](Item item) {
                Item const& other = others.Next();
                if (std::tie(item.kind, item.text, item.attributes) !=
                    std::tie(other.kind, other.text, other.attributes))
                    throw Difference{std::move(item), other};
            });
            source->Read(itemizer);
        });
    } catch (Difference const& difference) {
        return Describe(difference, first.GetName(), second.GetName());
    }
    return {};
}

} // namespace zvxml
