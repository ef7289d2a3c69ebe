#include "runtime/runtime_text.h"

#include "core/filled_control.h"
#include "runtime/fragments.h"

namespace headerdtc::runtime_text_test {

// A control on the page /Site/a/b/page.asp of the project /Site, with a template to fill.
class RuntimeTextTest : public ControlTest {
  protected:
    RuntimeTextTest() {
        provideRuntimeText(dtc);
        dtc.procedures.GetInstallDir = [] { return std::string("C:\\SITES\\MAIN\\"); };
        outside.site.entries = {{2, "/Site"}, {6, "/Site/a/b/page.asp"}};
        dtc.site = &outside.site;
    }
    // The runtime text where the template is this.
    std::string expand(std::string text) {
        outside.textFiles.files["C:\\SITES\\MAIN\\Orvane\\include\\DTC_TEMPLATE.ASP"] =
            std::move(text);
        return dtc.IProvideRuntimeText_GetRuntimeText();
    }
};

// ---- reading the template -----------------------------------------------------------------------

TEST_F(RuntimeTextTest, EveryLineEndsInCrLfWhateverTheFileHas) {
    for (const auto& [file, text] : {std::pair{"a\nb\r\nc\rd", "a\r\nb\r\nc\r\nd\r\n"},
                                     {"a\r\n\r\nb\r\n", "a\r\n\r\nb\r\n"},
                                     {"\n\n\r\r", "\r\n\r\n\r\n\r\n"},
                                     {"\r\r\n\n\rx", "\r\n\r\n\r\n\r\nx\r\n"},
                                     {"no line end", "no line end\r\n"},
                                     {"", ""}})
        EXPECT_EQ(expand(file), text) << "from " << PrintToString(file);
}

TEST_F(RuntimeTextTest, ThePathIsJoinedWithoutASeparatorAndAMissingTemplateIsReported) {
    dtc.procedures.GetInstallDir = [] { return std::string(); };
    dtc.site = nullptr;
    EXPECT_EQ(dtc.IProvideRuntimeText_GetRuntimeText(), "");
    EXPECT_THAT(messages(),
                ElementsAre("Error in 'IProvideRuntimeText_GetRuntimeText': File not found(53)"));
    outside.textFiles.files["Orvane\\include\\DTC_TEMPLATE.ASP"] = "found";
    EXPECT_EQ(dtc.IProvideRuntimeText_GetRuntimeText(), "found\r\n");
}

// ---- the steps ----------------------------------------------------------------------------------

TEST_F(RuntimeTextTest, WhatIsNotConfiguredVanishesAndAGreyCheckBoxCountsAsOn) {
    dtc.DataProvidersCombo.ListIndex(1);
    dtc.EnableExtraFiltersCheck.Value(CheckState::Greyed);
    EXPECT_EQ(expand("<dataProvider>|<INITIAL_ZEKO_SORT_FIELD>|<INITIAL_EAI_SORT_FIELD>|"
                     "<EXTRA_INCLUDES><USER_DEFINED_SCRIPTS><SPECIFY_EAI_I18N_FIELDS>|"
                     "<LINKED_DATAPROVIDER>|<enable_extra_filters>|<DEFAULTPAGESIZE>"),
              "Stock|||||true|10\r\n");
    EXPECT_THAT(messages(), IsEmpty());
}

TEST_F(RuntimeTextTest, TheWayToTheRootIsAskedForOnce) {
    dtc.site = nullptr;
    fill(dtc.IncludeASPList, {"a.asp"});
    EXPECT_EQ(expand("<PATH_TO_ROOT><PATH_TO_ROOT><EXTRA_INCLUDES>"),
              "<!--#INCLUDE file =\"a.asp\" -->\r\n\r\n");
    EXPECT_THAT(messages(), ElementsAre("Not running in DevStudio..."));
}

TEST_F(RuntimeTextTest, ALaterStepWorksOnWhatAnEarlierOneBroughtInOrFormed) {
    dtc.DataProvidersCombo.AddItem("<XSL_FILENAME>");
    dtc.DataProvidersCombo.AddItem("FIELDS_VAR");
    dtc.DataProvidersCombo.ListIndex(2);
    EXPECT_EQ(expand("<DATAPROVIDER>"), "xsl/Generic.xsl\r\n");
    dtc.DataProvidersCombo.ListIndex(3);
    EXPECT_EQ(expand("<RETURN_<DATAPROVIDER>NAME>"), "mReturnFields\r\n");
    dtc.XSLFilenameText.Text("<DATAPROVIDER>");
    EXPECT_EQ(expand("<XSL_FILENAME>"), "<DATAPROVIDER>\r\n") << "its step has passed";
    dtc.linkedDataProvider = "<RETURN_FIELDS_VARNAME> <DATAPROVIDER_VARNAME>";
    EXPECT_EQ(expand("<LINKED_DATAPROVIDER>"), "<RETURN_FIELDS_VARNAME> mDataProvider\r\n");
}

TEST_F(RuntimeTextTest, TheSecondStepOfTheEaiReturnFieldsActsOnWhatFragmentsBringIn) {
    fill(dtc.EAI.I18NFieldValuesList, {"O.A"});
    dtc.EAI.I18NFieldValuesList.Selected(0, true);
    const std::string values =
        "mDataProvider.setTranslatedFieldValues( Array( _\r\n"
        "\t\t\t\t\"A\" _\r\n\t\t\t))";
    EXPECT_EQ(expand("<ADD_EAI_RETURN_FIELDS>."), ".\r\n");
    // The fields and the criteria of EAI come before that step, those of ZEKO after it.
    fill(dtc.EAI.SelectedFieldsList, {"<add_eai_return_fields>"});
    EXPECT_EQ(expand("<ADD_EAI_RETURN_FIELDS>"),
              "mReturnFields.Add \"" + values + "\", \"" + values + "\"\r\n\t\t\t\r\n");
    fill(dtc.ZEKO.KeyFieldsCombo, {"<ADD_EAI_RETURN_FIELDS>"});
    EXPECT_EQ(expand("<SPECIFY_ZEKO_KEYFIELDS>"), "Array(\"<ADD_EAI_RETURN_FIELDS>\")\r\n");
    EXPECT_EQ(expand("<INITIAL_ZEKO_SORT_FIELD>"), expand("<ADD_EAI_RETURN_FIELDS>"));
}

// ---- failures and remarks -----------------------------------------------------------------------

TEST_F(RuntimeTextTest, AFailureInTheMiddleGivesTheTextAsItStood) {
    dtc.DataProvidersCombo.ListIndex(0);
    fill(dtc.EAI.SelectedFieldsList, {"O.A"});
    fill(dtc.ZEKO.SelectedFieldsList, {"no number"});
    EXPECT_EQ(expand("<DATAPROVIDER> <SPECIFY_ZEKO_KEYFIELDS> <ADD_ZEKO_RETURN_FIELDS> "
                     "<ADD_EAI_RETURN_FIELDS><ENABLE_EXTRA_FILTERS>"),
              "Orders Array() <ADD_ZEKO_RETURN_FIELDS> "
              "<RETURN_FIELDS_VARNAME>.Add \"O.A\", \"O.A\"\r\n\t\t\t<ENABLE_EXTRA_FILTERS>\r\n");
    const std::string report =
        "Error in 'IProvideRuntimeText_GetRuntimeText': Subscript out of range(9)";
    EXPECT_THAT(errors(), ElementsAre(report));
    // A generator fails also where the template does not ask for it.
    EXPECT_EQ(expand("<RETURN_FIELDS_VARNAME>"), "<RETURN_FIELDS_VARNAME>\r\n");
    EXPECT_THAT(errors(), ElementsAre(report));
}

TEST(FragmentsTest, AnUnknownFamilyCodeGivesNothing) {
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

}  // namespace headerdtc::runtime_text_test
