// Fields that the catalogue offers no more: kept, marked by text too, and replaced.

#include "qt/editor/health/page_health.h"
#include "qt/editor/window_fixture.h"
#include "qt/surface/selection_list.h"

namespace headerdtc::qt::health_test {

class Health : public WindowTest {
  protected:
    // "Orders" had these when the page was made; the catalogue of today has ORDNO, CUSTNO, STATUS.
    static std::string pageWithOldFields() {
        std::string params = replaceAll(
            replaceAll(Site::ordersParams(), Site::param("ZEKOReturnFieldCount", "1"),
                       Site::param("ZEKOReturnFieldCount", "3")),
            Site::param("NrOfZEKOI18NFieldnames", "0"), Site::param("NrOfZEKOI18NFieldnames", "1"));
        params += Site::params(
            "ZEKOReturnFields1=2 - CUSTOMER|ZEKOReturnFields2=3 - STATUS|"
            "ZEKOI18NFieldnames0=2 - CUSTOMER|ZEKOAvailableFieldsCount=1|"
            "ZEKOAvailableFields0=2 - CUSTNO|ZEKOKeyFieldsCount=2|ZEKOKeyFieldnames0=ORDNO|"
            "ZEKOKeyFieldnames1=CUSTOMER|ZEKOCriteria1_1=CUSTOMER|ZEKOCriteria1_2===|"
            "ZEKOCriteria1_3=1");
        return Site::page(params);
    }
    PageEditor& openOld() {
        PageEditor& editor = open("page.asp", pageWithOldFields());
        EXPECT_TRUE(eventually([&] { return editor.health().hasVanished(); }));
        return editor;
    }
    template <class Widget>
    static Widget& widget(PageEditor& editor, const char* name) {
        return *editor.controls().surface()->findChild<Widget*>(name);
    }
    static std::vector<std::string> vanished(PageEditor& editor) {
        std::vector<std::string> texts;
        for (const VanishedField& field : editor.health().vanished())
            texts.push_back(field.item.text);
        return texts;
    }
};

TEST_F(Health, AVanishedFieldStaysAndIsMarkedByTextToo) {
    PageEditor& editor = openOld();
    EXPECT_THAT(vanished(editor), ElementsAre("2 - CUSTOMER", "CUSTOMER"));
    EXPECT_FALSE(editor.isModified());
    const auto& model = *widget<SelectionList>(editor, "ZEKOSelectedFieldsList").model();
    const QModelIndex gone = model.index(1, 0);
    for (const int role : {Qt::ToolTipRole, Qt::StatusTipRole, Qt::AccessibleTextRole})
        EXPECT_THAT(gone.data(role).toString().toStdString(), HasSubstr("Not offered by Orders"));
    EXPECT_THAT(gone.data(Qt::AccessibleTextRole).toString().toStdString(),
                HasSubstr("2 - CUSTOMER, "));
    EXPECT_FALSE(gone.data(Qt::DecorationRole).isNull());
    EXPECT_TRUE(model.index(0, 0).data(Qt::ToolTipRole).isNull());
    EXPECT_EQ("1 - ORDNO", model.index(0, 0).data(Qt::AccessibleTextRole).toString());
    const auto& cells = *widget<QTableView>(editor, "ZEKOCriteriaGrid").model();
    EXPECT_THAT(cells.index(0, criteria_column::Key).data(Qt::ToolTipRole).toString().toStdString(),
                HasSubstr("choose a key field that is offered"));

    ASSERT_TRUE(eventually([&] { return window->messages().rowCount() > 0; }));
    EXPECT_THAT(messages(), AllOf(Contains(HasSubstr("return field \"2 - CUSTOMER\" is not "
                                                     "offered by \"Orders\"")),
                                  Contains(HasSubstr("key of criterion \"CUSTOMER\""))));
    command(Command::Save);
    EXPECT_THAT(site.read("page.asp"), HasSubstr("VALUE=\"2 - CUSTOMER\""));
}

TEST_F(Health, AReturnFieldIsReplacedInItsPlaceAsOneStep) {
    PageEditor& editor = openOld();
    answerDialogs([this](QWidget& dialog) {
        auto& choices = *dialog.findChild<QListWidget*>("Replacements");
        for (const int row : {-1, 0})  // as arrows lead away and back
            choices.setCurrentRow(row);
        said += choices.currentItem()->text().toStdString();
        press(dialog, "Replace");
    });
    command(Command::ReplaceField);
    // The likest name comes first; what is chosen already does not come.
    EXPECT_THAT(said, HasSubstr("2 - CUSTNO"));
    FamilyControls& zeko = dtc(editor).ZEKO;
    EXPECT_EQ("2 - CUSTNO", zeko.SelectedFieldsList.List(1));
    EXPECT_EQ(3, zeko.SelectedFieldsList.ListCount());
    EXPECT_EQ("2 - CUSTNO", zeko.I18NFieldnamesList.List(1));
    EXPECT_TRUE(zeko.I18NFieldnamesList.Selected(1));
    EXPECT_EQ(0, zeko.FieldsList.ListCount());
    EXPECT_EQ("&Undo: replace 2 - CUSTOMER by 2 - CUSTNO in ZEKO return fields",
              window->commands()[Command::Undo]->text());
    ASSERT_TRUE(eventually([&] { return vanished(editor).size() == 1; }));
    command(Command::Undo);
    EXPECT_EQ(pageWithOldFields(), editor.page().content()->bytes());
    EXPECT_TRUE(eventually([&] { return vanished(editor).size() == 2; }));
}

TEST_F(Health, AKeyIsReplacedByWhatAPersonDoes) {
    PageEditor& editor = openOld();
    const LiveControl* live = editor.controls().live();
    EXPECT_EQ("", editor.health().replace(editor.health().vanished()[1], "ORDNO"));
    EXPECT_EQ(live, editor.controls().live());
    EXPECT_EQ("ORDNO", dtc(editor).ZEKO.CriteriaGrid.TextMatrix(1, criteria_column::Key));
    EXPECT_FALSE(dtc(editor).ZEKO.KeyFieldsCombo.Visible());
    EXPECT_EQ("&Undo: replace CUSTOMER == 1 by ORDNO == 1 in ZEKO criteria",
              window->commands()[Command::Undo]->text());
    // CUSTNO is a key of today, which this control was never told of.
    command(Command::Undo);
    settle();
    EXPECT_EQ("", editor.health().replace(editor.health().vanished()[1], "CUSTNO"));
    EXPECT_EQ("CUSTNO", dtc(editor).ZEKO.CriteriaGrid.TextMatrix(1, criteria_column::Key));
}

TEST_F(Health, TheCatalogueOfTodayDecides) {
    PageEditor& editor = open("page.asp", ordersPage());
    EXPECT_FALSE(editor.health().hasVanished());
    EXPECT_FALSE(window->commands()[Command::ReplaceField]->isEnabled());
    site.write("catalogue.json", R"({"providers": [{"name": "Orders", "zeko": {"fields": [],
                                     "keyFields": []}}]})");
    command(Command::Refresh);
    ASSERT_TRUE(eventually([&] { return editor.health().hasVanished(); }));
    EXPECT_TRUE(window->commands()[Command::ReplaceField]->isEnabled());
    // A catalogue without fields is one cause.
    EXPECT_TRUE(eventually([&] {
        return Value(messages(), Contains(HasSubstr("\"Orders\" offers nothing to ZEKO")));
    }));
}

TEST_F(Health, EmptyListsSayWhy) {
    PageEditor& editor = open("page.asp", Site::page(""));
    const auto says = [&](const char* list, const char* why) {
        editor.health().judgeSoon();
        const auto& view = widget<SelectionList>(editor, list);
        return eventually([&] { return view.emptyText().contains(QLatin1String(why)); });
    };
    EXPECT_TRUE(says("ZEKOFieldsList", "No data provider is chosen on the General tab."));
    dtc(editor).DataProvidersCombo.choose("Stock");
    dtc(editor).SSTab1.clickTab(1);
    EXPECT_TRUE(says("EAIFieldsList", "The catalogue has no EAI fields of \"Stock\"."));
    EXPECT_TRUE(says("ZEKOSelectedFieldsList", "No field is chosen yet."));
    site.write("catalogue.json", "{");
    EXPECT_TRUE(says("ZEKOFieldsList", "The catalogue cannot be read"));
}

}  // namespace headerdtc::qt::health_test
