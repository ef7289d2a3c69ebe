#include "core/stored_keys.h"
#include "host/diff/line_diff.h"
#include "host/inspection/rules/rules.h"

#include <algorithm>

namespace headerdtc::rules {

void textIsUpToDate(const ControlView& control, Remarks& remarks) {
    const GeneratedPage& generated = control.page.generated();
    if (generated.verdict != GeneratedPage::Verdict::Stale) return;
    const PageMarkup& before = control.page.markup();
    const PageMarkup after(before.file(), generated.after, before.codePage());
    const int line = firstDifferentLine(before.textOf(control.span().whole),
                                        after.textOf(after.controls().at(control.index).whole));
    if (line == 0) return;
    remarks.push_back({std::nullopt, 0, "", "the text is not what would be generated",
                       "generate the page, or look at the difference first",
                       control.span().line + line - 1});
}

void pageCanBeGenerated(const ControlView& control, Remarks& remarks) {
    for (const auto& doubt : control.page.generated().doubts) {
        if (doubt.control != control.index) continue;
        const bool isLoss = doubt.doubt.kind == SaveDoubt::Kind::Loss;
        remarks.push_back(
            {std::nullopt, 0, "",
             (isLoss ? "a generation would lose something: " : "the page cannot be generated: ") +
                 doubt.doubt.reason,
             isLoss
                 ? "put back what is missing; 'headerdtc generate --force' writes the new text and "
                   "keeps what is stored"
                 : "correct that first; 'headerdtc doctor' looks at the set-up of the site",
             0});
    }
}

void propertiesCanBeRead(const ControlView& control, Remarks& remarks) {
    for (const auto& fault : control.configuration().faults) {
        const auto name = parseStoredName(fault.property);
        const std::string what =
            name->entry.empty() ? "the number of " + partOf(fault.property)->caption()
                                : "the kind of the value " + inQuotes(std::string(name->entry));
        remarks.push_back(
            {std::nullopt, 0, fault.property,
             what + " is stored as " + inQuotes(fault.text) + ", " + std::string(fault.reason),
             "put the number back by hand: of the list's items, or of the grid's "
             "rows with its header",
             0});
    }
}

void idIsItsOwn(const ControlView& control, Remarks& remarks) {
    const auto& controls = control.page.markup().controls();
    const auto first = std::find_if(
        controls.begin(), controls.end(),
        [&](const ControlSpan& other) { return equalIgnoringCase(other.id, control.span().id); });
    if (first == controls.begin() + static_cast<std::ptrdiff_t>(control.index)) return;
    remarks.push_back({std::nullopt, 0, "",
                       "the control of line " + std::to_string(first->line) + " has the ID " +
                           inQuotes(control.span().id) + " too",
                       "give one of them another ID in its OBJECT element", 0});
}

void standsBehindTheDirective(const ControlView& control, Remarks& remarks) {
    const PageMarkup& page = control.page.markup();
    const auto directive = page.directive();
    if (!directive || directive->begin < control.span().whole.end) return;
    const auto before = page.textOf({0, directive->begin});
    remarks.push_back({std::nullopt, 0, "",
                       "the control stands before the page's directive (<%@ ... %>, line " +
                           std::to_string(1 + std::count(before.begin(), before.end(), '\n')) +
                           "), which no server script may come before",
                       "move the control, from its start comment to its end comment, behind the "
                       "directive",
                       0});
}

}  // namespace headerdtc::rules
