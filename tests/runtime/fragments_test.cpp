#include "runtime/fragments.h"

#include "core/filled_control.h"

namespace headerdtc {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FragmentsTest : public ControlTest {
  protected:
    void addCriterion(FamilyControls& family, const char* key, const char* op, const char* value) {
        Grid& grid = family.CriteriaGrid;
        if (rows_++ > 0) grid.Rows(grid.Rows() + 1);
        const int row = grid.Rows() - 1;
        grid.TextMatrix(row, criteria_column::Key, key);
        grid.TextMatrix(row, criteria_column::Operator, op);
        grid.TextMatrix(row, criteria_column::Value, value);
    }
    void addLink(FamilyControls& family, const char* from, const char* to) {
        Grid& grid = family.LinksGrid;
        if (rows_++ > 0) grid.Rows(grid.Rows() + 1);
        grid.TextMatrix(grid.Rows() - 1, links_column::From, from);
        grid.TextMatrix(grid.Rows() - 1, links_column::To, to);
    }

  private:
    int rows_ = 0;
};

TEST_F(FragmentsTest, AnUnknownFamilyCodeGivesNothing) {
    FilledControl filled;
    for (const int code : {-1, 0, 1, 2, 3, 4, 5, 6}) {
        SCOPED_TRACE(code);
        const bool own = code == 1 || code == 2;
        for (const auto generator :
             {GetKeyFieldsRuntimeText, GetReturnFieldsRuntimeText, GetCriteriaRuntimeText,
              GetI18NFieldnamesRuntimeText, GetI18NFieldValuesRuntimeText})
            EXPECT_EQ(generator(filled.dtc, code).empty(), !own);
        const bool linked = code == 4 || code == 5;
        for (const auto generator : {GetLinkedReturnFieldsRuntimeText, GetLinkedFieldsRuntimeText})
            EXPECT_EQ(generator(filled.dtc, code).empty(), !linked);
    }
}

// ---- return fields, own and linked --------------------------------------------------------------

TEST_F(FragmentsTest, ZekoFieldsAreANumberAndANameAndFailWithoutASeparator) {
    fill(dtc.ZEKO.SelectedFieldsList, {"  7 - CUST - NO", "12 - "});
    fill(dtc.ZEKO.SelectedLinkedFieldsList, {"1 - ITEM"});
    EXPECT_EQ(GetReturnFieldsRuntimeText(dtc, 2),
              "<RETURN_FIELDS_VARNAME>.Add   7, \"CUST\"\r\n\t\t\t"
              "<RETURN_FIELDS_VARNAME>.Add 12, \"\"\r\n\t\t\t");
    EXPECT_EQ(GetLinkedReturnFieldsRuntimeText(dtc, 5),
              "<LINKED_RETURN_FIELDS_VARNAME>.Add 1, \"ITEM\"\r\n\t\t\t");
    fill(dtc.ZEKO.SelectedFieldsList, {"2-CUSTNO"});
    fill(dtc.ZEKO.SelectedLinkedFieldsList, {"ITEM"});
    EXPECT_EQ(numberOf([&] { GetReturnFieldsRuntimeText(dtc, 2); }), 9);
    EXPECT_EQ(numberOf([&] { GetLinkedReturnFieldsRuntimeText(dtc, 5); }), 9);
}

// ---- criteria -----------------------------------------------------------------------------------

TEST_F(FragmentsTest, ConstantsAreQuotedAndFunctionsCalled) {
    addCriterion(dtc.EAI, " ORDNO ", "==", " 10");
    addCriterion(dtc.EAI, "CUSTNO", "<=", "local");
    addCriterion(dtc.EAI, "DATE", ">=", "included");
    dtc.EAI.CriteriaType.Add("local", USERSCRIPT);
    dtc.EAI.CriteriaType.Add("included", INCLUDEFUNCTION);
    dtc.ZEKO.CriteriaType.Add(" 10", USERSCRIPT);
    EXPECT_EQ(GetCriteriaRuntimeText(dtc, 1),
              "<DATAPROVIDER_VARNAME>.SetKeyValue \"ORDNO\", 0, \" 10\"\r\n\t\t\t"
              "<DATAPROVIDER_VARNAME>.SetKeyValue \"CUSTNO\", 1, local()\r\n\t\t\t"
              "<DATAPROVIDER_VARNAME>.SetKeyValue \"DATE\", 2, included()\r\n\t\t\t");
    EXPECT_THAT(messages(), IsEmpty());
    EXPECT_EQ(dtc.EAI.CriteriaType.item(" 10"), CONSTANT) << "looking it up has added it";
    EXPECT_EQ(dtc.EAI.CriteriaType.Count(), 3);
}

TEST_F(FragmentsTest, IncompleteCriteriaAreLeftOutAndRemarkedUponWhenTheyHaveAKey) {
    addCriterion(dtc.ZEKO, "ORDNO", "==", "");
    addCriterion(dtc.ZEKO, "", "", "");
    addCriterion(dtc.ZEKO, "  ", "==", "10");
    addCriterion(dtc.ZEKO, "CUSTNO", "", "10");
    addCriterion(dtc.ZEKO, "DATE", "==", " ");
    EXPECT_EQ(GetCriteriaRuntimeText(dtc, 2),
              "<DATAPROVIDER_VARNAME>.SetKeyValue \"DATE\", 0, \" \"\r\n\t\t\t");
    EXPECT_THAT(messages(), ElementsAre("Incomplete criterion on line 1 on the ZEKO tab",
                                        "Incomplete criterion on line 4 on the ZEKO tab"));
}

TEST_F(FragmentsTest, AnUnknownOperatorTakesTheNumberOfTheLastKnownOne) {
    addCriterion(dtc.EAI, "A", "<>", "1");
    addCriterion(dtc.EAI, "B", ">=", "1");
    addCriterion(dtc.EAI, "C", "  ", "1");
    addCriterion(dtc.EAI, "D", "<=", "");
    addCriterion(dtc.EAI, "E", "== ", "1");
    EXPECT_EQ(GetCriteriaRuntimeText(dtc, 1),
              "<DATAPROVIDER_VARNAME>.SetKeyValue \"A\", 0, \"1\"\r\n\t\t\t"
              "<DATAPROVIDER_VARNAME>.SetKeyValue \"B\", 2, \"1\"\r\n\t\t\t"
              "<DATAPROVIDER_VARNAME>.SetKeyValue \"C\", 2, \"1\"\r\n\t\t\t"
              "<DATAPROVIDER_VARNAME>.SetKeyValue \"E\", 2, \"1\"\r\n\t\t\t");
    EXPECT_THAT(messages(), ElementsAre("Unknown operator '<>' on criterion 1",
                                        "Specify operator on criterion 3",
                                        "Incomplete criterion on line 4 on the EAI tab",
                                        "Unknown operator '== ' on criterion 5"));
}

// ---- translations -------------------------------------------------------------------------------

TEST_F(FragmentsTest, TranslationsNameTheSelectedFieldsInListOrderAndOnlyTheyNeedASeparator) {
    fill(dtc.EAI.I18NFieldnamesList, {"O.A", "O. B .X", "O.C", "PLAIN"});
    EXPECT_EQ(GetI18NFieldnamesRuntimeText(dtc, 1), "");
    dtc.EAI.I18NFieldnamesList.Selected({2, 1}, true);
    EXPECT_EQ(GetI18NFieldnamesRuntimeText(dtc, 1),
              "<DATAPROVIDER_VARNAME>.setTranslatedFieldNames( Array( _\r\n"
              "\t\t\t\t\"B\",  _\r\n"
              "\t\t\t\t\"C\" _\r\n"
              "\t\t\t))");
    dtc.EAI.I18NFieldnamesList.Selected(3, true);
    EXPECT_EQ(numberOf([&] { GetI18NFieldnamesRuntimeText(dtc, 1); }), 9);
}

// ---- links --------------------------------------------------------------------------------------

TEST_F(FragmentsTest, TheFirstLinkGoesWithoutIndentationAfterItAndEachNeedsItsSeparator) {
    addLink(dtc.ZEKO, "", "ignored");
    addLink(dtc.ZEKO, "1 - ORDNO", "ITEM");
    addLink(dtc.ZEKO, "", "");
    addLink(dtc.ZEKO, "2 -  CUST - NO", "9 - PLACE");
    addLink(dtc.ZEKO, "3 - DATE", "");
    EXPECT_EQ(GetLinkedFieldsRuntimeText(dtc, 5),
              "<LINKED_FIELDS_VARNAME>.Add \"ORDNO\", \"ITEM\"\r\n"
              "<LINKED_FIELDS_VARNAME>.Add \" CUST\", \"9 - PLACE\"\r\n\t\t\t"
              "<LINKED_FIELDS_VARNAME>.Add \"DATE\", \"\"\r\n\t\t\t");
    addLink(dtc.ZEKO, "4-STATE", "ITEM");
    EXPECT_EQ(numberOf([&] { GetLinkedFieldsRuntimeText(dtc, 5); }), 9);
}

}  // namespace
}  // namespace headerdtc
