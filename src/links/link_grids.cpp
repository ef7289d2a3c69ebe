#include "core/handler.h"
#include "links/links.h"
#include "platform/error_trap.h"

#include <string>
#include <string_view>
#include <vector>

namespace headerdtc {
namespace {

// One in-place editor of one family.
struct LinkEditor {
    Family family;
    ComboBox FamilyControls::*combo;
    int column;
    std::string_view property;  // without the family's prefix
    // Completing an edit first moves the "*" to the grid's row.
    bool movesAsterisk;
    // Does not write into a row that is no longer there; the others fail then.
    bool testsRow;
};

using F = FamilyControls;

// The width of a scroll bar, in twips.
constexpr int ScrollBarWidth = 255;

// clang-format off
constexpr LinkEditor EaiFrom {Family::EAI,  &F::FromLinkFieldsCombo, links_column::From, "LinkFromFields", true,  true};
constexpr LinkEditor EaiTo   {Family::EAI,  &F::ToLinkFieldsCombo,   links_column::To,   "LinkToFields",   true,  false};
constexpr LinkEditor ZekoFrom{Family::ZEKO, &F::FromLinkFieldsCombo, links_column::From, "LinkFromFields", false, true};
constexpr LinkEditor ZekoTo  {Family::ZEKO, &F::ToLinkFieldsCombo,   links_column::To,   "LinkToFields",   true,  false};

constexpr const LinkEditor* Editors[] = {&EaiFrom, &EaiTo, &ZekoFrom, &ZekoTo};

// What completes an edit, and the name under which a failure is reported: for some the handler of
// another control.
enum class Trigger { Click, KeyPress, LostFocus };
struct Completion {
    const LinkEditor& editor;
    Trigger trigger;
    const char* reportedAs;
};
constexpr Completion Completions[] = {
    {EaiFrom,  Trigger::Click,     "EAIFromLinkFieldsCombo_LostFocus"},
    {EaiFrom,  Trigger::LostFocus, "EAIFromLinkFieldsCombo_LostFocus"},
    {EaiTo,    Trigger::Click,     "EAIToLinkFieldsCombo_Click"},
    {EaiTo,    Trigger::KeyPress,  "EAIToLinkFieldsCombo_LostFocus"},
    {EaiTo,    Trigger::LostFocus, "EAIToLinkFieldsCombo_LostFocus"},
    {ZekoFrom, Trigger::LostFocus, "ZEKOFromLinkFieldsCombo_LostFocus"},
    {ZekoTo,   Trigger::Click,     "ZEKOToLinkFieldsCombo_Click"},
    {ZekoTo,   Trigger::LostFocus, "ZEKOToLinkFieldsCombo_LostFocus"},
};
// clang-format on

const LinkEditor* editorOf(Family family, int column) {
    for (const LinkEditor* editor : Editors) {
        if (editor->family == family && editor->column == column) return editor;
    }
    return nullptr;
}

std::string rowCountOf(const FamilyControls& family) {
    return "NrOfLinked" + std::string(family.traits.prefix) + "Fields";
}

// The texts of a column from the first link on, without the empty ones at its end, which nobody can
// tell from rows that are not there.
std::vector<std::string> linkTexts(const Grid& grid, int column) {
    std::vector<std::string> texts;
    for (int row = grid.FixedRows(); row < grid.Rows(); ++row)
        texts.push_back(grid.TextMatrix(row, column));
    while (!texts.empty() && texts.back().empty())
        texts.pop_back();
    return texts;
}

// The links grid of each link tab: pairs of a field of the query's own provider (From) and a key
// field of the linked provider (To). A combo box laid over a cell edits it; what it shows goes
// into the row held as the previous one of the grid's tracker, which is the edited row.
class LinkGrids {
  public:
    explicit LinkGrids(HeaderDTC& dtc);

    // Moves the "*" to the grid's current row.
    void MoveLinksAsterisk(Family family);
    // Opens the editor of the grid's current column over the current cell. Enter (13) as the key
    // selects the cell's text in it; when that is none of its items, it shows what it showed
    // before.
    void LinksGridEdit(Family family, int key);

  private:
    void subscribeGrid(FamilyControls& family);
    void subscribeEditors();
    void enterCell(FamilyControls& family);
    void addLink(FamilyControls& family, ChangedProperties& changed);
    void removeLink(FamilyControls& family, ChangedProperties& changed);
    void completeEdit(const LinkEditor& editor, ChangedProperties& changed);

