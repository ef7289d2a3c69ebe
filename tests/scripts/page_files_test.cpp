#include "script_fixture.h"

namespace headerdtc {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

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
    EXPECT_THAT(notices(), ElementsAre("XSLFilename"));
}

TEST_F(PageFilesTest, TheRootIsComparedByCharacters) {
    outside.registry.values[std::string(InstallDirValue)] = R"(C:\Größe)";
    EXPECT_EQ(browse(forInclude, R"(c:\GRÖße\Maße\é.asp)"), "Maße/é.asp");
    EXPECT_EQ(browse(forInclude, "C:\\"), "Maße/é.asp");
    EXPECT_THAT(messages(), SizeIs(1));
}

TEST_F(PageFilesTest, AFileOutsideTheRootIsRefusedAndWithoutARootTheWholePathIsTaken) {
    EXPECT_EQ(browse(forInclude, R"(C:\Sites\Other\x.asp)"), "");
    EXPECT_EQ(browse(forInclude, R"(C:\SITES\MAIN.asp)"), "");
    EXPECT_EQ(browse(forStylesheet, R"(D:\x.xsl)"), "xsl/Generic.xsl");
    EXPECT_THAT(messages(),
                ElementsAre("Can not include a file outside the Velmora site",
                            "Can not include a file outside the Velmora site",
                            R"(Can not include a file outside the Velmora site 'C:\SITES\MAIN\')"));
    EXPECT_THAT(notices(), IsEmpty());
    outside.registry.values.clear();
    EXPECT_EQ(browse(forInclude, R"(C:\Elsewhere\x.asp)"), "C:/Elsewhere/x.asp");
    EXPECT_EQ(outside.fileDialog.requests.back().initialDirectory, "");
}

TEST_F(PageFilesTest, ACancelledDialogActsOnTheFileChosenBefore) {
    EXPECT_EQ(browse(forInclude, ""), "");
    EXPECT_EQ(browse(forStylesheet, ""), "xsl/Generic.xsl");
    browse(forInclude, R"(C:\Sites\Main\a.asp)");
    EXPECT_EQ(browse(forStylesheet, ""), "a.asp");
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
    for (const char* include : {"a.asp", "A.asp", " a.asp ", "A.asp"}) {
        add(include);
        EXPECT_EQ(dtc.IncludeASPText.Text(), "");
    }
    EXPECT_THAT(itemsOf(includes), ElementsAre("a.asp", "A.asp", " a.asp "));
    EXPECT_THAT(notices(), ElementsAre("ExtraIncludes", "ExtraIncludes", "ExtraIncludes"));
    EXPECT_THAT(messages(), ElementsAre("ASP already included"));
    add("  ");
    EXPECT_EQ(dtc.IncludeASPText.Text(), "  ");
    EXPECT_EQ(includes.ListCount(), 3);
}

TEST_F(PageFilesTest, DeletingSelectsTheNextIncludeAndAfterTheLastOneTheFirst) {
    fill(includes, {"a", "b", "c", "d"});
    includes.select({1}, 1);
    EXPECT_EQ(dtc.IncludeASPText.Text(), "b");
    dtc.IncludeASPDeleteCommand.press();
    EXPECT_EQ(includes.Text(), "c");
    EXPECT_EQ(dtc.IncludeASPText.Text(), "");
    includes.select({2}, 2);
    dtc.IncludeASPDeleteCommand.press();
    EXPECT_EQ(includes.Text(), "a");
    EXPECT_THAT(itemsOf(includes), ElementsAre("a", "c"));
    EXPECT_THAT(notices(), SizeIs(2));
    includes.ListIndex(-1);
    dtc.IncludeASPDeleteCommand.press();
    EXPECT_EQ(includes.ListIndex(), -1);
    EXPECT_THAT(notices(), IsEmpty());
}

TEST_F(PageFilesTest, OnlyTheAuthorsTypingOfAStylesheetIsAnnounced) {
    dtc.XSLFilenameText.type("xsl/Mine.xsl");
    EXPECT_THAT(notices(), ElementsAre("XSLFilename"));
    dtc.IncludeASPText.focus();
    dtc.XSLFilenameText.Text("xsl/Stored.xsl");
    EXPECT_THAT(notices(), IsEmpty());
}

}  // namespace
}  // namespace headerdtc
