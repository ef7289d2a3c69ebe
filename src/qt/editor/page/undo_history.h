#pragma once

#include "qt/editor/base/page_content.h"

#include <QString>
#include <cstddef>
#include <vector>

namespace headerdtc::qt {

// One thing that the author did to a page.
struct Step {
    QString name;  // "ZEKO return fields", as "Undo" is followed by it
    // Consecutive steps of one kind are joined, as the letters of a word are; empty: never.
    QString kind = {};
    // The control that was changed; empty for the source around the controls.
    std::string control = {};
};

// The states of a page and the steps between them. States are whole pages, not differences, so that
// a step back always leads to exactly what was there.
class UndoHistory {
  public:
    explicit UndoHistory(PageContentPtr start) { states_.push_back(std::move(start)); }

    const PageContentPtr& current() const { return states_[index_]; }
    // The page as it is after one more step. Whatever was undone is forgotten.
    void push(PageContentPtr next, Step step);
    // The next step is not joined with the last one.
    void seal() { open_ = false; }
    // The page has changed without a step: a save has renewed its runtime text.
    void replaceCurrent(PageContentPtr content);

    // The steps that can be undone and redone; nullptr for none.
    const Step* undoStep() const { return index_ > 0 ? &steps_[index_ - 1] : nullptr; }
    const Step* redoStep() const { return index_ < steps_.size() ? &steps_[index_] : nullptr; }
    // One step back or forward, which must be there.
    void undo();
    void redo();

    // States are dropped, oldest first, beyond this many bytes.
    static constexpr std::size_t MostBytes = std::size_t{64} << 20U;

  private:
    void dropOldest();

    std::vector<PageContentPtr> states_;  // one more than steps
    std::vector<Step> steps_;
    std::size_t index_ = 0;
    bool open_ = false;
};

}  // namespace headerdtc::qt
