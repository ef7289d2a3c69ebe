#include "core/control_fixture.h"
#include "i18n/field_translation.h"

#include <map>

namespace headerdtc {
namespace {

using enum Key::Kind;
using headerdtc::testing::FakeRows;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

// The I18N tab of a control with two ZEKO return fields, over a database that answers by table.
class TranslationDialogs : public ::testing::Test, protected BareControl {
  protected:
    TranslationDialogs() {
        outside.database.execute = [this](const std::string& sql) { return answer(sql); };
        dtc.UserControl_Initialize();
        dtc.dataProvider = "Orders";
        fill(dtc.ZEKO.I18NFieldnamesList, {"1 - ORDNO", "2 - CUSTNO"});
        fill(dtc.ZEKO.I18NFieldValuesList, {"1 - ORDNO", "2 - CUSTNO"});
        fill(dtc.EAI.I18NFieldnamesList, {"ORDERS.ORDNO.X"});
        dtc.SSTab1.Tab(3);
    }

    FakeRows answer(const std::string& sql) {
        for (const auto& [part, error] : failing) {
            if (sql.find(part) != std::string::npos) throw error;
        }
        if (sql.starts_with("SELECT * FROM I18NFIELDNAMES")) return {{"LABEL"}, fieldnameRows, 0};
        if (sql.starts_with("SELECT * FROM I18NFIELDVALUES"))
            return {{"FIELDVALUE", "LABEL", "TEXT"}, valueRows, 0};
        if (sql.starts_with("SELECT TEXT")) {
            const auto quote = sql.rfind('\'', sql.size() - 2);
            const auto found = texts.find(sql.substr(quote + 1, sql.size() - quote - 2));
            if (found == texts.end()) return {{"TEXT"}, {}, 0};
            return {{"TEXT"}, {{found->second}}, 0};
        }
        if (sql.starts_with("SELECT * FROM I18NTEXT")) {
            FakeRows rows{{"LABEL"}, {}, 0};
            for (const auto& [label, text] : texts)
                rows.rows.push_back({label});
            return rows;
        }
        return {{}, {}, affected};
    }

    // The writing statements so far.
    std::vector<std::string> written() const {
        std::vector<std::string> statements;
        for (const auto& entry : outside.database.log) {
            if (entry.starts_with("INSERT") || entry.starts_with("UPDATE") ||
                entry.starts_with("DELETE"))
                statements.push_back(entry);
        }
        return statements;
    }

    template <class Kind>
    static Kind& control(Form& form, const char* name) {
        return dynamic_cast<Kind&>(*form.find(name));
    }
    static void pushButton(Form& form, const char* name) { control<Button>(form, name).press(); }
    void onNextDialog(std::function<void(Form&)> script) {
        outside.modalLoop.scripts.push_back(std::move(script));
    }

