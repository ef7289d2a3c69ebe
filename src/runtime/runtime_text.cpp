#include "runtime/runtime_text.h"

#include "core/header_dtc.h"
#include "platform/error_trap.h"
#include "platform/surroundings.h"
#include "runtime/expansion.h"
#include "runtime/fragments.h"
#include "runtime/host_binding.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace headerdtc {
namespace {

using Request = RuntimeTextRequest;

constexpr int EAI = 1, ZEKO = 2, LinkedEAI = 4, LinkedZEKO = 5;

// The key field that a query sorts by until the user chooses another.
std::string initialSortField(const FamilyControls& family) {
    return family.KeyFieldsCombo.ListCount() > 0 ? family.KeyFieldsCombo.List(0) : std::string();
}

std::string includeBlock(const ListBox& files, const std::string& pathToRoot) {
    std::string block;
    for (int i = 0; i < files.ListCount(); ++i)
        block += "<!--#INCLUDE file =\"" + pathToRoot + files.List(i) + "\" -->\r\n";
    return block;
}

std::string scriptBlock(const ScriptDictionary& scripts) {
    std::string block;
    for (const auto& [name, script] : scripts) {
        block += script;
        block += "\r\n\r\n";
    }
    return block;
}

template <std::size_t Index>
constexpr RuntimeTextStep variableStep() {
    return {ScriptVariables[Index].placeholder,
            [](Request&) { return std::string(ScriptVariables[Index].name); }};
}

constexpr RuntimeTextStep Steps[] = {
    // The page
    {"<PATH_TO_ROOT>", [](Request& r) { return r.pathToRoot = GetRelativePathRoot(r.control); }},
    {"<DEFAULTPAGESIZE>", [](Request&) { return std::string("10"); }},
    {"<INITIAL_ZEKO_SORT_FIELD>", [](Request& r) { return initialSortField(r.control.ZEKO); }},
    {"<INITIAL_EAI_SORT_FIELD>", [](Request& r) { return initialSortField(r.control.EAI); }},
    {"<DATAPROVIDER>", [](Request& r) { return r.control.DataProvidersCombo.Text(); }},
    {"<EXTRA_INCLUDES>",
     [](Request& r) { return includeBlock(r.control.IncludeASPList, r.pathToRoot); }},
    {"<XSL_FILENAME>", [](Request& r) { return r.control.XSLFilenameText.Text(); }},
    {"<USER_DEFINED_SCRIPTS>",
     [](Request& r) { return scriptBlock(*r.control.userDefinedScripts); }},
    // EAI
    {"<SPECIFY_EAI_KEYFIELDS>", [](Request& r) { return GetKeyFieldsRuntimeText(r.control, EAI); }},
    {"<ADD_EAI_RETURN_FIELDS>",
     [](Request& r) { return GetReturnFieldsRuntimeText(r.control, EAI); }},
    {"<SPECIFY_EAI_CRITERIA>", [](Request& r) { return GetCriteriaRuntimeText(r.control, EAI); }},
    {"<SPECIFY_EAI_I18N_FIELDS>",
     [](Request& r) { return GetI18NFieldnamesRuntimeText(r.control, EAI); }},
    {"<SPECIFY_EAI_I18N_FIELDVALUES>",
     [](Request& r) { return r.eaiFieldValues = GetI18NFieldValuesRuntimeText(r.control, EAI); }},
    // Again the return fields' placeholder: for one that the EAI fragments brought in. ZEKO has no
    // such step.
    {"<ADD_EAI_RETURN_FIELDS>", [](Request& r) { return r.eaiFieldValues; }},
    // ZEKO
    {"<SPECIFY_ZEKO_KEYFIELDS>",
     [](Request& r) { return GetKeyFieldsRuntimeText(r.control, ZEKO); }},
    {"<ADD_ZEKO_RETURN_FIELDS>",
     [](Request& r) { return GetReturnFieldsRuntimeText(r.control, ZEKO); }},
    {"<SPECIFY_ZEKO_CRITERIA>", [](Request& r) { return GetCriteriaRuntimeText(r.control, ZEKO); }},
    {"<SPECIFY_ZEKO_I18N_FIELDS>",
     [](Request& r) { return GetI18NFieldnamesRuntimeText(r.control, ZEKO); }},
    {"<SPECIFY_ZEKO_I18N_FIELDVALUES>",
     [](Request& r) { return GetI18NFieldValuesRuntimeText(r.control, ZEKO); }},
    // The link
    {"<SPECIFY_EAI_LINKED_FIELDS>",
     [](Request& r) { return GetLinkedReturnFieldsRuntimeText(r.control, LinkedEAI); }},
    {"<SPECIFY_ZEKO_LINKED_FIELDS>",
     [](Request& r) { return GetLinkedReturnFieldsRuntimeText(r.control, LinkedZEKO); }},
    {"<SPECIFY_ZEKO_LINKED_FIELDVALUES>",
     [](Request& r) { return GetLinkedFieldsRuntimeText(r.control, LinkedZEKO); }},
    {"<SPECIFY_EAI_LINKED_FIELDVALUES>",
     [](Request& r) { return GetLinkedFieldsRuntimeText(r.control, LinkedEAI); }},
    // The script variables, once all fragments that name them are in place
    variableStep<0>(),
    variableStep<1>(),
    variableStep<2>(),
    {"<LINKED_DATAPROVIDER>", [](Request& r) { return r.control.linkedDataProvider; }},
    variableStep<3>(),
    variableStep<4>(),
    {"<ENABLE_EXTRA_FILTERS>",
     [](Request& r) {
         return std::string(
             r.control.EnableExtraFiltersCheck.Value() == CheckState::Unchecked ? "false" : "true");
     }},
};

const ExpansionSteps& preparedSteps() {
    static const ExpansionSteps prepared = [] {
        std::vector<std::string_view> placeholders;
        for (const RuntimeTextStep& step : Steps)
            placeholders.push_back(step.placeholder);
        return ExpansionSteps(placeholders);
    }();
    return prepared;
}

std::string readTemplate(HeaderDTC& control) {
    const auto& installDir = control.procedures.GetInstallDir;
    std::string path = installDir ? installDir() : std::string();
    path += TemplateFile;
    return withLineEnds(control.surroundings.textFiles.readText(path));
}

}  // namespace

