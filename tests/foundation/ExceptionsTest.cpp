// The CZvException family.
#include "zvxmllib/foundation/Exceptions.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <typeinfo>

using namespace ZvXmlLib16;

namespace {

TEST(Exceptions, AppendThePathOnlyWhereItIsGivenAndNotEmpty) {
    CZvException const cause("cause");
    struct Row {
        CZvException failure;
        char const* message;
        char const* path;
    };
    for (Row const& row :
         {Row{CZvException(), "", ""}, Row{CZvException("text"), "text", ""},
          Row{CZvException("text", ""), "text", ""},
          Row{CZvException("text", "/a/b"), "text\nPath: /a/b", "/a/b"},
          Row{CZvException("text", "/a", cause), "text\nPath: /a", "/a"},
          Row{CZvException("text", cause), "text", ""},
          Row{CZvValidationException("text", "/a", cause), "text\nPath: /a", "/a"},
          Row{CZvInvalidNamespaceException("text", "/a"), "text\nPath: /a", "/a"},
          Row{CZvInvalidValueException("text"), "text", ""},
          Row{CZvInvalidValueException(CZvException("text", "/a")), "text\nPath: /a", "/a"}}) {
        EXPECT_EQ(row.failure.GetMessage(), row.message);
        EXPECT_EQ(row.failure.GetPath(), row.path);
    }
}

TEST(Exceptions, KeepTheClassOfTheCauseThroughCopies) {
    auto source = std::make_unique<CZvException>("outer", "/o", CZvInvalidNamespaceException("inner", "/n"));
    CZvException const copy(*source);
    CZvException assigned("other", CZvException("old"));
    assigned = *source;
    source.reset();
    for (CZvException const* failure : {&copy, static_cast<CZvException const*>(&assigned)}) {
        ASSERT_NE(failure->GetInnerException(), nullptr);
        CZvException const& inner = *failure->GetInnerException();
        EXPECT_EQ(typeid(inner), typeid(CZvInvalidNamespaceException));
        EXPECT_EQ(failure->GetPath(), "/o");
        EXPECT_EQ(failure->GetFullMessage(), "outer\nPath: /o\ninner\nPath: /n");
    }
}

TEST(Exceptions, AreRaisedAgainAsADerivedClassWithTheirCause) {
    CZvException const base("text", "/a", CZvOverFlowException("inner"));
    CZvInvalidParamException const parameter(base);
    CZvInvalidNamespaceException const name(base);
    EXPECT_EQ(parameter.GetFullMessage(), "text\nPath: /a\ninner");
    EXPECT_EQ(name.GetFullMessage(), "text\nPath: /a\ninner");
    EXPECT_EQ(name.GetPath(), "/a");
    ASSERT_NE(name.GetInnerException(), nullptr);
    EXPECT_NE(name.GetInnerException(), base.GetInnerException());
}

TEST(Exceptions, SurviveAssignmentOfThemselvesAndOfTheirCause) {
    CZvException chain("outer", CZvException("middle", CZvException("inner")));
    CZvException& same = chain;
    chain = same;
    EXPECT_EQ(chain.GetFullMessage(), "outer\nmiddle\ninner");
    chain = *chain.GetInnerException();
    EXPECT_EQ(chain.GetFullMessage(), "middle\ninner");
}

// Throws the class and reports whether a handler of its base gets it.
template <class Base, class Thrown>
bool IsCaughtAs() {
    try {
        throw Thrown();
    } catch (Base const& failure) {
        return typeid(failure) == typeid(Thrown);
    } catch (...) {
        return false;
    }
}

TEST(Exceptions, AreCaughtByTheirBases) {
    EXPECT_TRUE((IsCaughtAs<CZvValidationException, CZvInvalidValueException>()));
    EXPECT_TRUE((IsCaughtAs<CZvValidationException, CZvInvalidNamespaceException>()));
    EXPECT_TRUE((IsCaughtAs<CZvException, CZvInvalidStateException>()));
    EXPECT_FALSE((IsCaughtAs<CZvValidationException, CZvInvalidStateException>()));
    EXPECT_FALSE((IsCaughtAs<CZvValidationException, CZvOverFlowException>()));
    EXPECT_FALSE((IsCaughtAs<CZvValidationException, CZvInvalidParamException>()));
}

} // namespace
