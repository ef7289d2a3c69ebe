#pragma once

#include "core/family.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace headerdtc {

enum class Severity { Warning, Error };

// "warning", "error"
std::string_view nameOf(Severity severity);

// A text in double quotes, as findings name what stands in a page.
inline std::string inQuotes(std::string_view text) {
    return '"' + std::string(text) + '"';
}

// What a rule has to say about one control. The rule, its severity and the page are known to
// whoever called it.
struct Remark {
    std::optional<Family> family;  // nothing for what both families share
    int row = 0;                   // grid row, or position in the list, from 1; 0 for neither
    std::string property;          // where it is stored; empty: it is about the whole control
    std::string text;              // what is wrong, a sentence without its full stop
    std::string advice;            // what to do
    int line = 0;                  // of the page, from 1; 0: the property's, else the control's
};

// A fault of a page.
struct Finding {
    std::string_view rule;  // identifier
    Severity severity = Severity::Error;
    std::string page;
    int line = 0;         // from 1
    std::string control;  // ID
    std::string value;    // the stored text that it is about; empty: the whole control
    Remark remark;
};

}  // namespace headerdtc
