// CJsonReaderDefaultHandler, the front of the handler chain, which knows the current place in the text.
#pragma once

#include "zvxmllib/json/JsonReaderHandler.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace ZvXmlLib16 {

// Traces each event, keeps the path of open members and passes the event on.
class CJsonReaderDefaultHandler final : public IJsonReaderHandler, public IErrorPathProvider {
public:
    CJsonReaderDefaultHandler();
    ~CJsonReaderDefaultHandler() override;

    // Null for none.
    void SetNextHandler(std::unique_ptr<IJsonReaderHandler> next) noexcept { m_next = std::move(next); }

    void StartDocument() override;
    void EndDocument() override;
    void OnName(std::string const& name) override;
    void OnString(std::string const& value) override;
    void OnNumber(std::string const& text) override;
    void StartObject() override;
    void EndObject() override;
    void StartArray() override;
    void EndArray() override;
    void OnBool(bool value) override;
    void OnNull() override;

    std::string GetErrorPath() const override;

private:
    enum class StackItemKind : std::uint8_t { Array, Name, Object };

    // A member whose value is open, or an item of an array. Its name reaches in m_names to that of the item
    // above it; an object in an array has none of its own.
    struct StackItem {
        std::size_t name;
        std::int32_t index; // of an array: the number of its last object; of an object: its own in its array
        StackItemKind kind;
    };
    static constexpr std::int32_t kNoIndex = -1;

    bool IsOnTop(StackItemKind kind) const noexcept {
        return !m_stack.empty() && m_stack.back().kind == kind;
    }
    void Push(StackItemKind kind, std::int32_t index);
    void Pop() noexcept;
    void PopThrough(StackItemKind kind) noexcept;
    std::string NameOf(std::size_t item) const;

    std::vector<StackItem> m_stack;
    std::string m_names;
    std::unique_ptr<IJsonReaderHandler> m_next;
    bool m_isTraced = false; // decided once for the document
};

} // namespace ZvXmlLib16