    FieldTranslation translation{dtc};
    std::vector<std::vector<std::string>> fieldnameRows;
    std::vector<std::vector<std::string>> valueRows;
    std::map<std::string, std::string> texts = {{"SLBDA1", "One"}, {"SLBDA2", "Two"}};
    std::map<std::string, RuntimeError> failing;
    std::int32_t affected = 1;
};

TEST_F(TranslationDialogs, AClickAsksOnlyWhenTheFieldNameHasNoTranslation) {
    fieldnameRows = {{"SLBDA1"}};
    dtc.ZEKO.I18NFieldnamesList.select({1}, 1);
    EXPECT_THAT(outside.modalLoop.formsShown, IsEmpty());
    EXPECT_THAT(notices(), ElementsAre("ZEKOReturnFields"));

    fieldnameRows.clear();
    std::string question;
    onNextDialog([&](Form& form) {
        question = control<Label>(form, "QuestionTextLabel").Caption();
        pushButton(form, "CancelButton");
    });
    dtc.ZEKO.I18NFieldnamesList.select({1}, 1);
    EXPECT_EQ(question, "Do you want to add the translation for field 'CUSTNO'?");
    EXPECT_THAT(outside.modalLoop.formsShown, ElementsAre("AddI18NFieldQuestionDialog"));

    dtc.EAI.I18NFieldnamesList.select({0}, 0);
    EXPECT_THAT(outside.database.log, Contains(HasSubstr("FIELDNAME='ORDNO'")));
    EXPECT_THAT(notices(), ElementsAre("ZEKOReturnFields", "EAIReturnFields"));
}

TEST_F(TranslationDialogs, AnEntryWithoutFieldNameOrAHiddenListOpensNothing) {
    dtc.ZEKO.I18NFieldnamesList.AddItem("CUSTNO");
    dtc.ZEKO.I18NFieldnamesList.select({2}, 2);
    EXPECT_THAT(messages(),
                ElementsAre("Error in 'ZEKOI18NFieldnamesList_Click': Subscript out of range (9)"));
    EXPECT_THAT(notices(), IsEmpty());

    dtc.SSTab1.Tab(0);
    dtc.ZEKO.I18NFieldnamesList.ListIndex(0);
    EXPECT_THAT(outside.modalLoop.formsShown, IsEmpty());
    EXPECT_THAT(notices(), ElementsAre("ZEKOReturnFields"));
}

TEST_F(TranslationDialogs, AYesLastsAndTheFieldNameDialogsComboOnlyGrows) {
    const auto agree = [](Form& form) { pushButton(form, "OKButton"); };
    std::vector<int> counts;
    const auto countAndCancel = [&](Form& form) {
        counts.push_back(control<ComboBox>(form, "LabelsCombo").ListCount());
        pushButton(form, "CancelButton");
    };
    onNextDialog(agree);
    onNextDialog(countAndCancel);
    dtc.ZEKO.I18NFieldnamesList.select({1}, 1);
    onNextDialog([](Form& form) { pushButton(form, "CancelButton"); });
    onNextDialog(countAndCancel);
    dtc.ZEKO.I18NFieldnamesList.select({0}, 0);
    EXPECT_THAT(counts, ElementsAre(2, 4));
    EXPECT_THAT(written(), IsEmpty());
}

TEST_F(TranslationDialogs, TheFieldNameDialogShowsTheEnglishTextAndStoresTheTypedLabel) {
    affected = 0;
    onNextDialog([](Form& form) { pushButton(form, "OKButton"); });
    onNextDialog([&](Form& form) {
        EXPECT_FALSE(form.find("FieldNameText")->Enabled());
        control<ComboBox>(form, "LabelsCombo").type("SLBDA2");
        form.find("AddLabelCommand")->focus();
        EXPECT_EQ(control<TextBox>(form, "TranslationText").Text(), "Two");
        control<ComboBox>(form, "LabelsCombo").type("SLBDA2001");
        pushButton(form, "OKButton");
        EXPECT_EQ(control<TextBox>(form, "TranslationText").Text(), "");
        EXPECT_FALSE(form.Visible());
    });
    dtc.ZEKO.I18NFieldnamesList.select({1}, 1);
    EXPECT_THAT(written(), ElementsAre(HasSubstr("SET LABEL = 'SLBDA2001'"),
                                       EndsWith("('Orders', 'zeko', 'CUSTNO', 'SLBDA2001')")));
}

TEST_F(TranslationDialogs, FailuresAreReportedUnderTheEstablishedNames) {
    failing.emplace("SELECT * FROM I18NFIELDNAMES", RuntimeError(7, "no table"));
    failing.emplace("SELECT * FROM I18NTEXT", RuntimeError(8, "no texts"));
    failing.emplace("UPDATE", RuntimeError(9, "no write"));
    onNextDialog([](Form& form) { pushButton(form, "OKButton"); });
    onNextDialog([](Form& form) {
        pushButton(form, "OKButton");
        EXPECT_TRUE(form.Visible());
    });
    dtc.ZEKO.I18NFieldnamesList.select({1}, 1);
    EXPECT_THAT(messages(), ElementsAre("Error in 'FieldnameTranslationExists': no table (7)",
                                        "Error in 'UpdateLabels': no texts (8)",
                                        "Error in 'AddLabelCommand_Click': no write (9)"));
}

// The field-value dialog over two loaded values.
class FieldValueDialog : public TranslationDialogs {
  protected:
    FieldValueDialog() { valueRows = {{"A", "SLBDA1", "One"}, {"B", "SLBDA2", "Two"}}; }

