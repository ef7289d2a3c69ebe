#pragma once

#include "core/filled_control.h"
#include "runtime/runtime_text.h"

namespace headerdtc {

// A control on the page /Site/a/b/page.asp of the project /Site, with a template to fill.
template <class Control>
struct OnPage : Control {
    OnPage() {
        provideRuntimeText(this->dtc);
        this->dtc.procedures.GetInstallDir = [] { return std::string("C:\\SITES\\MAIN\\"); };
        this->outside.site.entries = {{2, "/Site"}, {6, "/Site/a/b/page.asp"}};
        this->dtc.site = &this->outside.site;
    }
    // The runtime text of a control whose template is this.
    std::string expand(std::string text) {
        this->outside.textFiles.files["C:\\SITES\\MAIN\\Orvane\\include\\DTC_TEMPLATE.ASP"] =
            std::move(text);
        return this->dtc.IProvideRuntimeText_GetRuntimeText();
    }
};

}  // namespace headerdtc
