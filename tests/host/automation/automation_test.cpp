// Plays the conversations of conversations.txt, each on a page of its own.

#include "host/automation/automation_session.h"
#include "support/prologue.h"
#include "support/temp_site.h"

#include <nlohmann/json.hpp>

namespace headerdtc::automation_test {

using Json = nlohmann::json;

// A list that begins with "..." is part of another when its other items are.
bool holds(const Json& answer, const Json& expected) {
    if (expected.is_string() && answer.is_string())
        return answer.get<std::string>().find(expected.get<std::string>()) != std::string::npos;
    if (expected.is_object()) {
        return std::all_of(expected.items().begin(), expected.items().end(), [&](const auto& item) {
            return answer.contains(item.key()) && holds(answer[item.key()], item.value());
        });
    }
    if (!expected.is_array() || !answer.is_array()) return answer == expected;
    if (!expected.empty() && expected[0] == "...") {
        return std::any_of(answer.begin(), answer.end(),
                           [&](const Json& item) { return holds(item, expected.back()); });
    }
    return std::equal(answer.begin(), answer.end(), expected.begin(), expected.end(), holds);
}

void converse(const std::string& name, const std::vector<std::string>& lines) {
    SCOPED_TRACE(name);
    const TempSite site;
    const std::string before =
        TempSite::page(name.starts_with("Gone") ? TempSite::param("DataProvider", "Gone")
                                                : TempSite::ordersParams());
    site.write("page.asp", before);
    std::string commands, page;
    std::vector<std::string> expected = {R"({"ok":true,"events":[]})"};
    for (const std::string& line : lines) {
        if (line.starts_with("page ")) {
            page = line;
            continue;
        }
        const auto arrow = line.find(" => ");
        const std::string answer = arrow == std::string::npos ? "{}" : line.substr(arrow + 4);
        commands += line.substr(0, arrow) + '\n';
        expected.push_back(answer == "refused" ? R"({"ok":false,"events":[]})" : answer);
    }
    std::istringstream in(commands);
    std::stringstream out;
    Sites sites;
    EXPECT_TRUE(automatePage(sites, site / "page.asp", "", in, out));
    std::string answer;
    for (const std::string& each : expected) {
        Json json = Json::parse(each);
        if (!json.contains("ok")) json["ok"] = !json.contains("error");
        ASSERT_TRUE(std::getline(out, answer)) << each;
        EXPECT_TRUE(holds(Json::parse(answer), json)) << each << '\n' << answer;
    }
    EXPECT_FALSE(std::getline(out, answer)) << answer;
    if (page == "page as before") {
        EXPECT_EQ(site.read("page.asp"), before);
    } else if (!page.empty()) {
        EXPECT_THAT(site.read("page.asp"), HasSubstr(page.substr(sizeof "page holds")));
    }
}

TEST(Automation, AnswersEachLine) {
    std::ifstream file(HEADERDTC_SOURCE_DIR "/tests/host/automation/conversations.txt");
    ASSERT_TRUE(file);
    std::string name;
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
        if (!line.starts_with("== ")) {
            if (!line.starts_with("#")) lines.push_back(line);
            continue;
        }
        if (!name.empty()) converse(name, std::exchange(lines, {}));
        name = line.substr(3);
    }
    converse(name, lines);
}

}  // namespace headerdtc::automation_test
