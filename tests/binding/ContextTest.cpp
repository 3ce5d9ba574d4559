// The options of a call, the table of aliases, and what copies of a context share.
#include "tests/support/MessageOf.h"
#include "zvxmllib/collections/Attribute.h"
#include "zvxmllib/context/SerializationContext.h"
#include "zvxmllib/json/JsonContext.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

using namespace ZvXmlLib16;

namespace {

char const kBothIgnored[] = "The parser can only ignore additional elements, or ignore the fact that some "
                            "required ones are missing, you can not ignore both\n";

TEST(SerializationContext, NeverIgnoresBothUnknownAndMissingElements) {
    CSerializationContext ctx;
    ctx.SetIgnoreUnknownElements(true);
    EXPECT_EQ(MessageOf<CZvInvalidStateException>([&] { ctx.SetIgnoreMissingMandatoryElements(true); }),
              std::string(kBothIgnored) +
                  "Set IgnoreUnknownElements to false before setting IgnoreMissingMandatoryElements to true");
    ctx.SetIgnoreMissingMandatoryElements(false);
    EXPECT_FALSE(ctx.GetIgnoreMissingMandatoryElements());
    ctx.SetIgnoreUnknownElements(false);
    ctx.SetIgnoreMissingMandatoryElements(true);
    EXPECT_EQ(MessageOf<CZvInvalidStateException>([&] { ctx.SetIgnoreUnknownElements(true); }),
              std::string(kBothIgnored) +
                  "Set IgnoreMissingMandatoryElements to false before setting IgnoreUnknownElements to true");
    EXPECT_FALSE(ctx.GetIgnoreUnknownElements());
    EXPECT_TRUE(ctx.GetIgnoreMissingMandatoryElements());
}

TEST(SerializationContext, IndentsWithBlanksAndTabsOnly) {
    CSerializationContext ctx;
    EXPECT_EQ(ctx.GetIndentChars(), "\t");
    ctx.SetIndentChars(" \t ");
    for (char const* refused : {"\n", " x", "\t\r"}) {
        EXPECT_EQ(MessageOf<CZvInvalidParamException>([&] { ctx.SetIndentChars(refused); }),
                  "IndentChars can only contain Whitespace characters, i.e. \\t or spaces");
        EXPECT_EQ(ctx.GetIndentChars(), " \t ");
    }
    ctx.SetIndentChars(nullptr);
    EXPECT_EQ(ctx.GetIndentChars(), "");
}

TEST(SerializationContext, IgnoresNamespacesWhereTheSchemaHasNone) {
    CSerializationContext ctx;
    ctx.SetSchemaType(SchemaType_NoNamespaces);
    ctx.SetIgnoreNamespaces(false);
    EXPECT_TRUE(ctx.GetIgnoreNamespaces());
    ctx.SetSchemaType(SchemaType_Reserved);
    EXPECT_FALSE(ctx.GetIgnoreNamespaces());
}

TEST(SerializationContext, BeginsWithTheDefaultsAndCopiesEveryOption) {
    CSerializationContext const fresh;
    EXPECT_TRUE(fresh.GetWriteTypeAttribute());
    EXPECT_TRUE(fresh.GetStripCDATA());
    CSerializationContext ctx;
    ctx.SetDefaultNamespaceURI("d");
    ctx.SetInLineSchema("<s/>");
    ctx.SetIndentChars(" ");
    ctx.SetSchemaType(SchemaType_NoNamespaces);
    ctx.GetNamespaceAliases().Add("p", "u");
    ctx.GetProcessingInstructions().push_back("<?p?>");
    ctx.SetWriteTypeAttribute(false);
    ctx.SetStripCDATA(false);
    using C = CSerializationContext;
    std::pair<bool (C::*)() const noexcept, void (C::*)(bool) noexcept> const options[] = {
        {&C::GetIgnoreInvalidCollectionCounts, &C::SetIgnoreInvalidCollectionCounts},
        {&C::GetIgnoreMissingChoice, &C::SetIgnoreMissingChoice},
        {&C::GetIgnoreUnknownAttributes, &C::SetIgnoreUnknownAttributes},
        {&C::GetNoOptionalAttributeDefaultOutput, &C::SetNoOptionalAttributeDefaultOutput},
        {&C::GetWriteDefaultElementValues, &C::SetWriteDefaultElementValues}};
    for (auto const& [get, set] : options)
        (ctx.*set)(true);
    ctx.SetIgnoreUnknownElements(true);
    ctx.GetAdditionalRootAttributes()->Add("x");
    ctx.GetJsonContext().SetRootElementName("r");

    CSerializationContext copy(ctx);
    for (auto const& [get, set] : options)
        EXPECT_TRUE((copy.*get)() && !(fresh.*get)());
    EXPECT_TRUE(copy.GetIgnoreUnknownElements());
    EXPECT_FALSE(copy.GetWriteTypeAttribute());
    EXPECT_FALSE(copy.GetStripCDATA());
    EXPECT_EQ(copy.GetJsonContext().GetRootElementName(), "r");
    EXPECT_EQ(copy.GetDefaultNamespaceURI(), "d");
    EXPECT_EQ(copy.GetInLineSchema(), "<s/>");
    EXPECT_EQ(copy.GetIndentChars(), " ");
    EXPECT_EQ(copy.GetSchemaType(), SchemaType_NoNamespaces);
    EXPECT_EQ(copy.GetNamespaceAliases().GetAliasFromNamespace("u"), "p");
    EXPECT_EQ(copy.GetProcessingInstructions(), ctx.GetProcessingInstructions());
    EXPECT_EQ(copy.GetAdditionalRootAttributes(), ctx.GetAdditionalRootAttributes()) << "shared";

    CSerializationContext const& same = copy;
    copy = same;
    EXPECT_EQ(copy.GetAdditionalRootAttributes()->GetCount(), 1);
    copy = fresh;
    EXPECT_EQ(copy.GetAdditionalRootAttributes()->GetCount(), 0);
    EXPECT_TRUE(copy.GetStripCDATA());
}

TEST(SerializationContext, MakesTheRootAttributesOnceForAllThreads) {
    CSerializationContext const ctx;
    std::vector<CSmartPtr<CAttributeCol>> seen(8);
    std::vector<std::thread> threads;
    for (CSmartPtr<CAttributeCol>& result : seen)
        threads.emplace_back([&ctx, &result] { result = ctx.GetAdditionalRootAttributes(); });
    for (std::thread& thread : threads)
        thread.join();
    for (CSmartPtr<CAttributeCol> const& result : seen)
        EXPECT_EQ(result, seen[0]);
}

TEST(NamespaceAliasMap, KeepsOneAliasForEachNamespaceInTheOrderOfTheUris) {
    CNamespaceAliasMap map;
    map.Add("p", "u2");
    map.Add("q", "u1");
    map.Add("r", "u2");
    map.Add("q", "u0");
    EXPECT_EQ(map.GetNamespaceCount(), 3);
    EXPECT_EQ(map.GetNamespaceAt(0), "u0");
    EXPECT_EQ(map.GetNamespaceAt(2), "u2");
    EXPECT_EQ(map.GetAliasFromNamespace("u2"), "r");
    EXPECT_EQ(map.GetNamespaceFromAlias("q"), "u0") << "the smaller of two";
    EXPECT_TRUE(map.DoesAliasExist("r"));
    EXPECT_FALSE(map.DoesAliasExist("p"));
    EXPECT_EQ(MessageOf<CZvException>([&] { map.GetNamespaceFromAlias("p"); }),
              "Namespace alias [p] not found");

    EXPECT_EQ(map.GetAliasFromNamespace("u9"), "");
    EXPECT_EQ(map.GetNamespaceCount(), 4) << "asking leaves an entry";
    EXPECT_TRUE(map.DoesNamespaceExist("u9"));
    map.RemoveNamespace("u9");
    map.RemoveNamespace("u9");
    EXPECT_EQ(map.GetNamespaceCount(), 3);
}

} // namespace