std::span<const RuntimeTextStep> runtimeTextSteps() {
    return Steps;
}

std::string_view placeholderIn(std::string_view text) {
    const TagMatcher& placeholders = preparedSteps().matcher();
    for (auto at = text.find('<'); at != std::string_view::npos; at = text.find('<', at + 1)) {
        const TagReading reading = placeholders.read(text.substr(at));
        if (reading.tag != TagReading::None) return text.substr(at, reading.length);
    }
    return {};
}

std::string withLineEnds(std::string_view text) {
    std::string lines;
    lines.reserve(text.size() + text.size() / 16 + 2);
    std::size_t copied = 0;  // lines that end as they should are copied together
    std::size_t cr = text.find('\r');
    std::size_t lf = text.find('\n');
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min({cr, lf, text.size()});
        const bool crLf = end == cr && lf == end + 1;
        start = end + (crLf ? 2 : 1);
        if (!crLf) {
            lines.append(text.substr(copied, end - copied)).append("\r\n");
            copied = start;
        }
        if (cr < start) cr = text.find('\r', start);
        if (lf < start) lf = text.find('\n', start);
    }
    if (copied < text.size()) lines.append(text.substr(copied));
    return lines;
}

std::string GetRuntimeText(HeaderDTC& control) {
    std::optional<Expansion> expansion;
    const auto body = [&] {
        expansion.emplace(readTemplate(control), preparedSteps());
        RuntimeTextRequest request{control};
        for (const RuntimeTextStep& step : Steps)
            expansion->replace(step.value(request));
    };
    trapErrors(control.surroundings.messages, "IProvideRuntimeText_GetRuntimeText", body,
               ErrorReportStyle::NoBlankBeforeNumber);
    return expansion ? expansion->text() : std::string();
}

void provideRuntimeText(HeaderDTC& control) {
    control.procedures.GetRuntimeText = [&control] { return GetRuntimeText(control); };
}

}  // namespace headerdtc
