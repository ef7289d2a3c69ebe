#include "host/inspection/rules/rule_table.h"

#include "host/inspection/rules/rules.h"

namespace headerdtc {
namespace {

using enum Severity;
using enum Rule::Finds;

constexpr Rule Rules[] = {
    {"unreadable-property", "a stored count or kind is no number",
     "How many items a list has and what kind a criterion's value is are stored as "
     "numbers. One that is no number, after an edit by hand or a merge, ends the reading "
     "of the page there. Put the number back, of the items or of the grid's rows with "
     "its header.",
     rules::propertiesCanBeRead, Error, CauseOfFailure},
    {"duplicate-id", "two controls of a page have one ID",
     "Tools and scripts tell the controls of a page apart by their IDs. Copied markup "
     "brings its ID along. Give one of the two another ID in its OBJECT element.",
     rules::idIsItsOwn, Error, Fault},
    {"control-before-directive", "a control stands before the page's directive",
     "The page's <%@ ... %> has to come before all other server script, and the "
     "control's text is such script: the published page fails. Move the whole control, "
     "from its start comment to its end comment, behind the directive.",
     rules::standsBehindTheDirective, Error, Fault},
    {"unknown-provider", "the data provider is not in the catalogue",
     "The editor offers, and the suite opens, what the catalogue has. A provider that is "
     "not there was renamed, taken out, or is misspelt. 'headerdtc rename --provider' "
     "takes a new name to all pages; otherwise bring the catalogue up to date or choose "
     "another provider, which empties the fields.",
     rules::providerIsKnown, Error, Fault},
    {"unknown-linked-provider", "the linked data provider is not in the catalogue",
     "The same as unknown-provider, for the data provider that is linked: its fields "
     "cannot be read.",
     rules::linkedProviderIsKnown, Error, Fault},
    {"unknown-field", "a chosen field is not offered by the data provider",
     "The suite fails on a field that the data provider does not have. It was renamed, "
     "taken out, or its number or record group has changed. 'headerdtc rename --field' "
     "takes a new name to all pages; in the editor the field is marked and can be "
     "replaced.",
     rules::fieldsAreOffered, Error, Fault},
    {"unknown-key-field", "a key field is not one of the data provider",
     "Criteria and the sort order go by the key fields of the data provider. A key is "
     "stored by its name; one that is none any more gives no rows, or a failure. Choose "
     "one that is offered, or take a new name to all pages with 'headerdtc rename "
     "--field'.",
     rules::keyFieldsAreOffered, Error, Fault},
    {"unknown-linked-field", "a linked field is not offered by the provider it is taken from",
     "The same as unknown-field, for fields of the linked data provider and both sides "
     "of a link.",
     rules::linkedFieldsAreOffered, Error, Fault},
    {"field-separator", "a field entry has nothing that parts its name, which stops the generation",
     "An entry is a number, \" - \" and a name, or a record group, a full stop and a "
     "name. Without that the script cannot be generated at all. Remove the entry and "
     "choose the field anew.",
     rules::fieldsHaveTheirSeparator, Error, CauseOfFailure},
    {"repeated-field", "a field or link is chosen twice, at which the page fails",
     "The script adds fields and links to collections that take a name once: the second "
     "time the page fails. Take one of the two out.",
     rules::fieldsAreThereOnce, Error, Fault},
    {"incomplete-link", "a link lacks a field, a provider or fields to read",
     "A link needs a field of the data provider, one of the linked provider, that "
     "provider, and linked fields to read. What lacks a piece is left out or never read. "
     "Complete it, or remove it.",
     rules::linksAreWhole, Warning, Fault},
    {"incomplete-criterion", "a criterion lacks its key, operator or value and is left out",
     "A criterion needs key, operator and value. One that lacks a piece does not come "
     "into the script, so the page shows more rows than it says. Complete the row, or "
     "remove it.",
     rules::criteriaAreComplete, Warning, Fault},
    {"unknown-operator", "a criterion has an operator that is none",
     "There are ==, <= and >=. For another text the script takes the operator of the "
     "criterion before. Choose one anew.",
     rules::operatorsAreKnown, Error, Fault},
    {"value-type-conflict", "one value name is used with two kinds",
     "Whether a criterion's value is a constant, a function or a local script is stored "
     "by the value's name, and scripts for both query families under one name. Stored "
     "twice it ends the loading; with two kinds one family gets what is meant for the "
     "other. Use two names.",
     rules::valuesHaveOneType, Error, CauseOfFailure},
    {"unread-value-type", "the kind of a criterion's value is stored where it is not read",
     "As many kinds of values are read as there are criteria. One that is stored behind "
     "them is not read: its function becomes a constant. Number the properties from 1 "
     "without a gap, or set the kind anew in the script dialog.",
     rules::valueTypesAreRead, Error, Fault},
    {"undefined-function", "a criterion calls a function that nothing defines",
     "The script calls the function when the page is shown, and fails without it. It is "
     "looked for in the page, the scripts of its controls, and the files that page, "
     "controls and template include. Add the file that defines it to the include files.",
     rules::functionsAreDefined, Error, Fault},
    {"name-not-allowed", "a script or function has a name that it cannot have",
     "A name that the script language cannot have, or keeps for itself, is a syntax "
     "error; one that the generated script uses itself is defined twice. Give the script "
     "or function another name.",
     rules::namesAreAllowed, Error, Fault},
    {"name-defined-twice", "two local scripts of a page define one name",
     "All scripts of a page share one space of names, those of two controls too. Rename "
     "one of them.",
     rules::namesAreDefinedOnce, Error, Fault},
    {"broken-script", "a local script is not ended, or ends the server script",
     "A local script without its End Function, or with a %> in it, takes the rest of the "
     "generated script with it. Open it in the script dialog and press OK, or write "
     "\"%\" & \">\".",
     rules::scriptsAreWhole, Error, Fault},
    {"missing-include", "an include file is not there",
     "Include files are looked for below the install directory, where the editor "
     "browses, and below the project's root. The published page fails without the file. "
     "Put it there, or remove it from the include files.",
     rules::includesAreThere, Error, Fault},
    {"repeated-include", "an include file that declares something comes twice",
     "A file that declares a function or a variable can be included once: the second "
     "time it is a syntax error. Two controls of a page, or the template, may each bring "
     "it. Take one of them out.",
     rules::includesComeOnce, Error, Fault},
    {"broken-include", "an include file is not closed, or includes itself or what is not there",
     "A file with a <% that is not closed, or one that includes itself or what is not "
     "there, ends the page that includes it. Correct that file.",
     rules::includesAreWhole, Error, Fault},
    {"missing-stylesheet", "the stylesheet is not there",
     "Without its stylesheet the page has data and nothing to show it with. Choose "
     "another, or put the file below the install directory.",
     rules::stylesheetIsThere, Error, Fault},
    {"value-breaks-script", "a value holds what ends the text that it is put into",
     "Values go into the script as they are, between quotation marks. A single quotation "
     "mark, a line end or a %> ends the text too soon, and what follows becomes script. "
     "Write every quotation mark twice, and no line end.",
     rules::valuesFitTheScript, Error, Fault},
    {"value-is-placeholder", "a value has a placeholder of the template in it",
     "Placeholders of the template are replaced one after the other, in values too. One "
     "that a value has may be replaced by another text. Write another text.",
     rules::valuesAreNoPlaceholders, Warning, Fault},
    {"nul-character", "a value or script has a NUL character",
     "No script engine reads on behind a character 0. Write the value anew, or take the "
     "character out of the page.",
     rules::valuesHaveNoNul, Error, Fault},
    {"outside-code-page", "a value has a character that the page's code page lacks",
     "A character that the page's code page lacks is stored as a reference, and the "
     "script gets the text of that reference. Write another text, or make the page UTF-8 "
     "by a byte-order mark.",
     rules::valuesFitTheCodePage, Error, Fault},
    {"long-statement", "a statement has more lines than a script engine takes",
     "A script engine takes 25 lines joined by \" _\" as one statement. Break the "
     "statement of a local script into several; translate fewer fields.",
     rules::statementsFitTheEngine, Error, Fault},
    {NotGeneratedRule, "the page would be left as it is by a generation",
     "Loading or generating the page reports an error, or something stored would be "
     "lost. It stands only where no other rule has found the cause. Mend what is named; "
     "'headerdtc doctor' looks at the set-up.",
     rules::pageCanBeGenerated, Error, Consequence},
    {StaleRule, "the text is not what would be generated",
     "The script is not what would be generated now: what is stored, the template or a "
     "script was changed since, or the script was edited by hand. 'headerdtc generate "
     "--check --diff' shows the difference, 'headerdtc generate' writes it.",
     rules::textIsUpToDate, Warning, Fault},
};

}  // namespace

std::span<const Rule> inspectionRules() {
    return Rules;
}

std::string_view nameOf(Severity severity) {
    return severity == Severity::Error ? "error" : "warning";
}

}  // namespace headerdtc
