#include "host/automation/automation_session.h"

#include "core/header_dtc.h"
#include "host/automation/automation.h"
#include "host/automation/property_json.h"
#include "host/page/page_document.h"
#include "platform/surroundings.h"

namespace headerdtc {
namespace {

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
    AutomationPage driven{
        .control = control.dtc(),
        .properties = [&] { return propertiesJson(control.properties()); },
        .runtimeText = [&] { return control.runtimeText(); },
        .save =
            [&](PageDocument::Guard guard) {
                const bool written = document.save(index, control, guard);
                return written ? page.string() : std::string();
            },
    };
    automation.converse(driven);
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

}  // namespace headerdtc
