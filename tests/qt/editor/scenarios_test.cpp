// Every scenario of the automation, played by a person at the window: the same page, byte for byte,
// and once more from what was recorded meanwhile.

#include "host/automation/automation_session.h"
#include "host/automation/property_json.h"
#include "host/page/new_control.h"
#include "qt/editor/scenario_player.h"
#include "qt/editor/window_fixture.h"
#include "qt/editor/workspace/recorder.h"
#include "qt/surface/text.h"

#include <QFile>
#include <QProcess>
#include <fstream>

namespace headerdtc::qt {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAreArray;
using Json = nlohmann::json;

struct Scenario {
    const char* name;
    const char* page;
    bool isNewPage;
    bool usesDatabase;
};

void PrintTo(const Scenario& scenario, std::ostream* out) {
    *out << scenario.name;
}

constexpr Scenario AllScenarios[] = {
    {"full_configuration", "orders/mine.asp", true, false},
    {"corrections", "customers/regions/overview.asp", false, false},
    {"translations", "customers/regions/overview.asp", false, true},
};

// A copy of the demo site with the page of a scenario.
class DemoCopy {
  public:
    explicit DemoCopy(const Scenario& scenario) : page_(folder_ / "site" / scenario.page) {
        fs::copy(HEADERDTC_SOURCE_DIR "/demo", folder_ / "site", fs::copy_options::recursive);
        fs::remove(folder_ / "site/translations.sqlite");
        if (scenario.isNewPage) {
            const auto site = Sites().forPage(page_);
            std::ofstream(page_, std::ios::binary) << newPage(page_, site->configuration->codePage);
        }
        if (scenario.usesDatabase) run((folder_ / "site/make-translations").string(), {});
    }

    const fs::path& page() const { return page_; }
    std::string bytes() const { return readWholeFile(page_).bytes; }
    // The translation database, as statements.
    std::string translations() const {
        return run("sqlite3", {toQt((folder_ / "site/translations.sqlite").string()), ".dump"});
    }

  private:
    static std::string run(const std::string& program, const QStringList& arguments) {
        QProcess process;
        process.start(toQt(program), arguments);
        if (!process.waitForFinished() || process.exitCode() != 0)
            throw std::runtime_error(program +
                                     " failed: " + process.readAllStandardError().toStdString());
        return process.readAllStandardOutput().toStdString();
    }

    testing::TempFolder folder_;
    fs::path page_;
};

// The lines of a script but for the saving at its end.
std::vector<std::string> withoutSaving(const std::string& script) {
    std::istringstream stream(script);
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    EXPECT_EQ(R"({"do":"save"})", lines.back());
    lines.pop_back();
    return lines;
}

std::vector<std::string> scenarioLines(const Scenario& scenario) {
    const fs::path file =
        fs::path(HEADERDTC_SOURCE_DIR "/tests/scenarios") / (std::string(scenario.name) + ".jsonl");
    return withoutSaving(readWholeFile(file).bytes);
}

// Does the lines by automation, and saves; the texts of the boxes that came.
std::vector<std::string> automate(const fs::path& page, const std::vector<std::string>& lines) {
    std::string script;
    for (const std::string& line : lines)
        script += line + '\n';
    std::istringstream in(script + R"({"do":"save"})");
    std::ostringstream out;
    Sites sites;
    EXPECT_TRUE(automatePage(sites, page, {}, in, out));
    std::vector<std::string> messages;
    std::istringstream replies(out.str());
    for (std::string reply; std::getline(replies, reply);) {
        const auto json = nlohmann::ordered_json::parse(reply);
        EXPECT_TRUE(json["ok"].get<bool>()) << reply;
        for (const auto& event : json["events"]) {
            if (event.contains("message")) messages.push_back(event["message"]);
        }
    }
    return messages;
}

class ScenarioTest : public WindowTest, public ::testing::WithParamInterface<Scenario> {};

TEST_P(ScenarioTest, MakesAtTheWindowWhatItMakesByAutomation) {
    const Scenario& scenario = GetParam();
    const DemoCopy automated(scenario);
    const DemoCopy played(scenario);
    const DemoCopy recorded(scenario);
    const std::vector<std::string> lines = scenarioLines(scenario);
    const std::vector<std::string> messages = automate(automated.page(), lines);

    window->opener().openPage(played.page());
    settle();
    PageEditor* editor = window->tabs().current();
    ASSERT_NE(nullptr, editor);
    const auto toLocal = [&](const std::string& file) {
        const WindowsPaths& drives = editor->page().site()->configuration->drives;
        return QFile::decodeName(drives.toLocal(file).c_str());
    };
    dtc(*editor).SSTab1.clickTab(2);  // before the recording, and no part of it
    command(Command::Record);
    ScenarioPlayer player(*window, toLocal);
    player.play(lines);
    EXPECT_THAT(player.messages(), ElementsAreArray(messages));

    command(Command::Save);
    const std::string automatedPage = automated.bytes();
    EXPECT_EQ(automatedPage, played.bytes());

    const std::string script = window->recorder().script().toStdString();
    automate(recorded.page(), withoutSaving(script));
    EXPECT_EQ(automatedPage, recorded.bytes()) << script;
    if (scenario.usesDatabase) {
        EXPECT_EQ(automated.translations(), played.translations());
        EXPECT_EQ(automated.translations(), recorded.translations());
    }
}

INSTANTIATE_TEST_SUITE_P(, ScenarioTest, ::testing::ValuesIn(AllScenarios),
                         [](const auto& scenario) { return scenario.param.name; });

}  // namespace
}  // namespace headerdtc::qt
