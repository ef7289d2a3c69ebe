#include "qt/editor/page/undo_history.h"

#include <utility>

namespace headerdtc::qt {

void UndoHistory::push(PageContentPtr next, Step step) {
    states_.resize(index_ + 1);
    steps_.resize(index_);
    if (open_ && !step.kind.isEmpty() && undoStep() && undoStep()->kind == step.kind) {
        states_.back() = std::move(next);
        steps_.back() = std::move(step);
        return;
    }
    states_.push_back(std::move(next));
    steps_.push_back(std::move(step));
    ++index_;
    open_ = true;
    dropOldest();
}

void UndoHistory::replaceCurrent(PageContentPtr content) {
    states_[index_] = std::move(content);
    seal();
}

void UndoHistory::undo() {
    --index_;
    seal();
}

void UndoHistory::redo() {
    ++index_;
    seal();
}

void UndoHistory::dropOldest() {
    std::size_t bytes = 0;
    std::size_t kept = 0;
    while (kept < states_.size()) {
        bytes += states_[states_.size() - 1 - kept]->bytes().size();
        if (bytes > MostBytes && kept >= 2) break;
        ++kept;
    }
    const auto dropped = static_cast<std::ptrdiff_t>(states_.size() - kept);
    states_.erase(states_.begin(), states_.begin() + dropped);
    steps_.erase(steps_.begin(), steps_.begin() + dropped);
    index_ -= static_cast<std::size_t>(dropped);
}

}  // namespace headerdtc::qt
