#include "runtime/host_binding.h"

#include "core/control_fixture.h"

namespace headerdtc::host_binding_test {

class HostBindingTest : public ControlTest {
  protected:
    std::string wayUp(const char* root, const char* page) {
        outside.site.entries = {{2, root}, {6, page}};
        return GetRelativePathRoot(dtc);
    }
    void placeOnPage() { host.IDesignTimeControl_DesignTimeControlSite(&outside.site); }

    HostBinding host{dtc};
};

TEST_F(HostBindingTest, EverySlashBeyondTheRootIsALevel) {
    placeOnPage();
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"/Proj", "/Proj/a/b/page.asp", "../../../"},
        {"/Proj/", "/Proj/a/b/page.asp", "../../"},
        {"/Proj/", "/Proj/page.asp", ""},
        {"/Proj/", "/Proj/a\\b/page.asp", "../"},
        {"/Proj", "/Proj", ""},
        // An empty root is one level more.
        {"", "page.asp", "../"},
        {"", "/a/page.asp", "../../../"},
        {"", "", "../"},
        // The root is measured in characters.
        {"/gr\u00F6\u00DFe/", "/other//x/page.asp", "../../"},
    };
    for (const auto& [root, page, way] : cases)
        EXPECT_EQ(wayUp(root, page), way) << page << " below " << root;
    EXPECT_THAT(messages(), IsEmpty());
}

TEST_F(HostBindingTest, WithoutASiteEveryCallSaysSo) {
    EXPECT_EQ(GetRelativePathRoot(dtc), "");
    EXPECT_EQ(GetRelativePathRoot(dtc), "");
    EXPECT_THAT(messages(),
                ElementsAre("Not running in DevStudio...", "Not running in DevStudio..."));
    EXPECT_THAT(errors(), IsEmpty());
}

TEST_F(HostBindingTest, OtherFailuresAreReportedWithoutABlank) {
    placeOnPage();
    EXPECT_EQ(wayUp("/Project", "/Proj"), "");
    outside.site.entries = {{2, "/Proj"}};
    EXPECT_EQ(GetRelativePathRoot(dtc), "");
    const char* const report =
        "Error in 'GetRelativePathRoot': Invalid procedure call or argument(5)";
    EXPECT_THAT(errors(), ElementsAre(report, report));
}

}  // namespace headerdtc::host_binding_test
