#include "host/automation/automation_session.h"

#include "core/header_dtc.h"
#include "host/automation/automation.h"
#include "host/automation/property_json.h"
#include "host/generation/page_change.h"
#include "host/odbc/reading_database.h"
#include "host/page/page_document.h"
#include "platform/runtime_error.h"
#include "platform/surroundings.h"
#include "platform/text.h"

#include <algorithm>
#include <functional>
#include <sstream>

namespace headerdtc {
namespace {

// Lets automation drive a page's control. `save` tells whether it has changed the page.
void drive(Automation& automation, const std::filesystem::path& page, OpenControl& control,
           const std::function<bool(PageDocument::Guard)>& save) {
    AutomationPage driven{
        .control = control.dtc(),
        .properties = [&] { return propertiesJson(control.properties()); },
        .runtimeText = [&] { return control.runtimeText(); },
        .save =
            [&](PageDocument::Guard guard) { return save(guard) ? page.string() : std::string(); },
    };
    automation.converse(driven);
}

// Tells of the files that the control writes.
class ToldTextFiles : public TextFiles {
  public:
    ToldTextFiles(TextFiles& files, EventLog& events) : files_(files), events_(events) {}
    std::string readText(const std::string& windowsPath) override {
        return files_.readText(windowsPath);
    }
    void writeText(const std::string& windowsPath, const std::string& text) override {
        files_.writeText(windowsPath, text);
        events_.wrote(windowsPath);
    }

  private:
    TextFiles& files_;
    EventLog& events_;
};

void converse(Sites& sites, const std::filesystem::path& page, const std::string& controlId,
              Automation& automation, EventLog& events) {
    const auto site = sites.forPage(page);
    PageDocument document(page, site->configuration->codePage);
    const std::size_t index = document.controlIndex(controlId);
    ToldTextFiles textFiles(site->textFiles, events);
    OpenControl control(site, page, document.markup().controls()[index],
                        {events, events, events, automation, nullptr, &textFiles});
    drive(automation, page, control,
          [&](PageDocument::Guard guard) { return document.save(index, control, guard); });
}

// ---- scripts ------------------------------------------------------------------------------------

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

// The conversation with automation that a script stands for: its lines that are not empty, and the
// replies to them.
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
    drive(automation, page, control, [&](PageDocument::Guard guard) {
        result.after = document.bytesWith(index, control, guard);
        return result.after != result.before;
    });
    conversation.read(out.str(), result);
    if (database.refused)
        result.failures.emplace_back("the script would write to the translation database");
    if (textFiles.refused) result.failures.emplace_back("the script would write another file");
    result.outcome = !result.failures.empty()        ? Outcome::Failed
                     : result.after == result.before ? Outcome::Unchanged
                                                     : Outcome::Changed;
}

}  // namespace

bool automatePage(Sites& sites, const std::filesystem::path& page, const std::string& control,
                  std::istream& in, std::ostream& out) {
    EventLog events;
    Automation automation(in, out, events);
    try {
        converse(sites, page, control, automation, events);
        return true;
    } catch (const ConfigurationError& error) {
        automation.refuseOpening(error.what());
        throw;
    } catch (const FileError& error) {
        automation.refuseOpening(error.what());
        return false;
    }
}

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
    result.attempt(page, [&] { replay(sites, page, control, script, result); });
    if (result.outcome != Outcome::Changed) result.after.clear();
    return result;
}

}  // namespace headerdtc
