// OnDemandPart, owner of a part of the context that is made at first use. Header only.
#pragma once

#include <atomic>
#include <memory>

namespace ZvXmlLib16::detail {

// Owns a Part, made when it is first asked for. A copy has an equal part of its own. Only callers of Get need
// the definition of Part, so the owner of an OnDemandPart need not know the formats whose options it carries.
// Several threads may call Get at once: all get the same part.
template <class Part>
class OnDemandPart {
public:
    OnDemandPart() = default;
    OnDemandPart(OnDemandPart const& other) : m_holder(other.CloneHolder()) {}
    OnDemandPart& operator=(OnDemandPart const& other) {
        if (this != &other)
            delete m_holder.exchange(other.CloneHolder());
        return *this;
    }
    ~OnDemandPart() { delete m_holder.load(); }

    Part& Get() const;

private:
    struct AnyHolder {
        virtual ~AnyHolder() = default;
        virtual AnyHolder* Clone() const = 0;
        Part* part = nullptr;
    };
    struct Holder;

    AnyHolder* CloneHolder() const {
        AnyHolder const* const holder = m_holder.load(std::memory_order_acquire);
        return holder == nullptr ? nullptr : holder->Clone();
    }

    mutable std::atomic<AnyHolder*> m_holder{nullptr};
};

template <class Part>
struct OnDemandPart<Part>::Holder final : AnyHolder {
    Holder() { this->part = &value; }
    explicit Holder(Part const& source) : value(source) { this->part = &value; }
    AnyHolder* Clone() const override { return new Holder(value); }
    Part value;
};

template <class Part>
Part& OnDemandPart<Part>::Get() const {
    if (AnyHolder* const holder = m_holder.load(std::memory_order_acquire))
        return *holder->part;
    std::unique_ptr<AnyHolder> made = std::make_unique<Holder>();
    AnyHolder* holder = nullptr;
    if (!m_holder.compare_exchange_strong(holder, made.get()))
        return *holder->part; // another thread was faster
    return *made.release()->part;
}

} // namespace ZvXmlLib16::detail
