// Classes whose names meet those of their base. That they compile is the half of it.
#include "members.h"

#include "schema/emit/BaseMembers.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace ZvXmlLib16;

TEST(Members, LeaveNamesOfTheSchemaTheirMeaning) {
    std::string const xml =
        "<AA:object xmlns:AA=\"urn:main\" node=\"x\" type=\"x\" value=\"x\" texts=\"x\" "
        "library=\"x\" flag=\"1\"><inner flag=\"0\"><code>07</code>"
        "<kind xmlns:xs=\"http://www.w3.org/2001/XMLSchema\">xs:int</kind></inner></AA:object>";
    auto const object = main_::ReadObjectXml(xml);
    EXPECT_EQ(object->GetLibrary(), main_::ZvXmlLib16::X);
    object->SetNode(main_::Node::X);
    object->SetType(main_::MsgType::X);
    object->SetTexts(main_::Texts::X);
    EXPECT_TRUE(object->GetFlag());
    EXPECT_EQ(object->GetInner().GetCode(), 7);
    // What a pattern allows only so is written so, in all formats; prefixes of names stay.
    EXPECT_EQ(main_::WriteObjectXml(*object), xml);
    EXPECT_EQ(main_::WriteObjectXml(*main_::ReadObjectJson(main_::WriteObjectJson(*object))), xml);
}

// An element that stands in several places of a sequence: setters fill them one by one, in any order.
TEST(Members, StandInTheirPlacesOfTheSequence) {
    std::string const whole =
        "<AA:twice xmlns:AA=\"urn:main\"><a>1</a><b>2</b><a>3</a><c>4</c><a>5</a><d>6</d></AA:twice>";
    for (std::string const steps : {"abacad", "aaabcd", "cbaaad", "daaacb", "bcdaaa", "acdaba"}) {
        auto const object = main_::NewTwice();
        int a = 1;
        for (char const step : steps) {
            if (step == 'a') {
                object->GetA().Add(a);
                a += 2;
            } else if (step == 'b') {
                object->SetB(2);
            } else if (step == 'c') {
                object->SetC(4);
            } else {
                object->GetD().Add(6);
            }
        }
        EXPECT_EQ(main_::WriteTwiceXml(*object), whole) << steps;
    }
}

TEST(Members, OfTheBaseAreKnown) {
    for (char const* const name : {"Node", "MsgType", "AddRef", "TextOf", "CTypedObject", "CXmlObjectBase"})
        EXPECT_TRUE(schema::IsBaseMember(name)) << name;
    EXPECT_FALSE(schema::IsBaseMember("Severity"));
}

} // namespace
