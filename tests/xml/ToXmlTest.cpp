// The entry points that write XML: their frame, and what replaces them.
#include "tests/support/MessageOf.h"
#include "tests/support/TemporaryFile.h"
#include "tests/support/WrittenObject.h"
#include "zvxmllib/streams/AsyncFiles.h"

#include <gmock/gmock.h>

using namespace ZvXmlLib16;

namespace {

TEST(ToXml, GivesTheContextsOptionsToTheWriter) {
    CSerializationContext ctx;
    ctx.SetIndentChars(" ");
    ctx.SetWriteDefaultElementValues(true);
    CSmartPtr<WrittenObject> const object(new WrittenObject([](CXmlWriter& w) {
        w.WriteElementStart("a", "");
        w.WriteElementStart("b", "");
        w.WriteElementValue("x", ItemType_string, true);
        w.WriteElementEnd();
        w.WriteElementEnd();
    }));
    EXPECT_EQ(object->ToXml(true, true, EOLType_CRLF, ctx),
              "<?xml version=\"1.0\"?>\r\n<a>\r\n <b>x</b>\r\n</a>\r\n");
    ctx.SetIndentChars(nullptr);
    EXPECT_EQ(object->ToXml(false, true, EOLType_LF, ctx), "<a>\n<b>x</b>\n</a>\n");
}

TEST(ToXml, GivesTheDeclarationAloneForAnObjectThatWritesNothing) {
    CSmartPtr<WrittenObject> const object(new WrittenObject);
    EXPECT_EQ(object->ToXml(true, false, EOLType_LF, CSerializationContext()), "<?xml version=\"1.0\"?>\n");
    EXPECT_EQ(MessageOf<CZvException>([] { XmlOf({}, false, static_cast<EOLType>(7)); }),
              "Invalid EOL type.");
}

TEST(ToXmlFile, LeavesWhatWasWrittenBeforeTheObjectFailed) {
    CSmartPtr<WrittenObject> const object(new WrittenObject([](CXmlWriter& w) {
        w.WriteElementStart("a", "");
        w.WriteElementValue(std::string(5000, 'x'), ItemType_string, false);
        throw CZvException("of the object");
    }));
    TemporaryFile const file;
    AsyncToXmlFile(true);
    EXPECT_EQ(MessageOf<CZvException>([&] {
                  object->ToXmlFile(file.Path(), false, false, XmlEncoding_UTF8, EOLType_LF,
                                    CSerializationContext(), CompressionType_None);
              }),
              "of the object");
    AsyncToXmlFile(false);
    EXPECT_EQ(file.Content(), "<a>" + std::string(5000, 'x'));
}

// An object that gives its bytes itself.
class PreparedObject : public WrittenObject {
public:
    CBinaryData ToXmlStream(bool, bool, XmlEncoding, EOLType, CSerializationContext const&,
                            CompressionType) override {
        return CBinaryData("prepared");
    }
};

TEST(ToXmlFile, TakesTheBytesOfAnObjectThatReplacesTheStreamForm) {
    TemporaryFile const file;
    CSmartPtr<PreparedObject> const object(new PreparedObject);
    object->ToXmlFile(file.Path(), false, false, XmlEncoding_UTF8, EOLType_LF, CSerializationContext(),
                      CompressionType_None);
    EXPECT_EQ(file.Content(), "prepared");
}

} // namespace
