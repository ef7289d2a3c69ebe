#include "host/inspection/rules/rule_table.h"

#include "host/inspection/rules/rules.h"

namespace headerdtc {
namespace {

using enum Severity;
using enum Rule::Finds;

// clang-format off
constexpr Rule Rules[] = {
    {"unreadable-property",     Error,   "a stored count or kind is no number",                           rules::propertiesCanBeRead, CauseOfFailure},
    {"duplicate-id",            Error,   "two controls of a page have one ID",                            rules::idIsItsOwn},
    {"control-before-directive", Error,  "a control stands before the page's directive",                  rules::standsBehindTheDirective},
    {"unknown-provider",        Error,   "the data provider is not in the catalogue",                     rules::providerIsKnown},
    {"unknown-linked-provider", Error,   "the linked data provider is not in the catalogue",              rules::linkedProviderIsKnown},
    {"unknown-field",           Error,   "a chosen field is not offered by the data provider",            rules::fieldsAreOffered},
    {"unknown-key-field",       Error,   "a key field is not one of the data provider",                   rules::keyFieldsAreOffered},
    {"unknown-linked-field",    Error,   "a linked field is not offered by the provider it is taken from", rules::linkedFieldsAreOffered},
    {"field-separator",         Error,   "a field entry has nothing that parts its name, which stops the generation", rules::fieldsHaveTheirSeparator, CauseOfFailure},
    {"repeated-field",          Error,   "a field or link is chosen twice, at which the page fails",      rules::fieldsAreThereOnce},
    {"incomplete-link",         Warning, "a link lacks a field, a provider or fields to read",            rules::linksAreWhole},
    {"incomplete-criterion",    Warning, "a criterion lacks its key, operator or value and is left out",  rules::criteriaAreComplete},
    {"unknown-operator",        Error,   "a criterion has an operator that is none",                      rules::operatorsAreKnown},
    {"value-type-conflict",     Error,   "one value name is used with two kinds",                         rules::valuesHaveOneType, CauseOfFailure},
    {"unread-value-type",       Error,   "the kind of a criterion's value is stored where it is not read", rules::valueTypesAreRead},
    {"undefined-function",      Error,   "a criterion calls a function that nothing defines",             rules::functionsAreDefined},
    {"name-not-allowed",        Error,   "a script or function has a name that it cannot have",           rules::namesAreAllowed},
    {"name-defined-twice",      Error,   "two local scripts of a page define one name",                   rules::namesAreDefinedOnce},
    {"broken-script",           Error,   "a local script is not ended, or ends the server script",        rules::scriptsAreWhole},
    {"missing-include",         Error,   "an include file is not there",                                  rules::includesAreThere},
    {"repeated-include",        Error,   "an include file that declares something comes twice",           rules::includesComeOnce},
    {"broken-include",          Error,   "an include file is not closed, or includes itself or what is not there", rules::includesAreWhole},
    {"missing-stylesheet",      Error,   "the stylesheet is not there",                                   rules::stylesheetIsThere},
    {"value-breaks-script",     Error,   "a value holds what ends the text that it is put into",          rules::valuesFitTheScript},
    {"value-is-placeholder",    Warning, "a value has a placeholder of the template in it",               rules::valuesAreNoPlaceholders},
    {"nul-character",           Error,   "a value or script has a NUL character",                         rules::valuesHaveNoNul},
    {"outside-code-page",       Error,   "a value has a character that the page's code page lacks",       rules::valuesFitTheCodePage},
    {"long-statement",          Error,   "a statement has more lines than a script engine takes",         rules::statementsFitTheEngine},
    {"not-generated",           Error,   "the page would be left as it is by a generation",               rules::pageCanBeGenerated, Consequence},
    {"stale",                   Warning, "the text is not what would be generated",                       rules::textIsUpToDate},
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
