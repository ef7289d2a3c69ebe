#include "cli/annotations.h"

#include "cli/output.h"

#include <cstdio>
#include <string_view>

namespace headerdtc::cli {
namespace {

// The characters that end a command or a line, as the build servers want them written; values of
// properties stand between commas and colons.
std::string escaped(std::string_view text, std::string_view special) {
    std::string result;
    for (const char c : text) {
        if (special.find(c) == std::string_view::npos) {
            result += c;
            continue;
        }
        char code[4];
        std::snprintf(code, sizeof code, "%%%02X", static_cast<unsigned>(c) & 0xFFU);
        result += code;
    }
    return result;
}

std::string asValue(std::string_view text) {
    return escaped(text, "%\r\n:,");
}

std::string asMessage(std::string_view text) {
    return escaped(text, "%\r\n");
}

}  // namespace

void AnnotationReport::finding(const Finding& finding) {
    printLine(stdout,
              "::" + std::string(nameOf(finding.severity)) + " file=" + asValue(finding.page) +
                  ",line=" + std::to_string(finding.line) + ",title=" + asValue(finding.rule) +
                  "::" + asMessage(finding.remark.text + ": " + finding.remark.advice));
}

void AnnotationReport::failure(const std::string& page, const PageFailure& failure) {
    printLine(stdout,
              "::error file=" + asValue(page) + ",title=not checked::" + asMessage(failure.text));
}

}  // namespace headerdtc::cli
