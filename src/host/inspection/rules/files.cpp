#include "host/inspection/rules/rules.h"

#include <map>

namespace headerdtc::rules {

void includesAreThere(const ControlView& control, Remarks& remarks) {
    for (const StoredItem& include : control.configuration().includes) {
        if (control.facts().find(include.text)) continue;
        if (include.text.empty()) {
            remarks.push_back(about(include, std::nullopt,
                                    "include file " + std::to_string(include.row) + " has no name",
                                    "remove it"));
            continue;
        }
        remarks.push_back(about(include, std::nullopt,
                                "there is no include file " + inQuotes(include.text),
                                "remove it, or put the file below the install directory"));
    }
}

// A file may be included twice, but nothing may be declared twice.
void includesComeOnce(const ControlView& control, Remarks& remarks) {
    const auto& configurations = control.page.configurations();
    std::map<std::filesystem::path, std::string> brought;  // by whom
    for (std::size_t i = 0; i <= control.index; ++i) {
        for (const StoredItem& include : configurations[i].includes) {
            const auto file = control.facts().find(include.text);
            if (!file) continue;
            const auto [other, isNew] = brought.emplace(
                *file, i < control.index ? control.page.markup().controls()[i].id : std::string());
            const std::string& name = control.page.facts().contentsOf(*file).declaration;
            if (isNew || i < control.index || name.empty()) continue;
            remarks.push_back(
                about(include, std::nullopt,
                      "the include file " + inQuotes(include.text) + " comes twice" +
                          (other->second.empty() ? "" : ", from " + other->second + " too,") +
                          " and declares " + inQuotes(name) + ", which a page can do only once",
                      "take one of them out"));
        }
    }
}

void includesAreWhole(const ControlView& control, Remarks& remarks) {
    for (const StoredItem& include : control.configuration().includes) {
        const auto file = control.facts().find(include.text);
        if (!file) continue;
        for (const auto& fault : control.page.facts().contentsOf(*file).faults) {
            remarks.push_back(about(
                include, std::nullopt,
                "the include file " + inQuotes(include.text) +
                    (fault.file == *file ? " " : ": " + fault.file.string() + " ") + fault.text,
                "correct that file, or take the include file out"));
        }
    }
}

void stylesheetIsThere(const ControlView& control, Remarks& remarks) {
    const StoredItem& stylesheet = control.configuration().stylesheet;
    if (stylesheet.text.empty()) {
        remarks.push_back(about(stylesheet, std::nullopt, "no stylesheet is chosen",
                                "choose one on the General tab"));
    } else if (!control.facts().find(stylesheet.text)) {
        remarks.push_back(about(stylesheet, std::nullopt,
                                "there is no stylesheet " + inQuotes(stylesheet.text),
                                "choose another, or put the file below the install directory"));
    }
}

}  // namespace headerdtc::rules
