// Any lines at all are answered, and the run goes on to its end.

#include "fuzz/fuzz_control.h"
#include "fuzz/fuzz_tools.h"
#include "host/automation/automation.h"

#include <sstream>

using namespace headerdtc;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    testing::FakeSurroundings outside;
    fuzz::furnish(outside);
    std::istringstream in(std::string(fuzz::textOf(data, size)));
    std::ostringstream out;
    EventLog events;
    Automation automation(in, out, events);
    const Surroundings surroundings{events,           events,
                                    outside.registry, outside.dataSources,
                                    outside.database, outside.textFiles,
                                    outside.clock,    events};
    ControlInstance control(surroundings, automation, outside.site);
    AutomationPage page{
        .control = control.dtc,
        .properties = [] { return nlohmann::ordered_json::array(); },
        .runtimeText = [&] { return control.dtc.IProvideRuntimeText_GetRuntimeText(); },
        .save = [](PageDocument::Guard) { return std::string(); }};
    automation.converse(page);

    std::istringstream answered(out.str());
    std::size_t answers = 0;
    for (std::string line; std::getline(answered, line); ++answers)
        fuzz::require(nlohmann::json::accept(line), "every answer is JSON");
    fuzz::require(answers > 0, "the opening is answered");
    return 0;
}
