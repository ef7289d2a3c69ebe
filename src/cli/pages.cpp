// The commands that look at one page or make one: new, show, automate.

#include "cli/commands.h"
#include "cli/output.h"
#include "core/header_dtc.h"
#include "host/automation/automation_session.h"
#include "host/automation/property_json.h"
#include "host/page/new_control.h"
#include "host/page/page_document.h"

#include <cstdio>
#include <iostream>
#include <nlohmann/json.hpp>

namespace headerdtc::cli {
namespace {

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

}  // namespace

int newControl(const CommonOptions& common, const NewOptions& options) {
    return guarded([&] {
        Sites sites(common.only());
        const auto site = sites.forPage(options.page);
        const auto& codePage = site->configuration->codePage;
        if (options.into) {
            const PageDocument page(options.page, codePage);
            addNewControl(page, options.line);
        } else {
            makeNewPage(options.page, codePage);
        }
        std::printf("%s\n", options.page.c_str());
        return Done;
    });
}

int show(const CommonOptions& common, const ShowOptions& options) {
    return guarded([&] {
        Sites sites(common.only());
        const auto site = sites.forPage(options.page);
        const PageDocument page(options.page, site->configuration->codePage);
        const std::string shown = options.json ? jsonOf(page.markup()) : textOf(page.markup());
        std::fwrite(shown.data(), 1, shown.size(), stdout);
        if (page.markup().controls().empty())
            std::fprintf(stderr, "%s: holds no HeaderDTC control\n", options.page.c_str());
        return Done;
    });
}

int automate(const CommonOptions& common, const AutomateOptions& options) {
    return guarded([&] {
        Sites sites(common.only());
        std::ios::sync_with_stdio(false);
        const bool opened = automatePage(sites, options.page, options.control, std::cin, std::cout);
        // The control's own message does not say what to do.
        const std::string failure = sites.forPage(options.page)->registry.lastFailure();
        if (!failure.empty()) printMessage(options.page, failure);
        return opened ? Done : PageNotDone;
    });
}

}  // namespace headerdtc::cli