    HeaderDTC& dtc_;
    Subscriptions subscriptions_;
};

LinkGrids::LinkGrids(HeaderDTC& dtc) : dtc_(dtc) {
    for (const Family which : BothFamilies)
        subscribeGrid(dtc_.family(which));
    subscribeEditors();
}

void LinkGrids::subscribeGrid(FamilyControls& family) {
    Grid& grid = family.LinksGrid;
    const Family which = family.family;
    // Two of these handlers report under another handler's name, in both families.
    subscriptions_ += grid.EnterCell.subscribe([this, &family] {
        runHandler(dtc_, "EAILinksGrid_EnterCell", [&](ChangedProperties&) { enterCell(family); });
    });
    const auto add = handlersOf(dtc_, family, this, subscriptions_);
    add(family.RemoveLink.Click, "RemoveCriteriumCommand_Click", &LinkGrids::removeLink);
    add(family.AddLink.Click, "AddLink_Click", &LinkGrids::addLink);
    subscriptions_ += grid.GotFocus.subscribe([this, which] { MoveLinksAsterisk(which); });
    subscriptions_ +=
        grid.Click.subscribe([this, which] { LinksGridEdit(which, key_code::Enter); });
    subscriptions_ +=
        grid.KeyPress.subscribe([this, which](int key) { LinksGridEdit(which, key); });
}

void LinkGrids::subscribeEditors() {
    for (const Completion& completion : Completions) {
        ComboBox& combo = dtc_.family(completion.editor.family).*completion.editor.combo;
        const auto complete = [this, &completion] {
            runHandler(dtc_, completion.reportedAs, [&](ChangedProperties& changed) {
                completeEdit(completion.editor, changed);
            });
        };
        switch (completion.trigger) {
            case Trigger::Click:
                subscriptions_ += combo.Click.subscribe(complete);
                break;
            case Trigger::KeyPress:
                subscriptions_ += combo.KeyPress.subscribe([complete](int&) { complete(); });
                break;
            case Trigger::LostFocus:
                subscriptions_ += combo.LostFocus.subscribe(complete);
                break;
        }
    }
}

void LinkGrids::MoveLinksAsterisk(Family which) {
    trapErrors(dtc_.surroundings.messages, "MoveLinksAsterisk", [&] {
        FamilyControls& family = dtc_.family(which);
        moveAsterisk(family.LinksGrid, family.linkRows, family.LinksGrid.Row());
    });
}

void LinkGrids::LinksGridEdit(Family which, int key) {
    trapErrors(dtc_.surroundings.messages, "LinksGridEdit", [&] {
        FamilyControls& family = dtc_.family(which);
        Grid& grid = family.LinksGrid;
        const LinkEditor* editor = editorOf(which, grid.Col());
        if (!editor) return;
        // However the cell was entered, its row is the previous one from here on: the row that
        // the edit will be written into.
        MoveLinksAsterisk(which);
        ComboBox& combo = family.*editor->combo;
        if (key == key_code::Enter) {
            // Each selection clicks the combo and so completes an edit: it writes what the cell
            // has already, before the editor shows.
            selectEqualItems(combo, std::string(grid.Text()));
        }
        layOverCell(combo, grid);
    });
}

// An editor that is still open over the cell left behind is closed while its row is the marked
// one, so that moving the "*" first, as most editors do, leaves that row as the previous one.
void LinkGrids::enterCell(FamilyControls& family) {
    for (const LinkEditor* editor : Editors) {
        if (editor->family != family.family) continue;
        ComboBox& combo = family.*editor->combo;
        if (combo.hasFocus()) combo.Visible(false);
    }
    MoveLinksAsterisk(family.family);
}

void LinkGrids::addLink(FamilyControls& family, ChangedProperties& changed) {
    Grid& grid = family.LinksGrid;
    ScrollBarRoom room(grid, links_column::To, ScrollBarWidth);
    grid.Rows(grid.Rows() + 1);
    changed.add(rowCountOf(family));
    grid.Row(grid.Rows() - 1);
    room.adjust();
    MoveLinksAsterisk(family.family);
}

// The marked row goes, which need not be the grid's current one. The last link is emptied only.
void LinkGrids::removeLink(FamilyControls& family, ChangedProperties& changed) {
    Grid& grid = family.LinksGrid;
    ScrollBarRoom room(grid, links_column::To, ScrollBarWidth);
    if (grid.Rows() > grid.FixedRows() + 1) {
        const auto from = linkTexts(grid, links_column::From);
        const auto to = linkTexts(grid, links_column::To);
        grid.RemoveItem(family.linkRows.current);
        changed.add(rowCountOf(family));
        if (linkTexts(grid, links_column::From) != from)
            changed.add(familyName(family.family, "LinkFromFields"));
        if (linkTexts(grid, links_column::To) != to)
            changed.add(familyName(family.family, "LinkToFields"));
    } else {
        noteDiscardedLinks(family, changed);
        grid.Clear();
        writeLinksHeaders(grid);
    }
    room.adjust();
    MoveLinksAsterisk(family.family);
}

void LinkGrids::completeEdit(const LinkEditor& editor, ChangedProperties& changed) {
    FamilyControls& family = dtc_.family(editor.family);
    Grid& grid = family.LinksGrid;
    ComboBox& combo = family.*editor.combo;
    if (editor.movesAsterisk) MoveLinksAsterisk(editor.family);
    const int row = family.linkRows.previous < 0 ? grid.Row() : family.linkRows.previous;
    if (!editor.testsRow || row <= grid.Rows() - 1) {
        const long cell = dtc_.LinksGridIndex(row, editor.column);
        if (grid.TextArray(cell) != combo.Text()) {
            changed.add(familyName(editor.family, editor.property));
            grid.TextArray(cell, combo.Text());
        }
    }
    combo.Visible(false);
}

}  // namespace

void noteDiscardedLinks(const FamilyControls& family, ChangedProperties& changed) {
    const Grid& grid = family.LinksGrid;
    for (int row = grid.FixedRows(); row < grid.Rows(); ++row) {
        if (!grid.TextMatrix(row, links_column::From).empty())
            changed.add(familyName(family.family, "LinkFromFields"));
        if (!grid.TextMatrix(row, links_column::To).empty())
            changed.add(familyName(family.family, "LinkToFields"));
    }
}

Behaviour editLinks(HeaderDTC& dtc) {
    return std::make_shared<LinkGrids>(dtc);
}

}  // namespace headerdtc