    void open(std::function<void(Form&, Grid&, TextBox&, ComboBox&)> script) {
        onNextDialog([script](Form& form) {
            script(form, control<Grid>(form, "I18NFieldValuesGrid"),
                   control<TextBox>(form, "EditText"), control<ComboBox>(form, "LabelsCombo"));
        });
        dtc.ZEKO.I18NFieldValuesList.select({1}, 1);
    }
};

TEST_F(FieldValueDialog, OpensWithOneRowForEachValueAndTheMarkerOnTheFirst) {
    open([](Form&, Grid& grid, TextBox&, ComboBox& labels) {
        EXPECT_EQ(grid.Rows(), 3);
        EXPECT_EQ(grid.TextMatrix(1, 0), "*");
        EXPECT_EQ(grid.TextMatrix(2, 3), "Two");
        EXPECT_EQ(grid.ColWidth(3), grid.Width() - 3100);
        EXPECT_EQ(labels.ListCount(), 2);
    });
    valueRows.clear();
    open([](Form&, Grid& grid, TextBox&, ComboBox&) {
        EXPECT_EQ(grid.Rows(), 2);
        EXPECT_EQ(grid.TextMatrix(1, 1), "");
    });
}

TEST_F(FieldValueDialog, ARenamedValueIsDeletedAndInsertedAndAnotherRowIsNotTouched) {
    open([](Form& form, Grid& grid, TextBox& edit, ComboBox&) {
        grid.clickCell(1, 1);
        EXPECT_EQ(edit.Text(), "A");
        EXPECT_EQ(edit.SelLength(), 1);
        edit.type("C");
        // The value lands in the edited row though another one is entered.
        grid.clickCell(2, 3);
        EXPECT_EQ(grid.TextMatrix(1, 1), "C");
        EXPECT_EQ(grid.TextMatrix(2, 1), "B");
        EXPECT_FALSE(edit.Visible());
        pushButton(form, "OKButton");
    });
    EXPECT_THAT(
        written(),
        ElementsAre(
            EndsWith(
                "= 'Orders' AND BISTYPE = 'zeko' AND FIELDNAME = 'CUSTNO' AND FIELDVALUE = 'A'"),
            EndsWith("VALUES ('Orders', 'zeko', 'CUSTNO', 'C', 'SLBDA1')")));
}

TEST_F(FieldValueDialog, AChosenLabelShowsItsTextAndOnlyThatChangeIsWritten) {
    open([](Form& form, Grid& grid, TextBox&, ComboBox& labels) {
        grid.clickCell(1, 2);
        EXPECT_EQ(labels.Text(), "SLBDA1");
        EXPECT_TRUE(labels.Visible());
        labels.choose("SLBDA2");
        EXPECT_FALSE(labels.Visible());
        EXPECT_EQ(grid.TextMatrix(1, 3), "Two");
        grid.clickCell(2, 2);
        pushButton(form, "OKButton");
    });
    EXPECT_THAT(written(), ElementsAre(HasSubstr("SET LABEL = 'SLBDA2' WHERE PROVIDERNAME")));
}

TEST_F(FieldValueDialog, ATypedCharacterBeginsTheEditorOfTheCellWithTheCaretAfterIt) {
    open([](Form& form, Grid& grid, TextBox& edit, ComboBox& labels) {
        grid.clickCell(1, 3);
        EXPECT_FALSE(edit.Visible() || labels.Visible());
        press(grid, U'é');
        EXPECT_FALSE(edit.Visible() || labels.Visible());
        press(grid, Left, U'é');
        EXPECT_TRUE(labels.hasFocus());
        EXPECT_EQ(labels.Text(), "é");
        EXPECT_EQ(labels.SelStart(), 1);
        // It waits for a choice wherever the marker goes meanwhile.
        grid.clickCell(2, 3);
        EXPECT_TRUE(labels.Visible());
        EXPECT_EQ(grid.TextMatrix(1, 2), "SLBDA1");
        press(grid, Left, Left, U'x');
        EXPECT_TRUE(edit.hasFocus());
        EXPECT_EQ(edit.Text(), "x");
        EXPECT_EQ(edit.SelStart(), 1);
        EXPECT_EQ(edit.SelLength(), 0);
        form.find("CancelButton")->focus();
        EXPECT_EQ(grid.TextMatrix(2, 1), "x");
        press(grid, Enter);
        EXPECT_EQ(edit.SelLength(), 1);
    });
}

TEST_F(FieldValueDialog, TheTextColumnMakesRoomForTheScrollBarWhileTheRowsOverflow) {
    open([](Form& form, Grid& grid, TextBox&, ComboBox&) {
        const int width = grid.ColWidth(3);
        while (grid.Rows() * grid.RowHeightMin() <= grid.Height()) {
            EXPECT_EQ(grid.ColWidth(3), width);
            pushButton(form, "AddCommand");
        }
        EXPECT_EQ(grid.ColWidth(3), width - 300);
        pushButton(form, "AddCommand");
        EXPECT_EQ(grid.ColWidth(3), width - 300);
        pushButton(form, "DeleteCommand");
        pushButton(form, "DeleteCommand");
        EXPECT_EQ(grid.ColWidth(3), width);
    });
}

TEST_F(FieldValueDialog, ALabelWithoutTextShowsEmptyAndAnEmptyValueTakesNoLabel) {
    valueRows = {{"A", "GONE", "x"}};
    open([this](Form& form, Grid& grid, TextBox&, ComboBox& labels) {
        grid.clickCell(1, 2);
        EXPECT_EQ(labels.ListIndex(), -1);
        EXPECT_EQ(grid.TextMatrix(1, 2), "GONE");
        texts.erase("SLBDA1");
        labels.choose("SLBDA1");
        EXPECT_EQ(grid.TextMatrix(1, 3), "<EMPTY>");
        pushButton(form, "AddCommand");
        EXPECT_EQ(grid.Row(), 2);
        grid.clickCell(2, 2);
        EXPECT_FALSE(labels.Visible());
    });
    EXPECT_THAT(messages(), ElementsAre("Enter a value first..."));
}

TEST_F(FieldValueDialog, AValueIsEnteredOnceAndADeletedOneTypedAgainBecomesAChange) {
    open([](Form& form, Grid& grid, TextBox& edit, ComboBox&) {
        pushButton(form, "AddCommand");
        grid.clickCell(3, 1);
        edit.type("A");
        form.find("AddCommand")->focus();
        EXPECT_EQ(grid.TextMatrix(3, 1), "") << "the value is there";
        grid.clickCell(3, 1);
        edit.type("N");
        pushButton(form, "DeleteCommand");
        EXPECT_EQ(grid.Rows(), 3);
        grid.clickCell(1, 3);
        pushButton(form, "DeleteCommand");
        grid.clickCell(1, 1);
        edit.type("A");
        pushButton(form, "AddCommand");
        EXPECT_EQ(grid.TextMatrix(1, 1), "B") << "the cell keeps its text";
        pushButton(form, "OKButton");
    });
    EXPECT_THAT(messages(), ElementsAre("Value is already translated"));
    EXPECT_THAT(written(), IsEmpty());
}

TEST_F(FieldValueDialog, DeletingTheOnlyRowLeavesTheHeadersAndAFailedSaveLeavesTheDialogOpen) {
    valueRows = {{"A", "SLBDA1", "One"}};
    failing.emplace("DELETE", RuntimeError(1, "locked"));
    open([this](Form& form, Grid& grid, TextBox&, ComboBox&) {
        pushButton(form, "DeleteCommand");
        EXPECT_EQ(grid.Rows(), 2);
        EXPECT_EQ(grid.TextMatrix(0, 2), "Label");
        EXPECT_EQ(grid.TextMatrix(1, 1), "");
        pushButton(form, "OKButton");
        EXPECT_TRUE(form.Visible());
        failing.clear();
        pushButton(form, "OKButton");
        EXPECT_FALSE(form.Visible());
    });
    EXPECT_THAT(messages(), ElementsAre("Error in 'OKButton_Click': locked (1)"));
}

TEST_F(FieldValueDialog, AddLabelWarnsKeepsItsEntryAndGrowsTheList) {
    affected = 0;
    open([this](Form& form, Grid&, TextBox&, ComboBox& labels) {
        onNextDialog([this](Form& add) {
            control<TextBox>(add, "LabelNameText").type("SLBDA3");
            control<TextBox>(add, "LabelValueText").type("it's");
            failing.emplace("UPDATE", RuntimeError(5, "syntax"));
            pushButton(add, "OKButton");
            EXPECT_TRUE(add.Visible());
            failing.clear();
            pushButton(add, "OKButton");
        });
        pushButton(form, "AddLabelCommand");
        EXPECT_EQ(labels.ListCount(), 4);
        onNextDialog([](Form& add) {
            EXPECT_EQ(control<TextBox>(add, "LabelNameText").Text(), "SLBDA3");
            pushButton(add, "CancelButton");
        });
        pushButton(form, "AddLabelCommand");
    });
    EXPECT_THAT(
        messages(),
        ElementsAre("Error in 'OKButton_Click': syntax (5)",
                    HasSubstr("Error: No records affected using SQL command 'INSERT INTO")));
    EXPECT_THAT(outside.database.log, Contains("Open DSN=Orvane;UID=label;PWD="));
}

}  // namespace
}  // namespace headerdtc
