#pragma once

#include "platform/dictionary.h"

#include <string>

namespace headerdtc {

// What is to become of a field value's translation on "OK".
enum class LedgerState : int {
    Unchanged = 0,  // loaded from the store
    Added = 1,      // added in this dialog
    Changed = 2,    // loaded, then its label changed, or deleted and entered again
    Deleted = 3,    // loaded, then deleted or replaced by another value in its cell
};

// The change ledger of the field-value dialog: value text -> state, in the order of adding.
class ChangeLedger {
  public:
    bool holds(const std::string& value) const { return entries_.Exists(value); }
    // The state of a value that the ledger holds.
    LedgerState state(const std::string& value) { return entries_.item(value); }
    void set(const std::string& value, LedgerState state) { entries_.assign(value, state); }
    // The value leaves the grid: one added here leaves no trace, any other is to be deleted.
    void drop(const std::string& value) {
        if (!holds(value)) return;
        if (state(value) == LedgerState::Added) {
            entries_.Remove(value);
        } else {
            set(value, LedgerState::Deleted);
        }
    }
    // The value got another label.
    void relabel(const std::string& value) {
        const bool added = holds(value) && state(value) == LedgerState::Added;
        set(value, added ? LedgerState::Added : LedgerState::Changed);
    }
    auto begin() const { return entries_.begin(); }
    auto end() const { return entries_.end(); }

  private:
    Dictionary<LedgerState> entries_;
};

}  // namespace headerdtc
