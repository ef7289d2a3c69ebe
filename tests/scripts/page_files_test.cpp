#include "script_fixture.h"

namespace headerdtc {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PageFilesTest : public ScriptsTest {
  protected:
    std::string browse(Button& button, const std::string& file) {
        outside.fileDialog.answers = {file};
        button.press();
        return (&button == &dtc.BrowseForXSLFileCommand ? dtc.XSLFilenameText : dtc.IncludeASPText)
            .Text();
    }
    void add(const std::string& include) {
        dtc.IncludeASPText.type(include);
        dtc.IncludeASPAddCommand.press();
    }
    void remove(int item) {
        dtc.IncludeASPList.select({item}, item);
        dtc.IncludeASPDeleteCommand.press();
    }

    Button& forInclude = dtc.BrowseForIncludeASPCommand;
    Button& forStylesheet = dtc.BrowseForXSLFileCommand;
    ListBox& includes = dtc.IncludeASPList;
};

TEST_F(PageFilesTest, AFileBelowTheRootIsNamedFromTheRootWhateverItsCase) {
    EXPECT_EQ(browse(forInclude, R"(c:\sites\main\Include\Extra.asp)"), "Include/Extra.asp");
    EXPECT_EQ(browse(forStylesheet, R"(C:\SITES\MAIN\xsl\Wide\W.xsl)"), "xsl/Wide/W.xsl");
    const auto& requests = outside.fileDialog.requests;
    ASSERT_EQ(requests.size(), 2U);
    EXPECT_EQ(requests[0].initialDirectory, R"(C:\SITES\MAIN\)");
    EXPECT_EQ(requests[0].filter, "ASP files (*.asp)|*.asp");
    EXPECT_EQ(requests[1].initialDirectory, R"(C:\SITES\MAIN\/xsl)");
    EXPECT_EQ(requests[1].filter, "XSL files (*.xsl)|*.xsl");
    EXPECT_EQ(requests[0].title, "Browse for include ASP");
    EXPECT_EQ(requests[1].title, requests[0].title);
    EXPECT_THAT(includes.ListCount(), 0);
    EXPECT_THAT(notices(), ElementsAre("XSLFilename"));
}

TEST_F(PageFilesTest, TheRootIsComparedByCharacters) {
    outside.registry.values[std::string(InstallDirValue)] = R"(C:\Größe)";
    EXPECT_EQ(browse(forInclude, R"(c:\GRÖße\Maße\é.asp)"), "Maße/é.asp");
    EXPECT_EQ(browse(forInclude, "C:\\"), "Maße/é.asp");
    EXPECT_EQ(messages().size(), 1U);
}

TEST_F(PageFilesTest, AFileOutsideTheRootIsRefused) {
    EXPECT_EQ(browse(forInclude, R"(C:\Sites\Other\x.asp)"), "");
    EXPECT_EQ(browse(forInclude, R"(C:\SITES\MAIN.asp)"), "");
    EXPECT_EQ(browse(forStylesheet, R"(D:\x.xsl)"), "xsl/Generic.xsl");
    EXPECT_THAT(messages(),
                ElementsAre("Can not include a file outside the Velmora site",
                            "Can not include a file outside the Velmora site",
                            R"(Can not include a file outside the Velmora site 'C:\SITES\MAIN\')"));
    EXPECT_THAT(notices(), IsEmpty());
}

TEST_F(PageFilesTest, ACancelledDialogActsOnTheFileChosenBefore) {
    EXPECT_EQ(browse(forInclude, ""), "");
    EXPECT_EQ(browse(forStylesheet, ""), "xsl/Generic.xsl");
    browse(forInclude, R"(C:\Sites\Main\a.asp)");
    EXPECT_EQ(browse(forStylesheet, ""), "a.asp");
}

TEST_F(PageFilesTest, WithoutARootTheWholePathIsTaken) {
    outside.registry.values.clear();
    EXPECT_EQ(browse(forInclude, R"(C:\Elsewhere\x.asp)"), "C:/Elsewhere/x.asp");
    EXPECT_EQ(messages().size(), 1U);
    EXPECT_EQ(outside.fileDialog.requests.back().initialDirectory, "");
}

TEST_F(PageFilesTest, AFailureWhileBrowsingIsReported) {
    dtc.procedures.GetInstallDir = []() -> std::string {
        throw RuntimeError(ErrorNumber::PathNotFound);
    };
    forInclude.press();
    forStylesheet.press();
    EXPECT_THAT(messages(),
                ElementsAre("Error in 'BrowseForIncludeASPCommand_Click': Path not found (76)",
                            "Error in 'BrowseForXSLFileCommand_Click': Path not found (76)"));
}

TEST_F(PageFilesTest, IncludesAreAddedAsTypedAndOnceOnly) {
    add("a.asp");
    add("A.asp");
    add(" a.asp ");
    EXPECT_THAT(itemsOf(includes), ElementsAre("a.asp", "A.asp", " a.asp "));
    EXPECT_THAT(notices(), ElementsAre("ExtraIncludes", "ExtraIncludes", "ExtraIncludes"));
    add("A.asp");
    EXPECT_THAT(messages(), ElementsAre("ASP already included"));
    EXPECT_EQ(dtc.IncludeASPText.Text(), "");
    add("  ");
    EXPECT_EQ(dtc.IncludeASPText.Text(), "  ");
    EXPECT_EQ(includes.ListCount(), 3);
    EXPECT_EQ(notices().size(), 3U);
}

TEST_F(PageFilesTest, DeletingSelectsTheNextIncludeAndAfterTheLastOneTheFirst) {
    fill(includes, {"a", "b", "c", "d"});
    includes.select({1}, 1);
    EXPECT_EQ(dtc.IncludeASPText.Text(), "b");
    dtc.IncludeASPDeleteCommand.press();
    EXPECT_EQ(includes.Text(), "c");
    EXPECT_EQ(dtc.IncludeASPText.Text(), "");
    remove(2);
    EXPECT_EQ(includes.Text(), "a");
    EXPECT_THAT(itemsOf(includes), ElementsAre("a", "c"));
    includes.ListIndex(-1);
    dtc.IncludeASPDeleteCommand.press();
    EXPECT_EQ(includes.ListIndex(), -1);
    EXPECT_EQ(notices().size(), 2U);
    remove(0);
    remove(0);
    EXPECT_EQ(includes.ListCount(), 0);
    dtc.IncludeASPDeleteCommand.press();
    EXPECT_EQ(notices().size(), 4U);
}

TEST_F(PageFilesTest, OnlyTheAuthorsTypingOfAStylesheetIsAnnounced) {
    dtc.XSLFilenameText.type("xsl/Mine.xsl");
    EXPECT_THAT(notices(), ElementsAre("XSLFilename"));
    dtc.IncludeASPText.focus();
    dtc.XSLFilenameText.Text("xsl/Stored.xsl");
    EXPECT_EQ(notices().size(), 1U);
}

}  // namespace
}  // namespace headerdtc
