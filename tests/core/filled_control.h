#pragma once

#include "core/control_fixture.h"

namespace headerdtc {

// A control in which everything that is stored or generated has a value of its own.
struct FilledControl : TestControl {
    FilledControl() {
        dtc.EnableExtraFiltersCheck.Value(CheckState::Checked);
        dtc.DataProvidersCombo.ListIndex(0);
        dtc.dataProvider = "Orders";
        fill(dtc.IncludeASPList, {"Include/a.asp", "b.asp"});
        dtc.XSLFilenameText.Text("xsl/Orders.xsl");
        dtc.userDefinedScripts->Add("getCust", "Function getCust()\r\nEnd Function");
        dtc.userDefinedScripts->Add("other", "Function other()\r\nEnd Function");
        dtc.linkedDataProvider = "Stock";

        fillFields(dtc.ZEKO, {"1 - ORDNO", "2 - CUSTNO", "3 - DATE"});
        fillFields(dtc.EAI, {"ORDERS.ORDNO", "ORDERS.CUSTNO"});
        dtc.ZEKO.I18NFieldnamesList.Selected({0, 2}, true);
        dtc.ZEKO.I18NFieldValuesList.Selected({1}, true);
        dtc.EAI.I18NFieldnamesList.Selected({1}, true);
        dtc.EAI.I18NFieldValuesList.Selected({0, 1}, true);
        fill(dtc.ZEKO.FieldsList, {"4 - TOTAL"});
        fill(dtc.EAI.FieldsList, {"ORDERS.TOTAL", "ORDERS.STATE"});
        fill(dtc.ZEKO.KeyFieldsCombo, {"ORDNO", "CUSTNO"});
        fill(dtc.EAI.KeyFieldsCombo, {"CUSTNO"});

        dtc.ZEKO.CriteriaGrid.Rows(4);
        addCriterion(dtc.ZEKO, 1, "ORDNO", "==", "10", CONSTANT);
        addCriterion(dtc.ZEKO, 2, "CUSTNO", "<=", "getCust", USERSCRIPT);
        addCriterion(dtc.EAI, 1, "CUSTNO", ">=", "fromFile", INCLUDEFUNCTION);
        dtc.ZEKO.CriteriaGrid.TextMatrix(2, criteria_column::Marker, "*");
        dtc.ZEKO.CriteriaGrid.TextMatrix(2, criteria_column::Script, "...");

        for (const Family which : BothFamilies)
            dtc.family(which).LinkedDataProvidersCombo.ListIndex(1);
        fill(dtc.ZEKO.LinkedFieldsList, {"1 - ITEM", "2 - PLACE"});
        fill(dtc.EAI.LinkedFieldsList, {"STOCK.ITEM"});
        fill(dtc.ZEKO.SelectedLinkedFieldsList, {"3 - AMOUNT"});
        fill(dtc.EAI.SelectedLinkedFieldsList, {"STOCK.PLACE", "STOCK.AMOUNT"});
        fill(dtc.ZEKO.ToLinkFieldsCombo, {"ITEM", "PLACE"});
        fill(dtc.EAI.ToLinkFieldsCombo, {"PLACE"});
        dtc.ZEKO.LinksGrid.Rows(3);
        addLink(dtc.ZEKO, 1, "1 - ORDNO", "ITEM");
        addLink(dtc.ZEKO, 2, "2 - CUSTNO", "PLACE");
        addLink(dtc.EAI, 1, "ORDERS.ORDNO", "PLACE");
    }

  private:
    static void fillFields(FamilyControls& family, std::initializer_list<const char*> fields) {
        fill(family.SelectedFieldsList, fields);
        fill(family.I18NFieldnamesList, fields);
        fill(family.I18NFieldValuesList, fields);
        fill(family.FromLinkFieldsCombo, fields);
    }
    static void addCriterion(FamilyControls& family, int row, const char* key, const char* op,
                             const char* value, CriteriumValueType type) {
        family.CriteriaGrid.TextMatrix(row, criteria_column::Key, key);
        family.CriteriaGrid.TextMatrix(row, criteria_column::Operator, op);
        family.CriteriaGrid.TextMatrix(row, criteria_column::Value, value);
        family.CriteriaType.Add(value, type);
    }
    static void addLink(FamilyControls& family, int row, const char* from, const char* to) {
        family.LinksGrid.TextMatrix(row, links_column::From, from);
        family.LinksGrid.TextMatrix(row, links_column::To, to);
    }
};

}  // namespace headerdtc
