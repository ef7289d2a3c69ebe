#include "core/field_entries.h"
#include "core/handler.h"
#include "links/links.h"
#include "platform/error_trap.h"
#include "platform/surroundings.h"

namespace headerdtc {
namespace {

constexpr const char* LinkedDataProviderProperty = "LinkedDataProvider";
// Without the family's prefix.
constexpr std::string_view AvailableFieldsLinked = "AvailableFieldsLinked";
constexpr std::string_view ToLinkKeyFields = "ToLinkKeyFields";

// The lists of a link tab hold fields of the linked provider; they are emptied when another is
// chosen.
void clearLinkLists(FamilyControls& family, ChangedProperties& changed) {
    const auto clear = [&](auto& list, std::string_view property) {
        if (list.ListCount() > 0) changed.add(familyName(family.family, property));
        list.Clear();
    };
    clear(family.LinkedFieldsList, AvailableFieldsLinked);
    clear(family.SelectedLinkedFieldsList, "SelectedLinkedFields");
    clear(family.ToLinkFieldsCombo, ToLinkKeyFields);
}

// The linked data provider, one for both link tabs: choosing it on either tab, showing what it
// offers on both, and deleting the whole link.
class LinkedProvider {
  public:
    // Fills in the control's PrepareLinkTab.
    explicit LinkedProvider(HeaderDTC& dtc);

    // A link tab is entered: its combo takes over a provider that was chosen on the other tab.
    // Reports as "PrepareZEKOLinkTab" or "PrepareEAILinkTab".
    void prepare(Family family);

  private:
    void LinkedDataProvidersCombo_Click(FamilyControls& family, ChangedProperties& changed);
    void deleteLink(FamilyControls& family, ChangedProperties& changed);
    void updateLinkTab(Family family, ChangedProperties& changed);

    HeaderDTC& dtc_;
    Subscriptions subscriptions_;
};

LinkedProvider::LinkedProvider(HeaderDTC& dtc) : dtc_(dtc) {
    dtc_.procedures.PrepareLinkTab = [this](Family family) { prepare(family); };

    // The twins differ: only the EAI combo keeps still during a deletion, and only its handler has
    // an error trap.
    subscriptions_ += dtc_.EAI.LinkedDataProvidersCombo.Click.subscribe([this] {
        runHandler(dtc_, "EAILinkedDataProvidersCombo_Click", [&](ChangedProperties& changed) {
            if (!dtc_.deletingLink) LinkedDataProvidersCombo_Click(dtc_.EAI, changed);
        });
    });
    subscriptions_ += dtc_.ZEKO.LinkedDataProvidersCombo.Click.subscribe([this] {
        ChangedProperties changed;
        LinkedDataProvidersCombo_Click(dtc_.ZEKO, changed);
        for (const std::string& property : changed.names())
            dtc_.PropertyChanged(property);
    });
    for (const Family which : BothFamilies) {
        FamilyControls& family = dtc_.family(which);
        handlersOf(dtc_, family, this, subscriptions_)(
            family.DeleteLinkCommand.Click, "DeleteLinkCommand_Click", &LinkedProvider::deleteLink);
    }
}

void LinkedProvider::prepare(Family which) {
    FamilyControls& family = dtc_.family(which);
    const std::string name = "Prepare" + std::string(family.traits.prefix) + "LinkTab";
    runHandler(dtc_, name, [&](ChangedProperties& changed) {
        ComboBox& combo = family.LinkedDataProvidersCombo;
        if (combo.Text() == dtc_.linkedDataProvider) return;
        selectEqualItems(combo, dtc_.linkedDataProvider);
        updateLinkTab(which, changed);
    });
}

void LinkedProvider::LinkedDataProvidersCombo_Click(FamilyControls& family,
                                                    ChangedProperties& changed) {
    const ComboBox& combo = family.LinkedDataProvidersCombo;
    if (combo.Text() == dtc_.linkedDataProvider) return;
    const bool byAuthor = isInAuthorsHands(combo);
    ChangedProperties found;
    found.add(LinkedDataProviderProperty);
    dtc_.linkedDataProvider = combo.Text();
    updateLinkTab(family.family, found);
    updateLinkTab(otherFamily(family.family), found);
    if (byAuthor) changed = std::move(found);
}

// What the lists showed is of the provider before, so it goes first: a source that fails leaves
// them empty.
void LinkedProvider::updateLinkTab(Family which, ChangedProperties& changed) {
    FamilyControls& family = dtc_.family(which);
    const std::string name = "Update" + std::string(family.traits.prefix) + "LinkTab";
    trapErrors(dtc_.surroundings.messages, name, [&] {
        const std::string& provider = dtc_.linkedDataProvider;
        if (provider.empty()) return;
        clearLinkLists(family, changed);
        const auto source = dtc_.surroundings.dataSources.createDataSource();
        for (const std::string& field : fieldEntries(which, *source, provider)) {
            family.LinkedFieldsList.AddItem(field);
            changed.add(familyName(which, AvailableFieldsLinked));
        }
        for (const std::string& field : keyFieldNames(which, *source, provider)) {
            family.ToLinkFieldsCombo.AddItem(field);
            changed.add(familyName(which, ToLinkKeyFields));
        }
        refreshFieldButtons(family.LinkedFieldsList, family.SelectedLinkedFieldsList,
                            family.AddLinkedField, family.RemoveLinkedField);
    });
}

// The provider is shared, so each tab's deletion runs the other tab's first, which finds the flag
// set and does not call back. The inner one already takes the flag down.
void LinkedProvider::deleteLink(FamilyControls& family, ChangedProperties& changed) {
    if (!dtc_.deletingLink) {
        dtc_.deletingLink = true;
        FamilyControls& other = dtc_.family(otherFamily(family.family));
        trapErrors(dtc_.surroundings.messages, familyName(other.family, "DeleteLinkCommand_Click"),
                   [&] { deleteLink(other, changed); });
    }
    if (!dtc_.linkedDataProvider.empty()) changed.add(LinkedDataProviderProperty);
    noteDiscardedLinks(family, changed);
    dtc_.linkedDataProvider.clear();
    clearLinkLists(family, changed);
    family.LinksGrid.Clear();
    family.LinkedDataProvidersCombo.ListIndex(-1);
    dtc_.deletingLink = false;
}

}  // namespace

Behaviour chooseLinkedProvider(HeaderDTC& dtc) {
    return std::make_shared<LinkedProvider>(dtc);
}

}  // namespace headerdtc
