#include "host/automation/replay.h"

#include "host/generation/page_generation.h"
#include "support/temp_site.h"

#include <gmock/gmock.h>

namespace headerdtc {
namespace {

using namespace ::testing;
using testing::TempSite;
using Outcome = ReplayedPage::Outcome;

const std::string AddsAField = R"({"do":"tab","index":2}

{"do":"select","control":"ZEKOSelectedFieldsList","items":[0]}
{"do":"click","control":"ZEKORemoveField"}
{"do":"save"}
)";

class ReplayTest : public ::testing::Test {
  protected:
    ReplayTest() { site.write("page.asp", TempSite::page(TempSite::ordersParams())); }

    ReplayedPage replay(const std::string& script, const std::string& control = "") {
        return replayOnPage(sites, site / "page.asp", control, script);
    }

    TempSite site;
    Sites sites;
};

TEST_F(ReplayTest, KeepsWhatTheScriptSavesAndWritesNothing) {
    const std::string before = site.read("page.asp");
    const ReplayedPage replayed = replay(AddsAField);
    EXPECT_EQ(replayed.outcome, Outcome::Changed);
    EXPECT_THAT(replayed.failures, IsEmpty());
    EXPECT_EQ(replayed.before, before);
    EXPECT_THAT(replayed.after, Not(HasSubstr("ZEKOReturnFields0")));
    EXPECT_EQ(site.read("page.asp"), before);

    // The same as the editor's own save leaves.
    site.write("page.asp", replayed.after);
    EXPECT_EQ(generatePage(site / "page.asp", sites, LossGuard::RefuseLosses).verdict,
              GeneratedPage::Verdict::UpToDate);
    EXPECT_EQ(replay("{\"do\":\"save\"}\n").outcome, Outcome::Unchanged);
    EXPECT_EQ(replay("").outcome, Outcome::Unchanged);
}

TEST_F(ReplayTest, ARefusedLineFailsThePageAndIsNamed) {
    const ReplayedPage replayed =
        replay("\n{\"do\":\"tab\",\"index\":2}\n" +
               std::string("{\"do\":\"click\",\"control\":\"Nowhere\"}\n") +
               "no command\n{\"do\":\"save\"}\n");
    EXPECT_EQ(replayed.outcome, Outcome::Failed);
    EXPECT_THAT(replayed.failures, ElementsAre(HasSubstr("line 3: there is no control 'Nowhere'"),
                                               HasSubstr("line 4: ")));
    EXPECT_EQ(replayed.after, "");
    EXPECT_EQ(replay(AddsAField, "Other").outcome, Outcome::NoControl);
}

TEST_F(ReplayTest, NothingButThePageIsEverWritten) {
    // "Save" on the General tab writes a text file for a look.
    std::filesystem::create_directories(site / "c/temp");
    const ReplayedPage replayed =
        replay("{\"do\":\"click\",\"control\":\"SaveCommand\"}\n{\"do\":\"save\"}\n");
    EXPECT_EQ(replayed.outcome, Outcome::Failed);
    EXPECT_THAT(replayed.failures, Contains("the script would write another file"));
    EXPECT_TRUE(std::filesystem::is_empty(site / "c/temp"));
}

TEST_F(ReplayTest, APageThatWouldLoseSomethingIsNotSaved) {
    site.write("page.asp", TempSite::page(TempSite::param("DataProvider", "Gone")));
    const ReplayedPage replayed = replay("{\"do\":\"save\"}\n");
    EXPECT_EQ(replayed.outcome, Outcome::Failed);
    EXPECT_THAT(replayed.failures, ElementsAre(HasSubstr("line 1: ")));
    site.write("page.asp", "no control");
    EXPECT_EQ(replay(AddsAField).outcome, Outcome::NoControl);
    site.write("headerdtc.toml", "colour = 1");
    EXPECT_EQ(replay(AddsAField).outcome, Outcome::NotConfigured);
}

}  // namespace
}  // namespace headerdtc
