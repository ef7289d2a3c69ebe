#include "editor_fixture.h"

namespace headerdtc {
namespace {

using enum Key::Kind;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class CriteriaGridTest : public FamilyTest {
  protected:
    std::vector<std::string> column(int column) const {
        std::vector<std::string> cells;
        for (int row = 0; row < grid.Rows(); ++row)
            cells.push_back(grid.TextMatrix(row, column));
        return cells;
    }

    Grid& grid = family.CriteriaGrid;
};

INSTANTIATE_TEST_SUITE_P(Families, CriteriaGridTest, ::testing::ValuesIn(BothFamilies),
                         nameOfFamily);

TEST_P(CriteriaGridTest, TheMarkerFollowsAndTheDotsStay) {
    grid.focus();
    EXPECT_THAT(column(0), ElementsAre("", "*"));
    EXPECT_THAT(notices(), ElementsAre(named("Criteria")));
    family.AddCriteriumCommand.press();
    EXPECT_THAT(column(0), ElementsAre("", "", "*"));
    EXPECT_THAT(column(4), ElementsAre("", "...", "..."));
    EXPECT_EQ(grid.Row(), 2);
    notices();
    press(grid, Up);
    EXPECT_THAT(column(0), ElementsAre("", "*", ""));
    // The marker is not stored.
    EXPECT_THAT(notices(), IsEmpty());
}

TEST_P(CriteriaGridTest, TheScrollBarTakesItsRoomFromTheValueColumnOnce) {
    const int width = grid.ColWidth(3);
    while (grid.Rows() < 9)
        family.AddCriteriumCommand.press();
    EXPECT_EQ(grid.ColWidth(3), width - 255);
    while (grid.Rows() > 3)
        family.RemoveCriteriumCommand.press();
    EXPECT_EQ(grid.ColWidth(3), width);
}

TEST_P(CriteriaGridTest, RemoveTakesTheCurrentRowAndTheTypeOfItsValue) {
    grid.Rows(4);
    int row = 0;
    for (const char* value : {"one", "two", "three"}) {
        grid.TextMatrix(++row, 3, value);
        family.CriteriaType.Add(value, INCLUDEFUNCTION);
        dtc.userDefinedScripts->Add(value, "script");
    }
    grid.clickCell(2, 3);
    notices();
    family.RemoveCriteriumCommand.press();
    EXPECT_THAT(column(3), ElementsAre("Value", "one", "three"));
    EXPECT_THAT(column(0), ElementsAre("", "", "*"));
    EXPECT_FALSE(family.CriteriaType.Exists("two"));
    EXPECT_EQ(family.CriteriaType.Count(), 2);
    EXPECT_TRUE(dtc.userDefinedScripts->Exists("two"));
    EXPECT_THAT(notices(), ElementsAre(named("Criteria"), named("CriteriaCount")));
    family.RemoveCriteriumCommand.press();
    EXPECT_THAT(column(3), ElementsAre("Value", "one"));
    // The last one is emptied and keeps its row.
    for (const auto& announced : {std::vector{named("Criteria")}, {}}) {
        notices();
        family.RemoveCriteriumCommand.press();
        EXPECT_THAT(column(3), ElementsAre("Value", ""));
        EXPECT_THAT(column(0), ElementsAre("", "*"));
        EXPECT_EQ(notices(), announced);
    }
}

TEST_P(CriteriaGridTest, RemoveWithoutACurrentRowDoesNothing) {
    grid.Rows(3);
    family.RemoveCriteriumCommand.press();
    grid.clickCell(2, 3);
    grid.Rows(2);
    notices();
    family.RemoveCriteriumCommand.press();
    EXPECT_EQ(grid.Rows(), 2);
    EXPECT_THAT(notices(), IsEmpty());
    EXPECT_THAT(errors(), IsEmpty());
    // The row that was marked counts, not the one that the grid has gone back to.
    grid.Rows(3);
    grid.TextMatrix(1, 3, "stays");
    family.RemoveCriteriumCommand.press();
    EXPECT_THAT(column(3), ElementsAre("Value", "stays"));
}

TEST_P(CriteriaGridTest, ARowTooManyIsReported) {
    grid.Rows(MaxListCount);
    family.AddCriteriumCommand.press();
    EXPECT_THAT(errors(),
                ElementsAre(report("AddCriteriumCommand_Click", "Invalid property value (380)")));
    EXPECT_THAT(notices(), IsEmpty());
}

// A host that stumbles over a notice shows under which name each handler works.
TEST_P(CriteriaGridTest, FailuresAreReportedUnderTheHandlersOwnNames) {
    constexpr const char* Failure = "Device I/O error (57)";
    grid.Rows(3);
    outside.changes.onChange = [](const std::string&) {
        throw RuntimeError(ErrorNumber::DeviceIoError);
    };
    grid.focus();
    EXPECT_THAT(errors(), ElementsAre(report("CriteriaGrid_GotFocus", Failure)));
    grid.clickCell(2, 1);
    EXPECT_THAT(errors(), ElementsAre(report("CriteriaGrid_EnterCell", Failure)));
    family.KeyFieldsCombo.choose("CUSTNO");
    grid.clickCell(2, 2);
    EXPECT_THAT(errors(), ElementsAre(report("KeyFieldsCombo_LostFocus", Failure)));
    family.OperatorsCombo.choose("<=");
    grid.doubleClickCell(2, 3);
    EXPECT_THAT(errors(), ElementsAre(report("OperatorsCombo_LostFocus", Failure)));
    family.KeyFieldValueText.type("7");
    family.RemoveCriteriumCommand.press();
    EXPECT_THAT(errors(), ElementsAre(report("KeyFieldValueText_LostFocus", Failure),
                                      report("RemoveCriteriumCommand_Click", Failure)));
}

TEST_P(CriteriaGridTest, AnEditorThatCannotBeShownIsReported) {
    family.KeyFieldsCombo.Enabled(false);
    grid.clickCell(1, 1);
    EXPECT_THAT(errors(), ElementsAre("Error in 'CriteriaGridEdit': "
                                      "Invalid procedure call or argument (5)"));
}

// The script dialog behind the last column, here a procedure that the test fills in.
class ScriptColumnTest : public CriteriaGridTest {
  protected:
    ScriptColumnTest() {
        grid.Rows(3);
        grid.TextMatrix(2, 3, " Lowest ");
        grid.TextMatrix(2, 4, "...");
        dtc.procedures.ShowSpecifyCriteriumDialog =
            [this](int number, int row, const std::string& name, const std::string& script,
                   std::int32_t valueType) {
                openedFor.push_back(std::to_string(number) + "," + std::to_string(row) + "," +
                                    name + "," + script + "," + std::to_string(valueType));
                if (dialog) dialog(number, row);
            };
    }
    std::vector<std::string> openedFor;
    std::function<void(int number, int row)> dialog;
};

INSTANTIATE_TEST_SUITE_P(Families, ScriptColumnTest, ::testing::ValuesIn(BothFamilies),
                         nameOfFamily);

TEST_P(ScriptColumnTest, OpensForTheTrimmedValueWithItsScriptAndType) {
    family.CriteriaType.Add("Lowest", USERSCRIPT);
    dtc.userDefinedScripts->Add("Lowest", "text");
    grid.clickCell(2, 4);
    EXPECT_THAT(openedFor,
                ElementsAre(GetParam() == Family::EAI ? "1,2,Lowest,text,2" : "2,2,Lowest,text,2"));
    EXPECT_THAT(notices(), IsEmpty());
    grid.doubleClickCell(2, 3);
    EXPECT_EQ(openedFor.size(), 1U);
}

TEST_P(ScriptColumnTest, ANewValueIsAddedToTheDictionariesByLookingItUp) {
    grid.clickCell(2, 4);
    EXPECT_TRUE(dtc.userDefinedScripts->Exists("Lowest"));
    EXPECT_TRUE(family.CriteriaType.Exists("Lowest"));
    EXPECT_EQ(dtc.family(otherFamily(GetParam())).CriteriaType.Count(), 0);
    // The author changed nothing.
    EXPECT_THAT(notices(), IsEmpty());
}

TEST_P(ScriptColumnTest, WhatTheDialogStoresIsAnnouncedWhenItHasClosed) {
    family.CriteriaType.Add("Lowest", USERSCRIPT);
    dtc.userDefinedScripts->Add("Lowest", "text");
    dialog = [this](int number, int row) {
        dtc.SetCriteriumValue(number, row, "Lowest", "text", USERSCRIPT);
        EXPECT_THAT(notices(), IsEmpty());
    };
    grid.clickCell(2, 4);
    EXPECT_EQ(grid.TextMatrix(2, 3), "Lowest");
    EXPECT_THAT(notices(), ElementsAre(named("Criteria")));
    // What was stored before a failure is announced too.
    dialog = [this](int number, int) {
        dtc.SetCriteriumValue(number, 7, "Lowest", "another", USERSCRIPT);
    };
    grid.clickCell(2, 4);
    EXPECT_THAT(errors(),
                ElementsAre(report("CriteriaGrid_Click", "Invalid property array index (381)")));
    EXPECT_THAT(notices(), ElementsAre("UserDefinedScripts"));
}

}  // namespace
}  // namespace headerdtc
