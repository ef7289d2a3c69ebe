#include "cli/command.h"
#include "core/header_dtc.h"
#include "host/automation/property_json.h"
#include "host/page/page_document.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <memory>
#include <nlohmann/json.hpp>

namespace headerdtc::cli {
namespace {

struct ShowOptions {
    std::string page;
    bool json = false;
};

std::string jsonOf(const PageMarkup& page) {
    using Json = nlohmann::ordered_json;
    Json controls = Json::array();
    for (const ControlSpan& span : page.controls()) {
        Json control = Json::object();
        control["id"] = span.id;
        control["properties"] = propertiesJson(span.properties);
        controls.push_back(std::move(control));
    }
    Json shown = Json::object();
    shown["controls"] = std::move(controls);
    return shown.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
}

// "NAME = VALUE", the line ends inside a value made visible.
std::string textOf(const PageMarkup& page) {
    std::string text;
    for (const ControlSpan& span : page.controls()) {
        text += "[" + span.id + "]\n";
        for (const auto& [name, value] : span.properties) {
            text += name + " = ";
            for (const char c : value) {
                if (c == '\r') {
                    text += "\\r";
                } else if (c == '\n') {
                    text += "\\n";
                } else if (c == '\t') {
                    text += "\\t";
                } else {
                    text += c;
                }
            }
            text += '\n';
        }
    }
    return text;
}

ExitStatus show(const CommonOptions& common, const ShowOptions& options) {
    Sites sites(common.only());
    const auto site = sites.forPage(options.page);
    const PageDocument page(options.page, site->configuration->codePage);
    const std::string shown = options.json ? jsonOf(page.markup()) : textOf(page.markup());
    std::fwrite(shown.data(), 1, shown.size(), stdout);
    if (page.markup().controls().empty())
        std::fprintf(stderr, "%s: holds no HeaderDTC control\n", options.page.c_str());
    return Done;
}

}  // namespace

void addShow(CLI::App& app, CommandLine& line) {
    const auto options = std::make_shared<ShowOptions>();
    CLI::App& command = addCommand(app, "show", "Show the stored properties of a page",
                                   R"(Examples:
  headerdtc show page.asp                  NAME = VALUE, below the ID of each control
  headerdtc show --json page.asp | jq -r '.controls[].id'

Exit status: 0 done, 2 wrong usage or configuration, 3 the page cannot be read.)");
    command.add_option("PAGE", options->page, "the page")->required();
    command.add_flag("--json", options->json, "as JSON");
    command.callback(whenNamed(line, options, show));
}

}  // namespace headerdtc::cli
