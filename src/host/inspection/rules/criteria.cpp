#include "core/family_controls.h"
#include "host/inspection/rules/rules.h"

#include <algorithm>
#include <map>

namespace headerdtc::rules {
namespace {

using Criterion = StoredConfiguration::Criterion;

std::string nameOfCriterion(const Criterion& criterion) {
    return "criterion " + std::to_string(criterion.row);
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
    } else if (!ScriptText::read(script->text, ScriptText::Form::Script)
                    .functions.contains(functionKey(value.text))) {
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

// Why no function can have that name; empty when one can. A script's function may not be called as
// one of the engine's that the template calls; a function from elsewhere may be that one.
std::string faultInName(const ControlView& control, const std::string& name, bool isOwn) {
    if (!isFunctionName(name)) return "cannot be the name of a function";
    if (isReservedWord(name)) return "is a word of the script language and cannot name a function";
    const auto& site = control.page.facts().siteTemplate();
    const std::string key = functionKey(name);
    const bool isKnown = isBuiltInFunction(name) || site.functions.contains(key);
    if (site.names.contains(key) && (isOwn || !isKnown))
        return "is a name that the generated script uses itself";
    return {};
}

}  // namespace

void criteriaAreComplete(const ControlView& control, Remarks& remarks) {
    for (const Family family : BothFamilies) {
        for (const Criterion& criterion : control.configuration().of(family).criteria) {
            const bool key = !trimBlanks(criterion.key.text).empty();
            const bool operation = !criterion.operation.text.empty();
            const bool value = !criterion.value.text.empty();
            if (criterion.isWritten() || (!key && !operation && !value)) continue;
            const char* missing = !key ? "key field" : !operation ? "operator" : "value";
            // A missing piece is stored nowhere, so the finding names the piece of the row that is
            // there.
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
            if (!criterion.isWritten() || isOperator(criterion.operation.text)) continue;
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
    // Each family has its own kinds, but a script has one name for both.
    const auto usedAs = [&](Family family, const std::string& value) -> std::optional<int> {
        for (const Criterion& criterion : configuration.of(family).criteria) {
            if (criterion.isWritten() && criterion.value.text == value)
                return configuration.of(family).typeOf(value);
        }
        return std::nullopt;
    };
    for (const Criterion& criterion : configuration.eai.criteria) {
        if (!criterion.isWritten()) continue;
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
            remarks.push_back({family, user->row, type.property,
                               "the value " + inQuotes(type.value) + " of " +
                                   nameOfCriterion(*user) + " is stored as " + wordOf(type.type) +
                                   " under a number above that of the criteria, where it is not "
                                   "read, and becomes a constant",
                               "add an empty criterion, or set the kind anew in the script dialog",
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
            if (!criterion.isWritten() || type == CONSTANT) continue;
            if (type == USERSCRIPT) {
                requireScript(control, value, family, remarks);
            } else if (isFunctionName(value.text) && !isReservedWord(value.text)) {
                requireFunction(control, value, family, remarks);
            }
        }
    }
}

// A method of an object cannot be looked up, and is none of the page's names.
void namesAreAllowed(const ControlView& control, Remarks& remarks) {
    const StoredConfiguration& configuration = control.configuration();
    const auto require = [&](const StoredItem& name, std::optional<Family> family, bool isOwn) {
        if (!isOwn && name.text.find('.') != std::string::npos) return;
        const std::string fault = faultInName(control, name.text, isOwn);
        if (fault.empty()) return;
        remarks.push_back(about(name, family, inQuotes(name.text) + " " + fault,
                                isOwn ? "give the script another name in its dialog"
                                      : "make it a constant in the script dialog, or write the "
                                        "name of a function alone, without brackets"));
    };
    for (const auto& script : configuration.scripts)
        require(script.name, std::nullopt, true);
    for (const Family family : BothFamilies) {
        const auto& own = configuration.of(family);
        for (const Criterion& criterion : own.criteria) {
            const int type = own.typeOf(criterion.value.text);
            if (criterion.isWritten() && type != CONSTANT && type != USERSCRIPT)
                require(criterion.value, family, false);
        }
    }
}

// All controls of a page share one script.
void namesAreDefinedOnce(const ControlView& control, Remarks& remarks) {
    const auto& configurations = control.page.configurations();
    std::map<std::string, std::string> defined;  // where, by key
    for (std::size_t i = 0; i <= control.index; ++i) {
        for (const auto& script : configurations[i].scripts) {
            const auto text = ScriptText::read(script.text, ScriptText::Form::Script);
            for (const std::string& name : text.declared) {
                const std::string place =
                    "the local script " + inQuotes(script.name.text) +
                    (i < control.index ? " of " + control.page.markup().controls()[i].id : "");
                const auto [other, isNew] = defined.emplace(functionKey(name), place);
                if (isNew || i < control.index) continue;
                remarks.push_back(about(script.name, std::nullopt,
                                        "the local script " + inQuotes(script.name.text) +
                                            " defines " + inQuotes(name) + ", as " +
                                            (other->second == place ? "it did" : other->second) +
                                            " does before it",
                                        "give one of them another name in the script dialog"));
            }
        }
    }
}

}  // namespace headerdtc::rules
