#include "controls/control.h"
#include "core/control_fixture.h"
#include "core/property_table.h"

#include <map>

namespace headerdtc {
namespace {

using ::testing::ElementsAre;

// Which control an established property stands for.
const std::map<std::string_view, std::string_view> ControlOf = {
    {"ZEKOReturnFields", "ZEKOSelectedFieldsList"},
    {"EAIReturnFields", "EAISelectedFieldsList"},
    {"ZEKOCriteria", "ZEKOCriteriaGrid"},
    {"EAICriteria", "EAICriteriaGrid"},
    {"ZEKOReturnFieldCount", "ZEKOSelectedFieldsList"},
    {"EAIReturnFieldCount", "EAISelectedFieldsList"},
    {"ZEKOCriteriaCount", "ZEKOCriteriaGrid"},
    {"EAICriteriaCount", "EAICriteriaGrid"},
    {"DataProvider", "DataProvidersCombo"},
    {"ZEKOAvailableFields", "ZEKOFieldsList"},
    {"EAIAvailableFields", "EAIFieldsList"},
    {"ZEKOKeyFieldnames", "ZEKOKeyFieldsCombo"},
    {"EAIKeyFieldnames", "EAIKeyFieldsCombo"},
    {"ZEKOAvailableFieldsCount", "ZEKOFieldsList"},
    {"EAIAvailableFieldsCount", "EAIFieldsList"},
    {"UserDefinedScripts", ""},
    {"ExtraIncludes", "IncludeASPList"},
    {"NrOfExtraIncludes", "IncludeASPList"},
    {"NrOfUserDefinedScripts", ""},
    {"ZEKOI18NFieldnames", "ZEKOI18NFieldnamesList"},
    {"EAII18NFieldnames", "EAII18NFieldnamesList"},
    {"NrOfEAII18NFieldnames", "EAII18NFieldnamesList"},
    {"NrOfZEKOI18NFieldnames", "ZEKOI18NFieldnamesList"},
    {"LinkedDataProvider", "ZEKOLinkedDataProvidersCombo"},
    {"ZEKOAvailableFieldsLinked", "ZEKOLinkedFieldsList"},
    {"EAIAvailableFieldsLinked", "EAILinkedFieldsList"},
    {"NrOfZEKOAvailableFieldsLinked", "ZEKOLinkedFieldsList"},
    {"NrOfEAIAvailableFieldsLinked", "EAILinkedFieldsList"},
    {"NrOfSelectedEAILinkedFields", "EAISelectedLinkedFieldsList"},
    {"NrOfSelectedZEKOLinkedFields", "ZEKOSelectedLinkedFieldsList"},
    {"EAISelectedLinkedFields", "EAISelectedLinkedFieldsList"},
    {"ZEKOSelectedLinkedFields", "ZEKOSelectedLinkedFieldsList"},
    {"ZEKOLinkFromFields", "ZEKOLinksGrid"},
    {"EAILinkFromFields", "EAILinksGrid"},
    {"NrOfLinkedZEKOFields", "ZEKOLinksGrid"},
    {"NrOfLinkedEAIFields", "EAILinksGrid"},
    {"ZEKOLinkToFields", "ZEKOLinksGrid"},
    {"EAILinkToFields", "EAILinksGrid"},
    {"ZEKOToLinkKeyFields", "ZEKOToLinkFieldsCombo"},
    {"EAIToLinkKeyFields", "EAIToLinkFieldsCombo"},
    {"NrOfZEKOToLinkKeyFields", "ZEKOToLinkFieldsCombo"},
    {"NrOfEAIToLinkKeyFields", "EAIToLinkFieldsCombo"},
};

// A control's content as a property sees it, whatever kind of control it is.
struct Content : ControlVisitor {
    void visit(Label&) override {}
    void visit(ListBox& list) override { take(itemsOf(list)); }
    void visit(ComboBox& combo) override { take(itemsOf(combo)); }
    void visit(Grid& grid) override {
        for (int i = 0; i < grid.Rows() * grid.Cols(); ++i)
            texts.push_back(grid.TextArray(i));
        count = grid.Rows();
    }
    void visit(Button&) override {}
    void visit(CheckBox&) override {}
    void visit(OptionButton&) override {}
    void visit(TabStrip&) override {}
    void visit(TextBox&) override {}

