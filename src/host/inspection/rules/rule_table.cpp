#include "host/inspection/rules/rule_table.h"

#include "host/inspection/rules/rules.h"

namespace headerdtc {
namespace {

using enum Severity;
using enum Rule::Finds;

// clang-format off
constexpr Rule Rules[] = {
    {"unreadable-property",      "a stored count or kind is no number",                                       rules::propertiesCanBeRead,      Error, CauseOfFailure},
    {"duplicate-id",             "two controls of a page have one ID",                                        rules::idIsItsOwn,               Error},
    {"control-before-directive", "a control stands before the page's directive",                              rules::standsBehindTheDirective, Error},
    {"unknown-provider",         "the data provider is not in the catalogue",                                 rules::providerIsKnown,          Error},
    {"unknown-linked-provider",  "the linked data provider is not in the catalogue",                          rules::linkedProviderIsKnown,    Error},
    {"unknown-field",            "a chosen field is not offered by the data provider",                        rules::fieldsAreOffered,         Error},
    {"unknown-key-field",        "a key field is not one of the data provider",                               rules::keyFieldsAreOffered,      Error},
    {"unknown-linked-field",     "a linked field is not offered by the provider it is taken from",            rules::linkedFieldsAreOffered,   Error},
    {"field-separator",          "a field entry has nothing that parts its name, which stops the generation", rules::fieldsHaveTheirSeparator, Error, CauseOfFailure},
    {"repeated-field",           "a field or link is chosen twice, at which the page fails",                  rules::fieldsAreThereOnce,       Error},
    {"incomplete-link",          "a link lacks a field, a provider or fields to read",                        rules::linksAreWhole,            Warning},
    {"incomplete-criterion",     "a criterion lacks its key, operator or value and is left out",              rules::criteriaAreComplete,      Warning},
    {"unknown-operator",         "a criterion has an operator that is none",                                  rules::operatorsAreKnown,        Error},
    {"value-type-conflict",      "one value name is used with two kinds",                                     rules::valuesHaveOneType,        Error, CauseOfFailure},
    {"unread-value-type",        "the kind of a criterion's value is stored where it is not read",            rules::valueTypesAreRead,        Error},
    {"undefined-function",       "a criterion calls a function that nothing defines",                         rules::functionsAreDefined,      Error},
    {"name-not-allowed",         "a script or function has a name that it cannot have",                       rules::namesAreAllowed,          Error},
    {"name-defined-twice",       "two local scripts of a page define one name",                               rules::namesAreDefinedOnce,      Error},
    {"broken-script",            "a local script is not ended, or ends the server script",                    rules::scriptsAreWhole,          Error},
    {"missing-include",          "an include file is not there",                                              rules::includesAreThere,         Error},
    {"repeated-include",         "an include file that declares something comes twice",                       rules::includesComeOnce,         Error},
    {"broken-include",           "an include file is not closed, or includes itself or what is not there",    rules::includesAreWhole,         Error},
    {"missing-stylesheet",       "the stylesheet is not there",                                               rules::stylesheetIsThere,        Error},
    {"value-breaks-script",      "a value holds what ends the text that it is put into",                      rules::valuesFitTheScript,       Error},
    {"value-is-placeholder",     "a value has a placeholder of the template in it",                           rules::valuesAreNoPlaceholders,  Warning},
    {"nul-character",            "a value or script has a NUL character",                                     rules::valuesHaveNoNul,          Error},
    {"outside-code-page",        "a value has a character that the page's code page lacks",                   rules::valuesFitTheCodePage,     Error},
    {"long-statement",           "a statement has more lines than a script engine takes",                     rules::statementsFitTheEngine,   Error},
    {NotGeneratedRule,           "the page would be left as it is by a generation",                           rules::pageCanBeGenerated,       Error, Consequence},
    {StaleRule,                  "the text is not what would be generated",                                   rules::textIsUpToDate,           Warning},
};
// clang-format on

}  // namespace

std::span<const Rule> inspectionRules() {
    return Rules;
}

std::string_view nameOf(Severity severity) {
    return severity == Severity::Error ? "error" : "warning";
}

}  // namespace headerdtc
