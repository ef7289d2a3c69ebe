#pragma once

#include "platform/runtime_error.h"
#include "platform/surroundings.h"

#include <string>
#include <string_view>
#include <utility>

namespace headerdtc {

// The one error trap: runs a handler's body; a run-time failure ends it, leaves what it has
// already changed, and is reported in a message box under the given procedure name. Returns
// whether the body ran to its end.
template <class Body>
bool trapErrors(MessageBox& messages, std::string_view procedure, Body&& body,
                ErrorReportStyle style = ErrorReportStyle::BlankBeforeNumber) {
    try {
        std::forward<Body>(body)();
        return true;
    } catch (const RuntimeError& error) {
        messages.showError(errorReport(procedure, error, style));
        return false;
    }
}

}  // namespace headerdtc
