// The stack that the deepest objects need, on each way through the library. docs/reliability.md has the
// amounts.
#include "tests/driver/Reading.h"
#include "zvxmllib/binding/NestingGuard.h"
#include "zvxmllib/collections/Element.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <functional>
#include <memory>
#include <string>

#include <pthread.h>

using namespace entries;

namespace {

constexpr std::size_t kStack = 16 << 20;
constexpr unsigned char kUntouched = 0xA5;

// Bytes of the stack that `action` has touched in a thread of its own.
std::size_t StackOf(std::function<void()> action) {
    std::unique_ptr<unsigned char[]> const stack(new unsigned char[kStack + 4096]);
    auto* const begin = stack.get() + (4096 - reinterpret_cast<std::uintptr_t>(stack.get()) % 4096);
    std::memset(begin, kUntouched, kStack);
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_t thread;
    bool const isRun = pthread_attr_setstack(&attributes, begin, kStack) == 0 &&
                       pthread_create(
                           &thread, &attributes,
                           [](void* argument) -> void* {
                               (*static_cast<std::function<void()>*>(argument))();
                               return nullptr;
                           },
                           &action) == 0 &&
                       pthread_join(thread, nullptr) == 0;
    pthread_attr_destroy(&attributes);
    EXPECT_TRUE(isRun);
    return static_cast<std::size_t>(begin + kStack - std::find_if(begin, begin + kStack, [](unsigned char c) {
                                        return c != kUntouched;
                                    }));
}

std::string Nested(char const* name, int levels) {
    std::string xml;
    for (int i = 0; i < levels; ++i)
        xml += std::string("<") + name + ">";
    for (int i = 0; i < levels; ++i)
        xml += std::string("</") + name + ">";
    return xml;
}

CSmartPtr<CXmlObjectBase> MakeProbe(Model& model) {
    return CSmartPtr<CXmlObjectBase>(static_cast<CXmlObjectBase*>(new Probe(model)));
}

TEST(Stack, OfTheDeepestObjects) {
    constexpr int kLevels = ZvXmlLib16::kMaxNestingDepth - 10;
    CSerializationContext const ctx;
    CSmartPtr<CElement> const element(new CElement(""));
    CSmartPtr<CElement> copy;
    std::string const xml = Nested("a", kLevels);
    static Model model;
    model.name = "a";
    model.elements = {new CElementInfoSeqClsOpt(
        "a", "", 0, XmlElementType_Element, [](int, char const*) { return MakeProbe(model); }, 0)};
    model.Finish();
    CSmartPtr<CXmlObjectBase> bound = MakeProbe(model);
    std::string const inner = Nested("a", kLevels);

    struct Row {
        char const* way;
        std::function<void()> action;
        std::size_t kibibytes; // at most
    };
    CBinaryData fastInfoset;
    std::string text;
    for (Row const& row :
         {Row{"untyped from XML", [&] { element->FromXml(xml.c_str()); }, 768},
          Row{"untyped cloned", [&] { copy = element->Clone(); }, 768},
          Row{"untyped to XML", [&] { text = element->ToXml(false, false, EOLType_LF, ctx); }, 512},
          Row{"untyped to JSON", [&] { text = element->ToJson(false, EOLType_LF, ctx); }, 512},
          Row{"untyped to Fast Infoset",
              [&] { fastInfoset = element->ToFastInfosetStream(FInfoDecl_None, ctx, CompressionType_None); },
              512},
          Row{"untyped from Fast Infoset", [&] { copy->FromXmlStream(fastInfoset, ctx); }, 768},
          Row{"untyped ended", [&] { copy = nullptr; }, 128},
          Row{"bound from XML", [&] { bound->FromXml(inner.c_str(), ctx); }, 1536},
          Row{"bound to XML", [&] { text = bound->ToXml(false, false, EOLType_LF, ctx); }, 1536},
          Row{"bound ended", [&] { bound = nullptr; }, 128}}) {
        std::size_t const used = StackOf(row.action);
        std::printf("%-28s %6zu KiB\n", row.way, used / 1024);
        EXPECT_LE(used / 1024, row.kibibytes) << row.way;
    }
}

} // namespace
