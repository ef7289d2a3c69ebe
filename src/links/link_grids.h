#pragma once

#include "core/handler.h"

#include <string_view>

namespace headerdtc {

// The links grid of each link tab: pairs of a field of the query's own provider (From) and a key
// field of the linked provider (To). A combo box laid over a cell edits it; what it shows goes
// into the row held as the previous one of the grid's tracker, which is the edited row.
class LinkGrids {
  public:
    explicit LinkGrids(HeaderDTC& dtc);
    LinkGrids(const LinkGrids&) = delete;
    LinkGrids& operator=(const LinkGrids&) = delete;

    // Moves the "*" to the grid's current row.
    void MoveLinksAsterisk(Family family);
    // Opens the editor of the grid's current column over the current cell. Enter (13) as the key
    // selects the cell's text in it; when that is none of its items, it shows what it showed
    // before.
    void LinksGridEdit(Family family, int key);

    // One in-place editor of one family, as the table in the source file describes it.
    struct Editor;

  private:
    void subscribeGrid(FamilyControls& family);
    void subscribeEditors();
    void enterCell(FamilyControls& family);
    void addLink(FamilyControls& family, ChangedProperties& changed);
    void removeLink(FamilyControls& family, ChangedProperties& changed);
    void completeEdit(const Editor& editor, ChangedProperties& changed);

    HeaderDTC& dtc_;
    Subscriptions subscriptions_;
};

// Notes what there is to lose in a links grid that is about to be emptied.
void noteDiscardedLinks(const FamilyControls& family, ChangedProperties& changed);

}  // namespace headerdtc
