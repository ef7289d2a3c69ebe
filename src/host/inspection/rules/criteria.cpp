#include "core/family_controls.h"
#include "host/inspection/rules/rules.h"

#include <algorithm>

namespace headerdtc::rules {
namespace {

using Criterion = StoredConfiguration::Criterion;

std::string nameOfCriterion(const Criterion& criterion) {
    return "criterion " + std::to_string(criterion.row);
}

// Only complete criteria are written.
bool isWritten(const Criterion& criterion) {
    return !trimBlanks(criterion.key.text).empty() && !criterion.operation.text.empty() &&
           !criterion.value.text.empty();
}

bool isOperator(std::string_view text) {
    return std::find(std::begin(CriteriumOperators), std::end(CriteriumOperators), text) !=
           std::end(CriteriumOperators);
}

std::string wordOf(int type) {
    switch (type) {
        case CONSTANT:
            return "a constant";
        case INCLUDEFUNCTION:
            return "a function of an include file";
        case USERSCRIPT:
            return "a local script";
        default:
            return "kind " + std::to_string(type);
    }
}

const StoredConfiguration::Script* findScript(const StoredConfiguration& configuration,
                                              std::string_view name) {
    const auto found = std::find_if(configuration.scripts.begin(), configuration.scripts.end(),
                                    [&](const auto& script) { return script.name.text == name; });
    return found == configuration.scripts.end() ? nullptr : &*found;
}

void requireScript(const ControlView& control, const StoredItem& value, Family family,
                   Remarks& remarks) {
    const auto* script = findScript(control.configuration(), value.text);
    if (!script) {
        remarks.push_back(about(value, family,
                                "the local script " + inQuotes(value.text) + " is not stored",
                                "open the criterion's script dialog and write it"));
    } else if (!ScriptText::read(script->text).functions.contains(functionKey(value.text))) {
        remarks.push_back(about(
            value, family,
            "the local script " + inQuotes(value.text) + " does not define a function of that name",
            "change its body in the script dialog, so that it gets the name"));
    }
}

void requireFunction(const ControlView& control, const StoredItem& value, Family family,
                     Remarks& remarks) {
    if (control.page.definesFunction(value.text)) return;
    remarks.push_back(about(
        value, family, "no include file and no script defines the function " + inQuotes(value.text),
        "add the file that defines it to the include files"));
}

}  // namespace

void criteriaAreComplete(const ControlView& control, Remarks& remarks) {
    for (const Family family : BothFamilies) {
        for (const Criterion& criterion : control.configuration().of(family).criteria) {
            const bool key = !trimBlanks(criterion.key.text).empty();
            const bool operation = !criterion.operation.text.empty();
            const bool value = !criterion.value.text.empty();
            if (isWritten(criterion) || (!key && !operation && !value)) continue;
            const char* missing = !key ? "key field" : !operation ? "operator" : "value";
            // What is missing is not stored: the finding stands where the rest of the row is.
            remarks.push_back(about(
                key ? criterion.key : (operation ? criterion.operation : criterion.value), family,
                nameOfCriterion(criterion) + " has no " + missing + " and is left out",
                "complete it, or remove it"));
        }
    }
}

void operatorsAreKnown(const ControlView& control, Remarks& remarks) {
    for (const Family family : BothFamilies) {
        for (const Criterion& criterion : control.configuration().of(family).criteria) {
            if (!isWritten(criterion) || isOperator(criterion.operation.text)) continue;
            remarks.push_back(about(criterion.operation, family,
                                    "the operator " + inQuotes(criterion.operation.text) + " of " +
                                        nameOfCriterion(criterion) +
                                        " is unknown; it gets that of the criterion before it",
                                    "choose ==, <= or >="));
        }
    }
}

void valuesHaveOneType(const ControlView& control, Remarks& remarks) {
    const StoredConfiguration& configuration = control.configuration();
    for (const Family family : BothFamilies) {
        const auto& types = configuration.of(family).valueTypes;
        for (auto type = types.begin(); type != types.end(); ++type) {
            const auto before = std::find_if(
                types.begin(), type, [&](const auto& other) { return other.value == type->value; });
            if (before == type) continue;
            remarks.push_back({family, 0, type->property,
                               "the kind of the value " + inQuotes(type->value) +
                                   " is stored twice, which stops the loading",
                               "take one of the two out of the page", 0});
        }
    }
    // The families keep their kinds apart, but a script is kept for both under one name.
    const auto usedAs = [&](Family family, const std::string& value) -> std::optional<int> {
        for (const Criterion& criterion : configuration.of(family).criteria) {
            if (isWritten(criterion) && criterion.value.text == value)
                return configuration.of(family).typeOf(value);
        }
        return std::nullopt;
    };
    for (const Criterion& criterion : configuration.eai.criteria) {
        if (!isWritten(criterion)) continue;
        const std::string& value = criterion.value.text;
        const int type = configuration.eai.typeOf(value);
        const auto other = usedAs(Family::ZEKO, value);
        if (!other || *other == type) continue;
        remarks.push_back(about(criterion.value, Family::EAI,
                                "the value " + inQuotes(value) + " is " + wordOf(type) +
                                    " for EAI and " + wordOf(*other) + " for ZEKO",
                                "give the two different names, or set one of them anew in the "
                                "script dialog"));
    }
}

void valueTypesAreRead(const ControlView& control, Remarks& remarks) {
    for (const Family family : BothFamilies) {
        const auto& own = control.configuration().of(family);
        for (const auto& type : own.unreadTypes) {
            const auto user = std::find_if(
                own.criteria.begin(), own.criteria.end(),
                [&](const auto& criterion) { return criterion.value.text == type.value; });
            if (user == own.criteria.end() || type.type == CONSTANT) continue;
            remarks.push_back(
                {family, user->row, type.property,
                 "the value " + inQuotes(type.value) + " of " + nameOfCriterion(*user) +
                     " is stored as " + wordOf(type.type) +
                     " under a number above that of the criteria, where it is not "
                     "read, and becomes a constant",
                 "number the properties of its kind from 1 without a gap, by hand, or "
                 "set the kind anew in the script dialog",
                 0});
        }
    }
}

void functionsAreDefined(const ControlView& control, Remarks& remarks) {
    for (const Family family : BothFamilies) {
        const auto& own = control.configuration().of(family);
        for (const Criterion& criterion : own.criteria) {
            const StoredItem& value = criterion.value;
            const int type = own.typeOf(value.text);
            if (!isWritten(criterion) || type == CONSTANT) continue;
            if (type == USERSCRIPT) {
                requireScript(control, value, family, remarks);
            } else if (isFunctionName(value.text)) {
                requireFunction(control, value, family, remarks);
            } else if (value.text.find('.') == std::string::npos) {
                // A method of an object cannot be looked up; anything else is no name at all.
                remarks.push_back(about(value, family,
                                        inQuotes(value.text) + " cannot be the name of a function",
                                        "make it a constant in the script dialog, or write the "
                                        "name alone, without brackets"));
            }
        }
    }
}

}  // namespace headerdtc::rules
