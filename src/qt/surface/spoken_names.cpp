#include "qt/surface/spoken_names.h"

#include "core/family.h"

namespace headerdtc::qt {
namespace {

struct SpokenName {
    std::string_view role;  // the control's name, without the prefix of a family
    const char* words;      // %1: the family
};

// A window has several "Add" and "Delete", and captions like "/\" and "..." cannot be spoken. Where
// there is a caption of letters the words begin with it, so that it can be spoken as a command too.
constexpr SpokenName SpokenNames[] = {
    {"SSTab1", "Parts of the control"},
    {"DataProvidersCombo", "Data provider"},
    {"SaveCommand", "Save generated text"},
    {"IncludeASPText", "Include ASP"},
    {"BrowseForIncludeASPCommand", "Browse for include ASP"},
    {"IncludeASPAddCommand", "Add include ASP"},
    {"IncludeASPDeleteCommand", "Delete include ASP"},
    {"IncludeASPList", "Include ASPs"},
    {"XSLFilenameText", "Style sheet"},
    {"BrowseForXSLFileCommand", "Browse for style sheet"},
    {"I18NDataProviderText", "Data provider"},

    {"DataProviderText", "Data provider of %1"},
    {"FieldsList", "Available %1 fields"},
    {"AddField", "Add %1 field"},
    {"RemoveField", "Delete %1 field"},
    {"SelectedFieldsList", "Selected %1 fields"},
    {"MoveUpCommand", "Move %1 field up"},
    {"MoveDownCommand", "Move %1 field down"},
    {"CriteriaGrid", "%1 selection criteria"},
    {"KeyFieldsCombo", "Key of %1 criterion"},
    {"OperatorsCombo", "Operator of %1 criterion"},
    {"KeyFieldValueText", "Value of %1 criterion"},
    {"AddCriteriumCommand", "Add %1 criterion"},
    {"RemoveCriteriumCommand", "Delete %1 criterion"},
    {"I18NFieldnamesList", "Translate names of %1 fields"},
    {"I18NFieldValuesList", "Translate values of %1 fields"},
    {"LinkedDataProvidersCombo", "Linked data provider of %1"},
    {"LinkedFieldsList", "Available linked %1 fields"},
    {"AddLinkedField", "Add linked %1 field"},
    {"RemoveLinkedField", "Delete linked %1 field"},
    {"SelectedLinkedFieldsList", "Selected linked %1 fields"},
    {"MoveUpLinkedField", "Move linked %1 field up"},
    {"MoveUpLinkdFieldCommand", "Move linked %1 field up"},
    {"MoveDownLinkedField", "Move linked %1 field down"},
    {"MoveDownLinkdFieldCommand", "Move linked %1 field down"},
    {"LinksGrid", "%1 links"},
    {"FromLinkFieldsCombo", "From field of %1 link"},
    {"ToLinkFieldsCombo", "To field of %1 link"},
    {"AddLink", "Add %1 link"},
    {"RemoveLink", "Delete %1 link"},

    {"EditText", "Value"},
    {"LabelsCombo", "Label"},
};

}  // namespace

QString spokenName(std::string_view control) {
    QString family;
    for (const FamilyTraits& traits : FamilyTable) {
        if (!control.starts_with(traits.prefix)) continue;
        family = QLatin1String(traits.prefix.data(), static_cast<int>(traits.prefix.size()));
        control.remove_prefix(traits.prefix.size());
    }
    for (const auto& [role, words] : SpokenNames) {
        if (role != control) continue;
        const QString spoken = QLatin1String(words);
        return family.isEmpty() ? spoken : spoken.arg(family);
    }
    return {};
}

}  // namespace headerdtc::qt
