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

} // namespace

using namespace ZvXmlLib16;
using namespace ZvXmlLib16Data;

TEST(Names, OfAProgramStayItsOwn) {
    std::size_t const own = sizeof(Ctx) + sizeof(Object) + sizeof(ClassFactory) + sizeof(ElementFactory) +
                            sizeof(EnumToString) + sizeof(StringToEnum) + sizeof(ValueEntry) +
                            sizeof(ClassEntry) + sizeof(ObjectEntry) + sizeof(UntypedEntry);
    EXPECT_EQ(own, 10U);
}
