// Untyped elements under the rules of their wildcards, in each kind of group.
#include "tests/driver/Reading.h"

using namespace entries;

namespace {

// The elements that an entry takes when each is offered alone: a of u, b of v, c of no namespace.
std::string Taken(Model& model) {
    std::string taken;
    for (auto const& [name, ns] : {std::pair("a", "u"), std::pair("b", "v"), std::pair("c", "")}) {
        CSmartPtr<Probe> const probe(new Probe(model));
        std::string const xml =
            std::string("<order xmlns='u'><") + name + " xmlns='" + ns + "'>t</" + name + "></order>";
        // The choice and all groups take back what they do not read.
        probe->FromXml(xml.c_str(), Ignoring(&CSerializationContext::SetIgnoreUnknownElements));
        auto* const element = dynamic_cast<CElement*>(probe->properties[0].FindXmlObject());
        if (element != nullptr) {
            EXPECT_EQ(element->GetText(), "t");
            EXPECT_EQ(element->GetNamespace(), ns);
            taken += element->GetName();
        }
    }
    return taken;
}

TEST(WildcardRule, DecidesInEachKindOfGroup) {
    struct Case {
        char const* allowed;
        char const* taken;
    };
    for (Case const& row :
         {Case{"##any", "abc"}, Case{"##other", "bc"}, Case{"##local", "c"}, Case{"##targetNamespace", "a"},
          Case{"v", "bc"}, Case{"w u", "ac"}, Case{"##targetNamespace ##local", "ac"}, Case{"", "c"}}) {
        Model sequence, choice, all;
        sequence.elements = {new CElementInfoSeqUntpdOpt("AnyElement", "u", 0, row.allowed, "u")};
        choice.elements = {new CElementInfoChoiceUntpdOpt("AnyElement", "u", 0, row.allowed, "u")};
        choice.group = XmlElementGroupType_Choice;
        all.elements = {new CElementInfoAllUntpdOpt("AnyElement", "u", 0, row.allowed, "u")};
        all.group = XmlElementGroupType_All;
        for (Model* const model : {&sequence, &choice, &all}) {
            model->ns = "u";
            model->Finish();
            EXPECT_EQ(Taken(*model), row.taken) << row.allowed << " in group " << model->group;
        }
    }
}

TEST(WildcardRule, GivesNewElementsTheirNamespace) {
    class Entry : public CElementInfoSeqUntpdOpt {
    public:
        using CElementInfo::GetAnyDefaultNamespace;
    };
    struct Case {
        char const* allowed;
        char const* ns;
        char const* result;
    };
    for (Case const& row :
         {Case{"##any", "u", "u"}, Case{"##other", "u", ""}, Case{"##other", "", "DefaultNamespace"},
          Case{"##local", "u", ""}, Case{"##targetNamespace", "u", "t"}, Case{"##any ##local", "u", "u"},
          Case{"##targetNamespace v", "u", "t"}, Case{"v ##any", "u", ""}, Case{"v", "u", ""},
          Case{"##", "u", ""}, Case{"", "u", ""}})
        EXPECT_EQ(Entry::GetAnyDefaultNamespace(row.allowed, row.ns, "t"), row.result) << row.allowed;
}

TEST(OwnEntry, IsHandedTheNamespaceOfItsClass) {
    class Entry : public CElementInfo {
    public:
        explicit Entry(std::string& seen) : CElementInfo("own", "", 0), m_seen(seen) {}
        bool ElementToXml(CSerializationContext const&, CXmlGeneratedClass const*,
                          CXmlWriter*) const override {
            return false;
        }
        bool ElementFromXml(CSerializationContext const&, CXmlGeneratedClass*, CXmlElement*,
                            CXmlElement** current, char const* ns, XmlElementType) override {
            m_seen = ns;
            *current = (*current)->GetNextSiblingElement();
            return true;
        }

    private:
        std::string& m_seen;
    };
    std::string seen;
    OrderOf model({new Entry(seen)});
    model.ns = "urn:of:the:class";
    CSmartPtr<Probe> const probe(new Probe(model));
    probe->FromXml("<order><own/></order>", CSerializationContext());
    EXPECT_EQ(seen, "urn:of:the:class");
}

TEST(UntypedEntry, WithANameTakesThatNameOnly) {
    for (auto const& [group, entry] : std::initializer_list<std::pair<XmlElementGroupType, CElementInfo*>>{
             {XmlElementGroupType_Sequence, new CElementInfoSeqUntpdCol("note", "", 0)},
             {XmlElementGroupType_Choice, new CElementInfoChoiceUntpdCol("note", "", 0)},
             {XmlElementGroupType_All, new CElementInfoAllUntpdCol("note", "", 0)}}) {
        SCOPED_TRACE(group);
        OrderOf model(group, {entry}, [](Probe& probe) {
            probe.properties[0].SetXmlCollection(new CElementCol("", "##any", "", 0, -1));
        });
        // The namespace is that of the first; an all group then starts again with the next one.
        ExpectOutcomes(model,
                       {{"<order><note>1</note><note>2</note></order>", ""},
                        {"<order><note/><other/></order>", Unread("other")},
                        {"<order><note xmlns='v'/><note/></order>",
                         group == XmlElementGroupType_All ? "<order><AA:note xmlns:AA=\"v\"/><note/></order>"
                                                          : Unread("note")}});
    }
}

TEST(UntypedEntry, ReadsACollectionOfAnotherKindByItself) {
    Model item;
    item.name = "i";
    item.Finish();
    OrderOf model({new CElementInfoSeqUntpdCol("note", "", 0)},
                  [&item](Probe& probe) { probe.properties[0].SetXmlCollection(new ProbeCol(item, 0, -1)); });
    EXPECT_EQ(Outcome(model, "<order><i/><i/></order>"), "<order><i/><i/></order>");
}

TEST(AttributeWildcard, AheadOfANamedEntryTakesItsAttribute) {
    for (bool const isFirst : {true, false}) {
        Model model;
        CAttributeInfo* const any = new CAttributeInfoAny("any", "", 0, true, "##any", "", nullptr);
        CAttributeInfo* const named = Attribute("a", 1, true);
        model.attributes = {isFirst ? any : named, isFirst ? named : any};
        model.init = [](Probe& probe) {
            probe.properties[0].SetXmlCollection(new CAttributeCol("", "##any", ""));
        };
        model.Finish();
        CSmartPtr<Probe> const probe(new Probe(model));
        probe->FromXml("<order b='1' a='2'/>", plainContext);
        EXPECT_EQ(probe->properties[1].IsValid(), !isFirst);
        EXPECT_EQ(Write(*probe), isFirst ? "<order b=\"1\" a=\"2\"/>" : "<order a=\"2\" b=\"1\"/>");
    }
}

// For entries of a program's own.
struct OwnEntry : CAttributeInfoAny {
    using CAttributeInfo::IsNamespaceValid;
    using CAttributeInfo::TestNamespace;
};

TEST(AttributeWildcard, TestsNamespacesForEntriesOfOnesOwn) {
    for (char const* const ns : {"", "t", "u"}) {
        bool const isValid = std::string(ns) != "t";
        EXPECT_EQ(OwnEntry::IsNamespaceValid(ns, "##other", "t"), isValid) << ns;
        EXPECT_EQ(MessageOf<CZvInvalidNamespaceException>([&] { OwnEntry::TestNamespace(ns, "u", "t"); }),
                  isValid ? "nothing was thrown"
                          : "Invalid namespace [" + std::string(ns) +
                                "]. The namespace must be one of [u] where the target namespace is [t].");
    }
}

TEST(AttributeWildcard, IsBoundByTheRuleOfItsCollectionToo) {
    Model model;
    model.attributes = {new CAttributeInfoAny("any", "", 0, true, "##any", "", nullptr)};
    model.init = [](Probe& probe) {
        probe.properties[0].SetXmlCollection(new CAttributeCol("", "##local", "t"));
    };
    model.Finish();
    EXPECT_EQ(Outcome(model, "<order p:b='1' xmlns:p='v'/>"),
              Failed("Invalid namespace [v]. The namespace must be one of [##local] where the target "
                     "namespace is [t]."));
}

} // namespace
