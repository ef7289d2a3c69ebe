#include "host/site/windows_paths.h"

#include "support/prologue.h"

namespace headerdtc::windows_paths_test {

class WindowsPathsTest : public Test {
  protected:
    int failureOf(std::string_view path) {
        return numberOf([&] { paths.toLocal(path); });
    }

    TempFolder folder;
    const fs::path c = folder / "drive_c";
    const WindowsPaths paths{{{'c', c / ""}, {'D', c / "Data"}}};
};

TEST_F(WindowsPathsTest, FindsEachPieceWithoutRegardToCase) {
    folder.write("drive_c/Sites/Größe/Página.ASP", "");
    const auto file = c / "Sites/Größe/Página.ASP";
    for (const char* path : {"C:\\Sites\\Größe\\Página.ASP", "c:/SITES\\GRÖßE/PÁGINA.asp",
                             "\\sites\\größe\\página.asp", "sites//.\\größe\\x\\..\\página.asp",
                             "C:..\\..\\sites\\größe\\página.asp"})
        EXPECT_EQ(paths.toLocal(path), file) << path;
    EXPECT_EQ(paths.toLocal("C:\\SITES\\New\\File.txt"), c / "Sites/New/File.txt");
    EXPECT_EQ(paths.toLocal("c:"), c);
    EXPECT_EQ(paths.toLocal("d:\\x"), c / "Data/x");
    EXPECT_EQ(paths.toLocal("Z:" + file.string()), file);
}

TEST_F(WindowsPathsTest, AnExactMatchComesFirst) {
    for (const char* name : {"drive_c/Page.asp", "drive_c/PAGE.asp", "drive_c/page.ASP"})
        folder.write(name, "");
    EXPECT_EQ(paths.toLocal("page.ASP"), c / "page.ASP");
    EXPECT_EQ(paths.toLocal("PaGe.asp"), c / "PAGE.asp") << "the first in byte order";
    // Seen at once, though the folder was looked at a moment ago.
    folder.write("drive_c/PaGe.asp", "");
    EXPECT_EQ(paths.toLocal("PaGe.asp"), c / "PaGe.asp");
    EXPECT_EQ(paths.toLocal("NEW.txt"), c / "NEW.txt");
    folder.write("drive_c/new.TXT", "");
    EXPECT_EQ(paths.toLocal("NEW.txt"), c / "new.TXT");
}

// Once a folder has rested for a while what it holds is kept, so that these are no scans of it.
TEST_F(WindowsPathsTest, ALargeFolderIsLookedThroughOnlyWhenItChanged) {
    constexpr int Files = 3000;
    for (int number = 0; number < Files; ++number)
        folder.write("drive_c/page" + std::to_string(number) + ".asp", "");
    std::this_thread::sleep_for(std::chrono::milliseconds(2600));
    for (int number = 0; number < Files; ++number) {
        const auto name = "page" + std::to_string(number) + ".asp";
        ASSERT_EQ(paths.toLocal("PAGE" + name.substr(4)), c / name);
    }
    folder.write("drive_c/new.asp", "");
    fs::rename(c / "page7.asp", c / "Page7.asp");
    EXPECT_EQ(paths.toLocal("NEW.ASP"), c / "new.asp");
    EXPECT_EQ(paths.toLocal("PAGE7.ASP"), c / "Page7.asp");
}

TEST_F(WindowsPathsTest, RefusesWhatNoFileHereCanHave) {
    EXPECT_EQ(failureOf("X:\\file"), 76);
    EXPECT_EQ(failureOf("\\\\server\\share\\file"), 76);
    EXPECT_EQ(failureOf(std::string_view("C:\\a\0b", 6)), 75);
    EXPECT_EQ(failureOf("C:\\"), 0);
}

TEST_F(WindowsPathsTest, TheLongestDriveFolderGivesTheLetter) {
    EXPECT_EQ(paths.toWindows(c / "Sites/x.asp"), "C:\\Sites\\x.asp");
    EXPECT_EQ(paths.toWindows(c / "Data/./y/../x.asp"), "D:\\x.asp");
    EXPECT_EQ(paths.toWindows(c / "Data2"), "C:\\Data2");
    EXPECT_EQ(paths.toWindows(c), "C:\\");
    EXPECT_EQ(paths.toWindows("/etc/hosts"), "Z:\\etc\\hosts");
    const WindowsPaths noRoot{{{'Z', c}}};
    EXPECT_THROW(noRoot.toWindows("/etc/hosts"), RuntimeError);
}

TEST_F(WindowsPathsTest, SymbolicLinksDoNotHideTheDrive) {
    folder.write("drive_c/Sites/x.asp", "");
    fs::create_directory_symlink(folder.path(), folder / "alias");
    fs::create_directory(folder / "elsewhere");
    fs::create_directory_symlink(folder / "elsewhere", c / "Linked");
    EXPECT_EQ(paths.toWindows(folder / "alias/drive_c/Sites/x.asp"), "C:\\Sites\\x.asp");
    EXPECT_EQ(paths.toWindows(c / "Linked/x.asp"), "C:\\Linked\\x.asp");
    const WindowsPaths byAlias{{{'C', folder / "alias/drive_c"}}};
    EXPECT_EQ(byAlias.toWindows(c / "Sites/x.asp"), "C:\\Sites\\x.asp");
    // ".." is a matter of names, as on Windows: it does not leave the drive through a link.
    EXPECT_EQ(paths.toLocal("C:\\Linked\\..\\sites\\x.asp"), c / "Sites/x.asp");
}

TEST_F(WindowsPathsTest, ANameThatIsNoUtf8ComesBack) {
    const auto file = folder.write("drive_c/caf\xE9.asp", "");
    const auto windows = paths.toWindows(file);
    EXPECT_EQ(windows.find('\xE9'), std::string::npos);
    EXPECT_EQ(paths.toLocal(windows), file);
}

}  // namespace headerdtc::windows_paths_test
