#include "runtime/host_binding.h"

#include "core/control_fixture.h"

namespace headerdtc {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class HostBindingTest : public ControlTest {
  protected:
    std::string wayUp(const char* root, const char* page) {
        outside.site.entries = {{2, root}, {6, page}};
        return GetRelativePathRoot(dtc);
    }
    void placeOnPage() { host.IDesignTimeControl_DesignTimeControlSite(&outside.site); }

    HostBinding host{dtc};
};

TEST_F(HostBindingTest, TheSiteIsKeptAndReplaced) {
    EXPECT_EQ(host.IDesignTimeControl_DesignTimeControlSite(), nullptr);
    placeOnPage();
    EXPECT_EQ(host.IDesignTimeControl_DesignTimeControlSite(), &outside.site);
    testing::FakeSite other;
    host.IDesignTimeControl_DesignTimeControlSite(&other);
    EXPECT_EQ(host.IDesignTimeControl_DesignTimeControlSite(), &other);
    host.IDesignTimeControl_DesignTimeControlSite(nullptr);
    EXPECT_EQ(host.IDesignTimeControl_DesignTimeControlSite(), nullptr);
}

TEST_F(HostBindingTest, NotificationsChangeNothing) {
    testing::OrderedPropertyBag before, after;
    dtc.UserControl_WriteProperties(before);
    host.IDesignTimeControl_OnChoiceChange();
    host.IDesignTimeControl_OnChoiceConflict();
    host.IDesignTimeControl_OnGetChoices();
    host.IDesignTimeControl_OnHostingChange();
    host.IDesignTimeControl_OnRebind();
    host.IDesignTimeControl_OnNotification();
    dtc.UserControl_WriteProperties(after);
    EXPECT_EQ(before.entries, after.entries);
    EXPECT_THAT(outside.messages.shown, IsEmpty());
    EXPECT_THAT(outside.changes.changed, IsEmpty());
}

TEST_F(HostBindingTest, EverySlashBeyondTheRootIsALevel) {
    placeOnPage();
    EXPECT_EQ(wayUp("/Proj", "/Proj/a/b/page.asp"), "../../../");
    EXPECT_EQ(wayUp("/Proj/", "/Proj/a/b/page.asp"), "../../");
    EXPECT_EQ(wayUp("/Proj/", "/Proj/page.asp"), "");
    EXPECT_EQ(wayUp("/Proj/", "/Proj/a\\b/page.asp"), "../");
    EXPECT_EQ(wayUp("/Proj", "/Proj"), "");
    EXPECT_THAT(outside.messages.shown, IsEmpty());
}

TEST_F(HostBindingTest, AnEmptyRootIsOneLevelMore) {
    placeOnPage();
    EXPECT_EQ(wayUp("", "page.asp"), "../");
    EXPECT_EQ(wayUp("", "/a/page.asp"), "../../../");
    EXPECT_EQ(wayUp("", ""), "../");
}

TEST_F(HostBindingTest, TheRootIsMeasuredInCharacters) {
    placeOnPage();
    EXPECT_EQ(wayUp("/gr\u00F6\u00DFe/", "/other//x/page.asp"), "../../");
}

TEST_F(HostBindingTest, WithoutASiteEveryCallSaysSo) {
    EXPECT_EQ(GetRelativePathRoot(dtc), "");
    EXPECT_EQ(GetRelativePathRoot(dtc), "");
    EXPECT_THAT(outside.messages.shown,
                ElementsAre("Not running in DevStudio...", "Not running in DevStudio..."));
    EXPECT_THAT(outside.messages.errors, IsEmpty());
}

TEST_F(HostBindingTest, OtherFailuresAreReportedWithoutABlank) {
    placeOnPage();
    EXPECT_EQ(wayUp("/Project", "/Proj"), "");
    outside.site.entries = {{2, "/Proj"}};
    EXPECT_EQ(GetRelativePathRoot(dtc), "");
    const char* const report =
        "Error in 'GetRelativePathRoot': Invalid procedure call or argument(5)";
    EXPECT_THAT(outside.messages.errors, ElementsAre(report, report));
}

}  // namespace
}  // namespace headerdtc
