#include "core/handler.h"
#include "links/links.h"

namespace headerdtc {
namespace {

// What differs between the families when the selected fields are added.
struct AddTraits {
    Family family;
    // Nothing selected: nothing happens. Otherwise the selection still moves.
    bool needsSelection;
    // Which item of the shortened list is selected afterwards: the one at the place of the last
    // field that was added, or of the one that had the focus, added or not.
    enum class Remembers { LastAdded, Focused } remembers;
};

constexpr AddTraits AddTable[] = {
    {Family::EAI, false, AddTraits::Remembers::Focused},
    {Family::ZEKO, true, AddTraits::Remembers::LastAdded},
};

const AddTraits& addTraitsOf(Family family) {
    return AddTable[family == Family::EAI ? 0 : 1];
}

std::string selectedFieldsOf(const FamilyControls& family) {
    return familyName(family.family, "SelectedLinkedFields");
}

// Fields go from one list to the other.
void noteBothLists(const FamilyControls& family, ChangedProperties& changed) {
    changed.add(selectedFieldsOf(family));
    changed.add(familyName(family.family, "AvailableFieldsLinked"));
}

void refreshButtons(FamilyControls& family) {
    refreshFieldButtons(family.LinkedFieldsList, family.SelectedLinkedFieldsList,
                        family.AddLinkedField, family.RemoveLinkedField);
}

// Choosing the fields of the linked provider that the page returns: moving them between the
// available and the selected list of each link tab, and ordering the selected ones.
class LinkedFields {
  public:
    explicit LinkedFields(HeaderDTC& dtc);

  private:
    void AddLinkedField_Click(FamilyControls& family, ChangedProperties& changed);
    void LinkedFieldsList_DblClick(FamilyControls& family, ChangedProperties& changed);
    void RemoveLinkedField_Click(FamilyControls& family, ChangedProperties& changed);
    void MoveUpLinkedField_Click(FamilyControls& family, ChangedProperties& changed);
    void MoveDownLinkedField_Click(FamilyControls& family, ChangedProperties& changed);

    Subscriptions subscriptions_;
};

LinkedFields::LinkedFields(HeaderDTC& dtc) {
    for (const Family which : BothFamilies) {
        FamilyControls& family = dtc.family(which);
        const auto add = handlersOf(dtc, family, this, subscriptions_);
        add(family.AddLinkedField.Click, "AddLinkedField_Click",
            &LinkedFields::AddLinkedField_Click);
        add(family.LinkedFieldsList.DblClick, "LinkedFieldsList_DblClick",
            &LinkedFields::LinkedFieldsList_DblClick);
        add(family.RemoveLinkedField.Click, "RemoveLinkedField_Click",
            &LinkedFields::RemoveLinkedField_Click);
        // Both families report under the name that only the ZEKO buttons have.
        add(family.MoveUpLinkedField.Click, "MoveUpLinkdFieldCommand_Click",
            &LinkedFields::MoveUpLinkedField_Click);
        add(family.MoveDownLinkedField.Click, "MoveDownLinkdFieldCommand_Click",
            &LinkedFields::MoveDownLinkedField_Click);
    }
}

void LinkedFields::AddLinkedField_Click(FamilyControls& family, ChangedProperties& changed) {
    const AddTraits& traits = addTraitsOf(family.family);
    ListBox& available = family.LinkedFieldsList;
    ListBox& selected = family.SelectedLinkedFieldsList;
    if (traits.needsSelection && available.SelCount() < 1) return;
    if (available.SelCount() > 0) noteBothLists(family, changed);

    const int focused = available.ListIndex();
    int lastAdded = 0;
    for (int i = 0; i < available.ListCount(); ++i) {
        if (!available.Selected(i)) continue;
        selected.AddItem(available.List(i));
        lastAdded = i;
    }
    removeSelected(available);
    selectAfterRemoval(available,
                       traits.remembers == AddTraits::Remembers::Focused ? focused : lastAdded);
    refreshButtons(family);
}

void LinkedFields::LinkedFieldsList_DblClick(FamilyControls& family, ChangedProperties& changed) {
    ListBox& available = family.LinkedFieldsList;
    if (const int index = available.ListIndex(); index >= 0) {
        noteBothLists(family, changed);
        family.SelectedLinkedFieldsList.AddItem(available.Text());
        available.RemoveItem(index);
        selectAfterRemoval(available, index);
    }
    refreshButtons(family);
}

void LinkedFields::RemoveLinkedField_Click(FamilyControls& family, ChangedProperties& changed) {
    ListBox& available = family.LinkedFieldsList;
    ListBox& selected = family.SelectedLinkedFieldsList;
    if (selected.SelCount() >= 1) {
        noteBothLists(family, changed);
        int lowestRemoved = 0;
        for (int i = selected.ListCount() - 1; i >= 0; --i) {
            if (!selected.Selected(i)) continue;
            available.AddItem(selected.List(i));
            selected.RemoveItem(i);
            lowestRemoved = i;
        }
        selectAfterRemoval(selected, lowestRemoved);
    }
    refreshButtons(family);
}

void LinkedFields::MoveUpLinkedField_Click(FamilyControls& family, ChangedProperties& changed) {
    if (moveItemUp(family.SelectedLinkedFieldsList)) changed.add(selectedFieldsOf(family));
}

void LinkedFields::MoveDownLinkedField_Click(FamilyControls& family, ChangedProperties& changed) {
    if (moveItemDown(family.SelectedLinkedFieldsList)) changed.add(selectedFieldsOf(family));
}

}  // namespace

Behaviour chooseLinkedFields(HeaderDTC& dtc) {
    return std::make_shared<LinkedFields>(dtc);
}

}  // namespace headerdtc
