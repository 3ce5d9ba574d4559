// A program may use the namespaces of the library whole and have these names for its own things.
#include "zvxmllib/ZvXmlLib.h"

#include <gtest/gtest.h>

namespace {

class Ctx {};
class Object {};
class ClassFactory {};
class ElementFactory {};
class EnumToString {};
class StringToEnum {};
class ValueEntry {};
class ClassEntry {};
class ObjectEntry {};
class UntypedEntry {};
class XmlTree {};
class XmlName {};
class NodeText {};
class NodePosition {};
class SharedText {};
class SharedFlag {};
class OnDemandPart {};
class RootAttributes {};
class ChunkedFile {};
class FacetRules {};
class NeedsCheck {};
class StrictValue {};
class NameTable {};

} // namespace

using namespace ZvXmlLib16;
using namespace ZvXmlLib16Data;

template <class... Own>
constexpr std::size_t kCountOf = sizeof...(Own);

TEST(Names, OfAProgramStayItsOwn) {
    std::size_t const own =
        kCountOf<Ctx, Object, ClassFactory, ElementFactory, EnumToString, StringToEnum, ValueEntry,
                 ClassEntry, ObjectEntry, UntypedEntry, XmlTree, XmlName, NodeText, NodePosition, SharedText,
                 SharedFlag, OnDemandPart, RootAttributes, ChunkedFile, FacetRules, NeedsCheck, StrictValue,
                 NameTable>;
    EXPECT_EQ(own, 23U);
}