    void take(std::vector<std::string> items) {
        texts = std::move(items);
        count = static_cast<int>(texts.size());
    }
    std::vector<std::string> texts;
    int count = 0;
};

class PropertiesTest : public ControlTest {
  protected:
    PropertiesTest() {
        // Lists of different lengths, so that no count can stand in for another.
        int length = 1;
        for (const Family which : BothFamilies) {
            FamilyControls& family = dtc.family(which);
            for (ListBox* list :
                 {&family.SelectedFieldsList, &family.FieldsList, &family.I18NFieldnamesList,
                  &family.LinkedFieldsList, &family.SelectedLinkedFieldsList})
                grow(*list, ++length);
            grow(family.KeyFieldsCombo, ++length);
            grow(family.ToLinkFieldsCombo, ++length);
            family.CriteriaGrid.Rows(++length);
            family.LinksGrid.Rows(++length);
        }
        grow(dtc.IncludeASPList, ++length);
    }

    template <class List>
    static void grow(List& list, int length) {
        while (list.ListCount() < length)
            list.AddItem("item " + std::to_string(list.ListCount()));
    }

    Content contentBehind(std::string_view property) {
        Content content;
        Control* control = dtc.surface.find(ControlOf.at(property));
        if (control) control->accept(content);
        return content;
    }
    std::vector<std::string>& notices() { return outside.changes.changed; }
};

TEST_F(PropertiesTest, TheTableHasEveryEstablishedProperty) {
    EXPECT_EQ(publicProperties().size(), ControlOf.size());
    for (const PropertyInfo& info : publicProperties())
        EXPECT_TRUE(ControlOf.contains(info.name)) << info.name;
}

TEST_F(PropertiesTest, IndexedPropertiesReadAndWriteTheirControlAndTellTheHost) {
    for (const PropertyInfo& info : publicProperties()) {
        if (!info.indexed) continue;
        SCOPED_TRACE(info.name);
        setProperty(dtc, info.name, 1, std::string(info.name));
        EXPECT_EQ(getProperty(dtc, info.name, 1), PublicValue(std::string(info.name)));
        EXPECT_EQ(contentBehind(info.name).texts.at(1), info.name);
        EXPECT_THAT(notices(), ElementsAre(info.name));
        notices().clear();
    }
}

TEST_F(PropertiesTest, AnIndexThatIsNotThereChangesNothingAndTellsNobody) {
    for (const PropertyInfo& info : publicProperties()) {
        if (!info.indexed) continue;
        SCOPED_TRACE(info.name);
        const auto before = contentBehind(info.name).texts;
        for (const int index : {-1, static_cast<int>(before.size()), 2'000'000'000}) {
            EXPECT_EQ(errorOf([&] { getProperty(dtc, info.name, index); }), 381);
            EXPECT_EQ(errorOf([&] { setProperty(dtc, info.name, index, "x"); }), 381);
        }
        EXPECT_EQ(contentBehind(info.name).texts, before);
    }
    EXPECT_TRUE(notices().empty());
}

TEST_F(PropertiesTest, CountsCountTheirControlAndOnlyRowCountsAreWritten) {
    for (const PropertyInfo& info : publicProperties()) {
        if (info.type != PropertyType::Integer || ControlOf.at(info.name).empty()) continue;
        SCOPED_TRACE(info.name);
        EXPECT_EQ(getProperty(dtc, info.name), PublicValue(contentBehind(info.name).count));
        const int error = errorOf([&] { setProperty(dtc, info.name, {}, 30); });
        EXPECT_EQ(error, info.writable ? 0 : 383);
        EXPECT_EQ(contentBehind(info.name).count == 30, info.writable);
    }
    EXPECT_THAT(notices(), ElementsAre("ZEKOCriteriaCount", "EAICriteriaCount",
                                       "NrOfLinkedZEKOFields", "NrOfLinkedEAIFields"));
}

TEST_F(PropertiesTest, RefusesWhatAPropertyCannotTake) {
    EXPECT_EQ(errorOf([&] { getProperty(dtc, "dataprovider"); }), 438);
    EXPECT_EQ(errorOf([&] { getProperty(dtc, "DataProvider", 0); }), 450);
    EXPECT_EQ(errorOf([&] { setProperty(dtc, "EAIReturnFields", {}, "x"); }), 450);
    EXPECT_EQ(errorOf([&] { setProperty(dtc, "EAIReturnFields", 0, 5); }), 13);
    EXPECT_EQ(errorOf([&] { setProperty(dtc, "ZEKOCriteriaCount", {}, "5"); }), 13);
    EXPECT_EQ(errorOf([&] { setProperty(dtc, "ZEKOCriteriaCount", {}, 32768); }), 6);
    EXPECT_EQ(errorOf([&] { setProperty(dtc, "ZEKOCriteriaCount", {}, 1LL << 32); }), 6);
    EXPECT_EQ(errorOf([&] { setProperty(dtc, "ZEKOCriteriaCount", {}, 0); }), 380);
    EXPECT_EQ(errorOf([&] { setProperty(dtc, "NrOfUserDefinedScripts", {}, -32769); }), 6);
    EXPECT_EQ(errorOf([&] { setProperty(dtc, "DataProvider", {}, "Nowhere"); }), 380);
    EXPECT_EQ(errorOf([&] { dtc.UserDefinedScripts(nullptr); }), 91);
    EXPECT_TRUE(notices().empty());
}

TEST_F(PropertiesTest, LinkFromAndLinkToAreTwoNamesForOneCell) {
    dtc.ZEKOLinkFromFields(4, "CUSTNO");
    EXPECT_EQ(dtc.ZEKOLinkToFields(4), "CUSTNO");
    EXPECT_EQ(dtc.ZEKO.LinksGrid.TextMatrix(1, links_column::From), "CUSTNO");
}

TEST_F(PropertiesTest, ChoosingAProviderActsLikeAnAuthorsChoice) {
    int clicks = 0;
    const auto listening = dtc.DataProvidersCombo.Click.subscribe([&] { ++clicks; });
    dtc.DataProvider("Stock");
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(dtc.DataProvidersCombo.ListIndex(), 1);
    dtc.LinkedDataProvider("Orders");
    EXPECT_EQ(dtc.ZEKO.LinkedDataProvidersCombo.Text(), "Orders");
    EXPECT_EQ(dtc.EAI.LinkedDataProvidersCombo.Text(), "");
    EXPECT_THAT(notices(), ElementsAre("DataProvider", "LinkedDataProvider"));
}

TEST_F(PropertiesTest, ScriptsAreHandedOutAndReplacedAsOneObject) {
    const auto scripts = std::make_shared<ScriptDictionary>();
    setProperty(dtc, "UserDefinedScripts", {}, scripts);
    dtc.UserDefinedScripts()->Add("f", "text");
    EXPECT_EQ(scripts->Count(), 1);
    EXPECT_EQ(getProperty(dtc, "UserDefinedScripts"), PublicValue(scripts));
    setProperty(dtc, "NrOfUserDefinedScripts", {}, 7);
    EXPECT_EQ(dtc.NrOfUserDefinedScripts(), 7);
    EXPECT_THAT(notices(), ElementsAre("UserDefinedScripts", "NrOfUserDefinedScripts"));
}

}  // namespace
}  // namespace headerdtc
