#include "core/family_controls.h"
#include "host/inspection/rules/rules.h"
#include "runtime/runtime_text.h"

#include <algorithm>

namespace headerdtc::rules {
namespace {

// The strictest of the engines that run these pages takes so many lines that end in " _", and one
// more, as one statement.
constexpr int MostContinuedLines = 24;

// A quotation mark inside a text is written twice; a single one ends it.
bool hasSingleQuote(std::string_view text) {
    for (std::size_t i = text.find('"'); i != std::string_view::npos; i = text.find('"', i)) {
        const std::size_t end = std::min(text.find_first_not_of('"', i), text.size());
        if ((end - i) % 2 != 0) return true;
        i = end;
    }
    return false;
}

// Why a text cannot stand between quotation marks in a script; empty when it can.
std::string faultInString(std::string_view text) {
    if (hasSingleQuote(text)) return "has a quotation mark that is not doubled";
    if (text.find_first_of("\r\n") != std::string_view::npos) return "has a line end";
    if (text.find("%>") != std::string_view::npos) return "has a %>, which ends the script";
    return {};
}

// The same for the name of a file in an include directive.
std::string faultInDirective(std::string_view text) {
    if (text.find('"') != std::string_view::npos) return "has a quotation mark";
    if (text.find_first_of("\r\n") != std::string_view::npos) return "has a line end";
    if (text.find("-->") != std::string_view::npos) return "has a -->, which ends the directive";
    return {};
}

// A criterion or link that lacks a piece is not generated, so the rest of it cannot do harm.
bool isLeftOut(const StoredConfiguration& configuration, StoredRole role,
               std::optional<Family> family, const StoredItem& item) {
    if (role != StoredRole::CriterionKey && role != StoredRole::CriterionOperator &&
        role != StoredRole::CriterionValue)
        return false;
    const auto& criteria = configuration.of(*family).criteria;
    const auto criterion =
        std::find_if(criteria.begin(), criteria.end(),
                     [&](const auto& candidate) { return candidate.row == item.row; });
    return criterion != criteria.end() && !criterion->isWritten();
}

// Calls with every text that comes into the script.
template <class Use>
void forEachWritten(const StoredConfiguration& configuration, Use&& use) {
    forEachItem(configuration,
                [&](StoredRole role, std::optional<Family> family, const StoredItem& item) {
                    if (!isLeftOut(configuration, role, family, item)) use(role, family, item);
                });
}

std::string placeOf(StoredRole role, const StoredItem& item) {
    std::string place(nameOf(role));
    if (item.row > 0) place.append(" ").append(std::to_string(item.row));
    return place;
}

std::string tooLong(int lines) {
    return " makes a statement of " + std::to_string(lines) + " lines; a script engine takes " +
           std::to_string(MostContinuedLines + 1);
}

}  // namespace

void valuesFitTheScript(const ControlView& control, Remarks& remarks) {
    const StoredConfiguration& configuration = control.configuration();
    const auto look = [&](StoredRole role, std::optional<Family> family, const StoredItem& item) {
        const bool isWritten = role != StoredRole::ScriptName &&
                               role != StoredRole::CriterionOperator &&
                               (role != StoredRole::CriterionValue ||
                                configuration.of(*family).typeOf(item.text) == CONSTANT);
        if (!isWritten) return;
        const std::string fault =
            role == StoredRole::Include ? faultInDirective(item.text) : faultInString(item.text);
        if (fault.empty()) return;
        remarks.push_back(about(item, family,
                                placeOf(role, item) + ", " + inQuotes(item.text) + ", " + fault +
                                    " and would break the generated script",
                                role == StoredRole::CriterionValue
                                    ? "write every quotation mark twice, and no line end"
                                    : "choose it anew, or rename it where it comes from"));
    };
    forEachWritten(configuration, look);
}

void valuesAreNoPlaceholders(const ControlView& control, Remarks& remarks) {
    forEachWritten(control.configuration(), [&](StoredRole role, std::optional<Family> family,
                                                const StoredItem& item) {
        const std::string_view placeholder = placeholderIn(item.text);
        if (placeholder.empty()) return;
        remarks.push_back(about(item, family,
                                placeOf(role, item) + " has " + std::string(placeholder) +
                                    ", a placeholder of the template, in whose place the script "
                                    "may get another text",
                                "write another text"));
    });
}

void valuesHaveNoNul(const ControlView& control, Remarks& remarks) {
    const StoredConfiguration& configuration = control.configuration();
    const auto refuse = [&](const StoredItem& item, std::optional<Family> family,
                            const std::string& what) {
        remarks.push_back(about(item, family,
                                what + " has a NUL character, which no script may have",
                                "write it anew, or take the character out of the page"));
    };
    const auto hasNul = [](std::string_view text) {
        return text.find('\0') != std::string_view::npos;
    };
    forEachWritten(configuration,
                   [&](StoredRole role, std::optional<Family> family, const StoredItem& item) {
                       if (hasNul(item.text)) refuse(item, family, placeOf(role, item));
                   });
    for (const auto& script : configuration.scripts) {
        if (hasNul(script.text))
            refuse(script.name, std::nullopt, "the local script " + inQuotes(script.name.text));
    }
}

void scriptsAreWhole(const ControlView& control, Remarks& remarks) {
    for (const auto& script : control.configuration().scripts) {
        const std::string what = "the local script " + inQuotes(script.name.text);
        if (script.text.find("%>") != std::string::npos)
            remarks.push_back(about(script.name, std::nullopt,
                                    what + " has a %>, which ends the server script, in texts and "
                                           "comments too",
                                    "write it in two pieces: \"%\" & \">\""));
        const std::string open =
            ScriptText::read(script.text, ScriptText::Form::Script).openProcedure;
        if (!open.empty())
            remarks.push_back(
                about(script.name, std::nullopt,
                      what + " does not end " + inQuotes(open) +
                          ": its End Function or End Sub is missing",
                      "open it in the script dialog and press OK, or write the line"));
    }
}

// In the control's own markup such a character is a reference that reads as the character; in the
// script it stays the text of a reference.
void valuesFitTheCodePage(const ControlView& control, Remarks& remarks) {
    const StoredConfiguration& configuration = control.configuration();
    const CodePage& codePage = control.page.markup().codePage();
    const auto require = [&](std::string_view text, const StoredItem& item,
                             std::optional<Family> family, const std::string& what) {
        const std::string lacking = codePage.lackingInWords(text);
        if (lacking.empty()) return;
        remarks.push_back(about(item, family,
                                what + " has " + lacking + ", which " + codePage.name() +
                                    " lacks; the script gets numeric references in their place",
                                "write another text, or make the page UTF-8 by a byte-order mark"));
    };
    forEachWritten(
        configuration, [&](StoredRole role, std::optional<Family> family, const StoredItem& item) {
            require(item.text, item, family, std::string(nameOf(role)) + " " + inQuotes(item.text));
        });
    for (const auto& script : configuration.scripts)
        require(script.text, script.name, std::nullopt,
                "the text of the local script " + inQuotes(script.name.text));
}

void statementsFitTheEngine(const ControlView& control, Remarks& remarks) {
    const StoredConfiguration& configuration = control.configuration();
    for (const Family family : BothFamilies) {
        const auto& own = configuration.of(family);
        const auto require = [&](const std::vector<StoredItem>& fields, const char* what) {
            // Plus the first and the last line of the call.
            const int lines = static_cast<int>(fields.size()) + 2;
            if (fields.empty() || lines <= MostContinuedLines + 1) return;
            remarks.push_back(about(fields.back(), family,
                                    "translating the " + std::string(what) + " of " +
                                        std::to_string(fields.size()) + " fields" + tooLong(lines),
                                    "translate at most " + std::to_string(MostContinuedLines - 1)));
        };
        require(own.translatedNames, "names");
        require(own.translatedValues, "values");
    }
    for (const auto& script : configuration.scripts) {
        const int lines = longestStatement(script.text);
        if (lines <= MostContinuedLines + 1) continue;
        remarks.push_back(about(script.name, std::nullopt,
                                "the local script " + inQuotes(script.name.text) + tooLong(lines),
                                "break the statement into several"));
    }
}

}  // namespace headerdtc::rules
