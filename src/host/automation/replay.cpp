#include "host/automation/replay.h"

#include "core/header_dtc.h"
#include "host/automation/automation.h"
#include "host/automation/property_json.h"
#include "host/generation/page_failure.h"
#include "host/odbc/reading_database.h"
#include "host/page/page_document.h"
#include "platform/runtime_error.h"
#include "platform/text.h"
#include "platform/surroundings.h"

#include <algorithm>
#include <sstream>

namespace headerdtc {
namespace {

using Outcome = PageChange::Outcome;

class ReadingTextFiles : public TextFiles {
  public:
    explicit ReadingTextFiles(TextFiles& files) : files_(files) {}

    std::string readText(const std::string& path) override { return files_.readText(path); }
    void writeText(const std::string& path, const std::string&) override {
        refused = true;
        throw RuntimeError(ErrorNumber::PermissionDenied,
                           "a replay does not write other files than the page: " + path);
    }

    bool refused = false;

  private:
    TextFiles& files_;
};

// The conversation that a script is: its lines with something in them, and what is answered.
class Conversation {
  public:
    explicit Conversation(const std::string& script) {
        int number = 0;
        for (std::string_view line : splitText(script, "\n")) {
            ++number;
            if (line.find_first_not_of(" \t\r") == std::string_view::npos) continue;
            lines_.append(line) += '\n';
            numbers_.push_back(number);
        }
    }

    const std::string& lines() const { return lines_; }

    // Takes the replies apart: the first answers the opening, the others a line each.
    void read(const std::string& replies, PageChange& result) const {
        std::istringstream stream(replies);
        std::size_t index = 0;
        for (std::string text; std::getline(stream, text); ++index) {
            const auto reply = nlohmann::json::parse(text);
            for (const auto& event : reply["events"]) {
                if (event.contains("message")) result.messages.push_back(event["message"]);
            }
            if (reply["ok"]) continue;
            const std::string error = reply["error"];
            const bool isOfLine = index > 0 && index <= numbers_.size();
            result.failures.push_back(
                isOfLine ? "line " + std::to_string(numbers_[index - 1]) + ": " + error : error);
        }
    }

  private:
    std::string lines_;
    std::vector<int> numbers_;  // of lines, from 1
};

void replay(Sites& sites, const std::filesystem::path& page, const std::string& controlId,
            const std::string& script, PageChange& result) {
    const auto site = sites.forPage(page);
    PageDocument document(page, site->configuration->codePage);
    const auto& controls = document.markup().controls();
    const bool hasControl =
        controlId.empty() ? !controls.empty()
                          : std::any_of(controls.begin(), controls.end(),
                                        [&](const auto& each) { return each.id == controlId; });
    if (!hasControl) return;
    result.stamp = document.stamp();
    result.before = document.markup().bytes();
    result.after = result.before;
    const std::size_t index = document.controlIndex(controlId);

    ReadingDatabase database(site->database.settings());
    ReadingTextFiles textFiles(site->textFiles);
    EventLog events;
    const Conversation conversation(script);
    std::istringstream in(conversation.lines());
    std::ostringstream out;
    Automation automation(in, out, events);
    OpenControl control(site, page, document.markup().controls()[index],
                        {events, events, events, automation, &database, &textFiles});
    AutomationPage driven{
        .control = control.dtc(),
        .properties = [&] { return propertiesJson(control.properties()); },
        .runtimeText = [&] { return control.runtimeText(); },
        .save =
            [&](PageDocument::Guard guard) {
                result.after = document.bytesWith(index, control, guard);
                return result.after == result.before ? std::string() : page.string();
            },
    };
    automation.converse(driven);
    conversation.read(out.str(), result);
    if (database.refused)
        result.failures.emplace_back("the script would write to the translation database");
    if (textFiles.refused) result.failures.emplace_back("the script would write another file");
    result.outcome = !result.failures.empty()        ? Outcome::Failed
                     : result.after == result.before ? Outcome::Unchanged
                                                     : Outcome::Changed;
}

}  // namespace

bool scriptSaves(const std::string& script) {
    const auto lines = splitText(script, "\n");
    return std::any_of(lines.begin(), lines.end(), [](std::string_view line) {
        const auto command = nlohmann::json::parse(line, nullptr, false);
        return command.is_object() && command.value("do", nlohmann::json()) == "save";
    });
}

PageChange replayOnPage(Sites& sites, const std::filesystem::path& page, const std::string& control,
                        const std::string& script) {
    PageChange result;
    if (const auto failure =
            failureOf(page, [&] { replay(sites, page, control, script, result); })) {
        const bool ofConfiguration = failure->of == PageFailure::Of::Configuration;
        result.outcome = ofConfiguration ? Outcome::NotConfigured : Outcome::Failed;
        result.failures.push_back(failure->text);
    }
    if (result.outcome != Outcome::Changed) result.after.clear();
    return result;
}

}  // namespace headerdtc
