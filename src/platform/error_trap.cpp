#include "platform/error_trap.h"

namespace headerdtc {

std::string errorReport(std::string_view procedure, const RuntimeError& error,
                        ErrorReportStyle style) {
    std::string text = "Error in '";
    text += procedure;
    text += "': ";
    text += error.description();
    text += style == ErrorReportStyle::BlankBeforeNumber ? " (" : "(";
    text += std::to_string(error.number());
    text += ')';
    return text;
}

}  // namespace headerdtc
