// What generated setters rely on: null, name and choice tests, and namespaces against a list.
#include "tests/support/MessageOf.h"
#include "tests/support/WrittenObject.h"
#include "zvxmllib/collections/Element.h"
#include "zvxmllib/document/XmlDocument.h"

#include <gtest/gtest.h>

#include <optional>

using namespace ZvXmlLib16;

namespace {

TEST(SetterHelpers, RefuseNullAndAnotherElementName) {
    CSmartPtr<WrittenObject> const object(new WrittenObject);
    object->SetElementName("a");
    WrittenObject::Throw_IfPropertyIsNull(object, "Price");
    EXPECT_EQ(
        MessageOf<CZvInvalidParamException>([] { WrittenObject::Throw_IfPropertyIsNull(nullptr, "Price"); }),
        "The Property [Price] is mandatory, it may node be NULL");
    WrittenObject::Throw_IfElementNameDiffers(object, "a");
    WrittenObject::Throw_IfElementNameDiffers(nullptr, "b");
    EXPECT_EQ(
        MessageOf<CZvInvalidParamException>([&] { WrittenObject::Throw_IfElementNameDiffers(object, "b"); }),
        "This property requires an element with the name b the element being set has the element name a");
}

TEST(SetterHelpers, KeepTheBooksOfAChoice) {
    CSmartPtr<WrittenObject> const value(new WrittenObject);
    auto const select = [&](bool isSet) {
        return [&value, isSet](std::string& selected) {
            WrittenObject::Choice_SelectElement("a", isSet ? value : nullptr, selected);
        };
    };
    auto const setValid = [](bool valid) {
        return
            [valid](std::string& selected) { WrittenObject::Choice_SetElementValid(valid, "a", selected); };
    };
    auto const changed = [](int count) {
        return
            [count](std::string& selected) { WrittenObject::Choice_CollectionChanged("a", count, selected); };
    };
    std::string const refused =
        "The Property [b] is already set. Only one element within this class bay be set at a time";
    std::string const refusedValid =
        "The Property b is already set. Only one element within this class bay be set at a time";
    struct Row {
        char const* what;
        std::function<void(std::string&)> operation;
        char const* before;
        char const* after;
        std::string message;
    };
    Row const rows[] = {{"select", select(true), "", "a", ""},
                        {"select again", select(true), "a", "a", ""},
                        {"select null takes the name of an empty choice", select(false), "", "a", ""},
                        {"select null gives up the own name", select(false), "a", "", ""},
                        {"select null leaves another alone", select(false), "b", "b", ""},
                        {"select beside another", select(true), "b", "b", refused},
                        {"valid", setValid(true), "", "a", ""},
                        {"valid again", setValid(true), "a", "a", ""},
                        {"valid beside another", setValid(true), "b", "b", refusedValid},
                        {"invalid gives up any name", setValid(false), "b", "", ""},
                        {"items come", changed(1), "", "a", ""},
                        {"items stay", changed(2), "a", "a", ""},
                        {"items go", changed(0), "a", "", ""},
                        {"no items", changed(0), "", "", ""},
                        {"no items beside another", changed(0), "b", "b", ""},
                        {"items beside another", changed(1), "b", "b", refused}};
    for (Row const& row : rows) {
        std::string selected = row.before;
        if (row.message.empty())
            row.operation(selected);
        else
            EXPECT_EQ(MessageOf<CZvInvalidStateException>([&] { row.operation(selected); }), row.message)
                << row.what;
        EXPECT_EQ(selected, row.after) << row.what;
    }
}

TEST(SetterHelpers, TestNamespacesAgainstALists) {
    struct Row {
        char const* ns;
        char const* allowed;
        bool isValid;
    };
    Row const rows[] = {{"u", "##any", true},
                        {"", "##any", true},
                        {"t", "##other", false},
                        {"u", "##other", true},
                        {"", "##other", true},
                        {"", "##local", true},
                        {"u", "##local", false},
                        {"t", "##targetNamespace", true},
                        {"", "##targetNamespace", false},
                        {"u", "u", true},
                        {"", "u", true},
                        {"u2", "u", false},
                        {"u", "u2 u", true},
                        {"u3", "u2 u", false},
                        {"t", "u ##targetNamespace", true},
                        {"u", "##local ##targetNamespace", false},
                        {"u 2", "u 2", false},
                        {"##any", "##local", false},
                        {"", "", true},
                        {"u", "", false}};
    CSmartPtr<WrittenObject> const object(new WrittenObject);
    for (Row const& row : rows) {
        EXPECT_EQ(object->IsNamespaceValid(row.ns, row.allowed, "t"), row.isValid)
            << row.ns << ' ' << row.allowed;
        std::string const message =
            MessageOf<CZvInvalidNamespaceException>([&] { object->TestNamespace(row.ns, row.allowed, "t"); });
        EXPECT_EQ(message, row.isValid ? std::string("nothing was thrown")
                                       : std::string("Invalid namespace [") + row.ns +
                                             "]. The namespace must be one of [" + row.allowed +
                                             "] where the target namespace is [t].");
    }
}

TEST(SetterHelpers, MatchElementsByNameAndNamespace) {
    CSerializationContext ctx;
    CXmlDocument document(ctx);
    document.LoadXml("<p:a xmlns:p='u'/>");
    CXmlElement const* const element = document.GetDocumentElement();
    CSmartPtr<WrittenObject> const object(new WrittenObject);
    EXPECT_TRUE(object->DoesElementNameMatch(ctx, element, "a", "u"));
    EXPECT_FALSE(object->DoesElementNameMatch(ctx, element, "a", "v"));
    EXPECT_FALSE(object->DoesElementNameMatch(ctx, element, "b", "u"));
    ctx.SetIgnoreNamespaces(true);
    EXPECT_TRUE(object->DoesElementNameMatch(ctx, element, "a", "v"));
    EXPECT_FALSE(object->DoesElementNameMatch(ctx, element, "b", "u"));
}

TEST(SetterHelpers, ReadACollectionOfAChoiceOnce) {
    CSerializationContext const ctx;
    CXmlDocument document(ctx);
    document.LoadXml("<r><a/><a/></r>");
    CXmlElement* const root = document.GetDocumentElement();
    CXmlElement* current = root->GetFirstElement();
    CSmartPtr<CElementCol> const collection(new CElementCol("", "##any", "", 0, -1));
    std::int32_t count = 1;
    WrittenObject::Choice_Read_Collection(collection, root, current, count, ctx);
    EXPECT_EQ(collection->GetCount(), 0) << "it has been read before";
    EXPECT_EQ(current, root->GetFirstElement());

    count = 0;
    WrittenObject::Choice_Read_Collection(collection, root, current, count, ctx);
    EXPECT_EQ(collection->GetCount(), 2);
    EXPECT_EQ(current, nullptr);
    EXPECT_EQ(count, 1);

    count = 0;
    WrittenObject::Choice_Read_Collection(collection, root, current, count, ctx);
    EXPECT_EQ(count, 0) << "nothing was left to be read";
}

} // namespace
