// The classes of the tables as such: the order of their operations, and what they do not do.
#include "tests/driver/Reading.h"
#include "tests/support/Slots.h"

#include <memory>

using namespace entries;

namespace {

TEST(Family, KeepsTheOrderOfItsOperations) {
    // The destructor has two slots.
    EXPECT_EQ(SlotOf(&CElementInfo::ElementToXml), 2u);
    EXPECT_EQ(SlotOf(&CElementInfo::ElementFromXml), 3u);
    EXPECT_EQ(SlotOf(&CElementInfo::Validate), 4u);
    EXPECT_EQ(SlotOf(&CElementInfo::PseudoChildAttributeToXml), 5u);
    EXPECT_EQ(SlotOf(&CAttributeInfo::AttributeToXml), 2u);
    EXPECT_EQ(SlotOf(&CAttributeInfo::AttributeFromXml), 3u);
    EXPECT_EQ(SlotOf(&CAttributeInfo::Validate), 4u);
    std::size_t const first = SlotOf(&CXmlGeneratedClass::AccessProperty);
    EXPECT_EQ(first, 29u); // behind the 28 operations of the object base
    EXPECT_EQ(SlotOf(&CXmlGeneratedClass::GetClassInfo), first + 1);
    EXPECT_EQ(SlotOf(&CXmlGeneratedClass::GetClassElementInfo), first + 2);
    EXPECT_EQ(SlotOf(&CXmlGeneratedClass::GetClassAttributeInfo), first + 3);
    EXPECT_EQ(SlotOf(&CXmlGeneratedClass::Init), first + 4);
    EXPECT_EQ(SlotOf(&INillable::GetIsNil), 0u);
    EXPECT_EQ(SlotOf(&INillable::SetIsNil), 1u);
}

TEST(Family, RefusesWhatAnEntryDoesNotDo) {
    std::unique_ptr<CElementInfo> const entry(Prim<CElementInfoSeqPrimOpt>("a", 0));
    EXPECT_EQ(MessageOf<CZvException>([&] { entry->Validate(CSerializationContext(), nullptr, true, true); }),
              "Not implemented, should never be called");
    ZvVariant value;
    value.SetI4(1);
    std::unique_ptr<CElementInfo> const colour(Enum<CElementInfoSeqEnumOpt>("c", 0));
    EXPECT_EQ(MessageOf<CZvException>([&] { colour->CheckRestriction(value); }),
              "Cannot CheckRestriction for type: i4");
}

TEST(Tables, AreDeletedWhole) {
    class Cleaner : public Probe {
    public:
        using Probe::CleanMetaData;
    };
    auto* info = new CParentElementInfo(XmlElementGroupType_All, XmlElementType_Element, "n", "u", true,
                                        false, -1, ItemType_invalid, nullptr, false);
    auto** elements = new CElementInfo* [] { Prim<CElementInfoSeqPrimOpt>("a", 0), nullptr };
    auto** attributes = new CAttributeInfo* [] { Attribute("a", 0, true), nullptr };
    Cleaner::CleanMetaData(info, elements, attributes);
    EXPECT_EQ(info, nullptr);
    EXPECT_EQ(elements, nullptr);
    EXPECT_EQ(attributes, nullptr);
    Cleaner::CleanMetaData(info, elements, attributes);
}

} // namespace
