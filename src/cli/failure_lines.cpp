#include "cli/failure_lines.h"

#include "cli/output.h"

namespace headerdtc::cli {

void FailureLines::print(const std::string& page, const PageFailure& failure) {
    if (failure.of == PageFailure::Of::Page) return printMessage(page, failure.text);
    if (said_.insert(failure.text).second) printLine(stderr, failure.text);
}

}  // namespace headerdtc::cli
