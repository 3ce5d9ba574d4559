// The classes of the tables as such: that they are all there, and the order of their operations.
#include "tests/generated/Reading.h"
#include "tests/support/MessageOf.h"
#include "tests/support/Slots.h"

#include <memory>

using namespace entries;

namespace {

template <class Info, class... Arguments>
void ExpectMember(Arguments... arguments) {
    std::unique_ptr<CElementInfo> const entry(new Info("n", "u", 0, arguments...));
    EXPECT_NE(dynamic_cast<Info*>(entry.get()), nullptr);
}

template <class Mnd, class Opt>
void ExpectPrimitives() {
    CPrimitiveRestrictions const none;
    ExpectMember<Mnd>(false, ItemType_i4, nullptr, CWhitespaceUtils::WhitespaceRule_None, none, nullptr);
    ExpectMember<Opt>(true, ItemType_i4, "%f", CWhitespaceUtils::WhitespaceRule_None, none, "1");
}

template <class Mnd, class Opt>
void ExpectEnumerations() {
    ExpectMember<Mnd>(false, ColourToText, TextToColour, nullptr);
    ExpectMember<Opt>(false, ColourToText, TextToColour, "red");
}

CSmartPtr<CXmlObjectBase> NoObject(int, char const*) {
    return {};
}
CSmartPtr<CXmlObjectBase> NoElement(CXmlElement*) {
    return {};
}

TEST(Family, HasAllItsMembers) {
    ExpectMember<CElementInfoSeqClsMnd>(XmlElementType_Element, NoObject, 0, true);
    ExpectMember<CElementInfoSeqClsOpt>(XmlElementType_Element, NoObject, 0);
    ExpectMember<CElementInfoSeqAbsClsMnd>(XmlElementType_Element, NoElement);
    ExpectMember<CElementInfoSeqAbsClsOpt>(XmlElementType_Element, NoElement);
    ExpectPrimitives<CElementInfoSeqPrimMnd, CElementInfoSeqPrimOpt>();
    ExpectEnumerations<CElementInfoSeqEnumMnd, CElementInfoSeqEnumOpt>();
    ExpectMember<CElementInfoSeqUntpdMnd>("##any", "u");
    ExpectMember<CElementInfoSeqUntpdOpt>("##any", "u");
    ExpectMember<CElementInfoAllClsMnd>(XmlElementType_Element, NoObject, 0, true);
    ExpectMember<CElementInfoAllClsOpt>(XmlElementType_Element, NoObject, 0);
    ExpectMember<CElementInfoAllAbsClsMnd>(XmlElementType_Element, NoElement, 0);
    ExpectMember<CElementInfoAllAbsClsOpt>(XmlElementType_Element, NoElement);
    ExpectPrimitives<CElementInfoAllPrimMnd, CElementInfoAllPrimOpt>();
    ExpectEnumerations<CElementInfoAllEnumMnd, CElementInfoAllEnumOpt>();
    ExpectMember<CElementInfoAllUntpdMnd>("##any", "u");
    ExpectMember<CElementInfoAllUntpdOpt>("##any", "u");
    ExpectMember<CElementInfoChoiceClsOpt>(XmlElementType_Element, NoObject, 0);
    ExpectMember<CElementInfoChoiceAbsClsOpt>(XmlElementType_Element, NoElement);
    ExpectMember<CElementInfoChoicePrimOpt>(false, ItemType_i4, nullptr,
                                            CWhitespaceUtils::WhitespaceRule_None, CPrimitiveRestrictions(),
                                            nullptr);
    ExpectMember<CElementInfoChoiceEnumOpt>(false, ColourToText, TextToColour, nullptr);
    ExpectMember<CElementInfoChoiceUntpdOpt>("##any", "u");
}

template <class Base, class... Members>
void ExpectCollections() {
    static_assert((std::is_base_of_v<Base, Members> && ...));
    static_assert((std::is_base_of_v<CElementInfo, Members> && ...));
    ExpectMember<Base>();
    (ExpectMember<Members>(), ...);
}

TEST(Family, HasItsCollections) {
    ExpectCollections<CElementInfoSeqCol, CElementInfoSeqPrimCol, CElementInfoSeqEnumCol,
                      CElementInfoSeqUntpdCol>();
    ExpectCollections<CElementInfoAllCol, CElementInfoAllPrimCol, CElementInfoAllUntpdCol>();
    ExpectCollections<CElementInfoChoiceCol, CElementInfoChoicePrimCol, CElementInfoChoiceEnumCol,
                      CElementInfoChoiceUntpdCol>();
    for (XmlElementType type : {XmlElementType_Element, XmlElementType_Pseudo}) {
        ExpectMember<CElementInfoSeqClsCol>(type);
        ExpectMember<CElementInfoSeqAbsClsCol>(type);
        ExpectMember<CElementInfoAllClsCol>(type);
        ExpectMember<CElementInfoAllAbsClsCol>(type);
        ExpectMember<CElementInfoChoiceClsCol>(type);
        ExpectMember<CElementInfoChoiceAbsClsCol>(type);
    }
    static_assert(std::is_abstract_v<CElementInfoAllEnumCol>);
    static_assert(!std::is_base_of_v<CElementInfoAllCol, CElementInfoAllEnumCol>);
}

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
