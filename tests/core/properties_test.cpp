#include "controls/control.h"
#include "core/control_fixture.h"
#include "core/property_table.h"
#include "platform/text.h"

#include <map>

namespace headerdtc {
namespace {

// Which control an established property stands for; "%" is a family's prefix.
constexpr std::pair<const char*, const char*> ControlOfFamily[] = {
    {"%ReturnFields", "%SelectedFieldsList"},
    {"%ReturnFieldCount", "%SelectedFieldsList"},
    {"%Criteria", "%CriteriaGrid"},
    {"%CriteriaCount", "%CriteriaGrid"},
    {"%AvailableFields", "%FieldsList"},
    {"%AvailableFieldsCount", "%FieldsList"},
    {"%KeyFieldnames", "%KeyFieldsCombo"},
    {"%I18NFieldnames", "%I18NFieldnamesList"},
    {"NrOf%I18NFieldnames", "%I18NFieldnamesList"},
    {"%AvailableFieldsLinked", "%LinkedFieldsList"},
    {"NrOf%AvailableFieldsLinked", "%LinkedFieldsList"},
    {"%SelectedLinkedFields", "%SelectedLinkedFieldsList"},
    {"NrOfSelected%LinkedFields", "%SelectedLinkedFieldsList"},
    {"%LinkFromFields", "%LinksGrid"},
    {"%LinkToFields", "%LinksGrid"},
    {"NrOfLinked%Fields", "%LinksGrid"},
    {"%ToLinkKeyFields", "%ToLinkFieldsCombo"},
    {"NrOf%ToLinkKeyFields", "%ToLinkFieldsCombo"},
};

std::map<std::string, std::string, std::less<>> controlsOfProperties() {
    std::map<std::string, std::string, std::less<>> controls = {
        {"DataProvider", "DataProvidersCombo"},
        {"LinkedDataProvider", "ZEKOLinkedDataProvidersCombo"},
        {"ExtraIncludes", "IncludeASPList"},
        {"NrOfExtraIncludes", "IncludeASPList"},
        {"UserDefinedScripts", ""},
        {"NrOfUserDefinedScripts", ""},
    };
    for (const auto& [property, control] : ControlOfFamily) {
        for (const char* prefix : {"EAI", "ZEKO"})
            controls[replaceAll(property, "%", prefix)] = replaceAll(control, "%", prefix);
    }
    return controls;
}

// What a property sees of its control, whatever kind of control it is.
struct Content {
    std::vector<std::string> texts;
    int count = 0;
};

Content contentOf(const Control* control) {
    const auto ofList = [](const auto& list) { return Content{itemsOf(list), list.ListCount()}; };
    if (const auto* list = dynamic_cast<const ListBox*>(control)) return ofList(*list);
    if (const auto* combo = dynamic_cast<const ComboBox*>(control)) return ofList(*combo);
    Content cells;
    if (const auto* grid = dynamic_cast<const Grid*>(control)) {
        cells.count = grid->Rows();
        for (int i = 0; i < grid->Rows() * grid->Cols(); ++i)
            cells.texts.push_back(grid->TextArray(i));
    }
    return cells;
}

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
        return contentOf(dtc.surface.find(controlOf.find(property)->second));
    }

    const std::map<std::string, std::string, std::less<>> controlOf = controlsOfProperties();
};

TEST_F(PropertiesTest, TheTableHasEveryEstablishedProperty) {
    std::vector<std::string> names, established;
    for (const PropertyInfo& info : publicProperties())
        names.emplace_back(info.name);
    for (const auto& [property, control] : controlOf)
        established.push_back(property);
    EXPECT_THAT(names, ::testing::UnorderedElementsAreArray(established));
}

TEST_F(PropertiesTest, IndexedPropertiesReadAndWriteTheirControlAndTellTheHost) {
    for (const PropertyInfo& info : publicProperties()) {
        if (!info.indexed) continue;
        SCOPED_TRACE(info.name);
        setProperty(dtc, info.name, 1, std::string(info.name));
        EXPECT_EQ(getProperty(dtc, info.name, 1), PublicValue(std::string(info.name)));
        const auto texts = contentBehind(info.name).texts;
        EXPECT_EQ(texts.at(1), info.name);
        EXPECT_THAT(notices(), ElementsAre(info.name));
        for (const int index : {-1, static_cast<int>(texts.size()), 2'000'000'000}) {
            EXPECT_EQ(numberOf([&] { getProperty(dtc, info.name, index); }), 381);
            EXPECT_EQ(numberOf([&] { setProperty(dtc, info.name, index, "x"); }), 381);
        }
        EXPECT_EQ(contentBehind(info.name).texts, texts);
        EXPECT_THAT(notices(), IsEmpty());
    }
}

TEST_F(PropertiesTest, CountsCountTheirControlAndOnlyRowCountsAreWritten) {
    for (const PropertyInfo& info : publicProperties()) {
        if (info.type != PropertyType::Integer || controlOf.find(info.name)->second.empty())
            continue;
        SCOPED_TRACE(info.name);
        EXPECT_EQ(getProperty(dtc, info.name), PublicValue(contentBehind(info.name).count));
        const int error = numberOf([&] { setProperty(dtc, info.name, {}, 30); });
        EXPECT_EQ(error, info.writable ? 0 : 383);
        EXPECT_EQ(contentBehind(info.name).count == 30, info.writable);
    }
    EXPECT_THAT(notices(), ElementsAre("ZEKOCriteriaCount", "EAICriteriaCount",
                                       "NrOfLinkedZEKOFields", "NrOfLinkedEAIFields"));
}

TEST_F(PropertiesTest, RefusesWhatAPropertyCannotTake) {
    EXPECT_EQ(numberOf([&] { getProperty(dtc, "dataprovider"); }), 438);
    EXPECT_EQ(numberOf([&] { getProperty(dtc, "DataProvider", 0); }), 450);
    EXPECT_EQ(numberOf([&] { setProperty(dtc, "EAIReturnFields", {}, "x"); }), 450);
    EXPECT_EQ(numberOf([&] { setProperty(dtc, "EAIReturnFields", 0, 5); }), 13);
    EXPECT_EQ(numberOf([&] { setProperty(dtc, "ZEKOCriteriaCount", {}, "5"); }), 13);
    EXPECT_EQ(numberOf([&] { setProperty(dtc, "ZEKOCriteriaCount", {}, 32768); }), 6);
    EXPECT_EQ(numberOf([&] { setProperty(dtc, "ZEKOCriteriaCount", {}, 1LL << 32); }), 6);
    EXPECT_EQ(numberOf([&] { setProperty(dtc, "ZEKOCriteriaCount", {}, 0); }), 380);
    EXPECT_EQ(numberOf([&] { setProperty(dtc, "NrOfUserDefinedScripts", {}, -32769); }), 6);
    EXPECT_EQ(numberOf([&] { setProperty(dtc, "DataProvider", {}, "Nowhere"); }), 380);
    EXPECT_EQ(numberOf([&] { dtc.UserDefinedScripts(nullptr); }), 91);
    EXPECT_THAT(notices(), IsEmpty());
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
