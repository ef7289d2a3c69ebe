// Every scenario of the automation, played by a person at the window: the same page, byte for byte.

#include "host/automation/automation_session.h"
#include "host/page/new_control.h"
#include "qt/editor/scenario_player.h"
#include "qt/editor/window_fixture.h"

#include <QFile>
#include <QProcess>
#include <fstream>

namespace headerdtc::qt {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;
using Json = nlohmann::json;

struct Scenario {
    const char* name;
    const char* page;
    bool isNewPage;
    bool usesDatabase;
};

constexpr Scenario Scenarios[] = {
    {"full_configuration", "orders/mine.asp", true, false},
    {"translations", "customers/regions/overview.asp", false, true},
};

std::ostream& operator<<(std::ostream& out, const Scenario& scenario) {
    return out << scenario.name;
}

// A copy of the demo site, and what a scenario makes of it.
struct PlayedSite {
    explicit PlayedSite(const Scenario& scenario) : page(folder / "site" / scenario.page) {
        fs::copy(HEADERDTC_SOURCE_DIR "/demo", folder / "site", fs::copy_options::recursive);
        for (const auto& file : {"translations.sqlite", "translations.sqlite-journal"})
            fs::remove(folder / "site" / file);
        if (scenario.isNewPage) {
            const auto site = Sites().forPage(page);
            folder.write(std::string("site/") + scenario.page,
                         newPage(page, site->configuration->codePage));
        }
        if (scenario.usesDatabase) {
            const fs::path script = folder / "site/make-translations";
            if (QProcess::execute(QFile::decodeName(script.c_str()), {}) != 0)
                throw std::runtime_error("the translation database cannot be made");
        }
    }
    std::string bytes() const { return folder.read("site/" + fs::relative(page, folder / "site").string()); }
    // The rows of the translation database, as statements.
    std::string rows() const {
        QProcess sqlite;
        sqlite.start("sqlite3", {QFile::decodeName((folder / "site/translations.sqlite").c_str()),
                                 ".dump"});
        sqlite.waitForFinished();
        return sqlite.readAllStandardOutput().toStdString();
    }

    testing::TempFolder folder;
    fs::path page;
};

class Scenarios_ : public WindowTest, public ::testing::WithParamInterface<Scenario> {
  protected:
    static std::vector<std::string> lines(const Scenario& scenario) {
        std::ifstream file(std::string(HEADERDTC_SOURCE_DIR "/tests/scenarios/") + scenario.name +
                           ".jsonl");
        std::vector<std::string> lines;
        for (std::string line; std::getline(file, line);)
            lines.push_back(line);
        return lines;
    }
};

struct Outcome {
    std::vector<std::string> messages;
    Json properties;
};

// What the automation makes of the lines.
Outcome automate(const fs::path& page, const std::vector<std::string>& lines) {
    std::string script;
    for (const std::string& line : lines)
        script += line + '\n';
    std::istringstream in(script + R"({"do":"properties"})");
    std::ostringstream out;
    Sites sites;
    EXPECT_TRUE(automatePage(sites, page, {}, in, out));
    Outcome outcome;
    std::istringstream replies(out.str());
    for (std::string reply; std::getline(replies, reply);) {
        const Json json = Json::parse(reply);
        EXPECT_TRUE(json["ok"].get<bool>()) << reply;
        for (const Json& event : json["events"]) {
            if (event.contains("message")) outcome.messages.push_back(event["message"]);
        }
        if (json.contains("properties")) outcome.properties = json["properties"];
    }
    return outcome;
}

TEST_P(Scenarios_, AtTheWindowGiveThePageThatAutomationGives) {
    const Scenario& scenario = GetParam();
    const PlayedSite automated(scenario);
    const PlayedSite played(scenario);
    const Outcome expected = automate(automated.page, lines(scenario));

    window->open(played.page);
    settle();
    PageEditor* editor = window->tabs().current();
    ASSERT_NE(nullptr, editor);
    ScenarioPlayer player(
        *window, [&] { command(Command::Save); },
        [&](const std::string& file) {
            const WindowsPaths& drives = editor->page().site()->configuration->drives;
            return QFile::decodeName(drives.toLocal(file).c_str());
        });
    ASSERT_NO_THROW(player.play(lines(scenario))) << "see above";

    EXPECT_THAT(player.messages(), ElementsAreArray(expected.messages));
    EXPECT_EQ(automated.bytes(), played.bytes());
    EXPECT_FALSE(editor->isModified());
    if (scenario.usesDatabase) {
        EXPECT_EQ(automated.rows(), played.rows());
    }
}

INSTANTIATE_TEST_SUITE_P(All, Scenarios_, ::testing::ValuesIn(Scenarios),
                         [](const auto& info) { return std::string(info.param.name); });

}  // namespace
}  // namespace headerdtc::qt
