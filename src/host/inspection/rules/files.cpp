#include "host/inspection/rules/rules.h"

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
