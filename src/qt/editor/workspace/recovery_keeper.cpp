#include "qt/editor/workspace/recovery_keeper.h"

#include "qt/editor/page/control_pane.h"
#include "qt/editor/workspace/page_editor.h"

#include <utility>

namespace headerdtc::qt {
namespace {

// A change reaches the page a moment after the control has made it, and writing takes time too:
// with both, the copy is on disk within a second.
constexpr int KeepMilliseconds = 700;

}  // namespace

RecoveryKeeper::RecoveryKeeper(RecoveryStore& store, Editors editors, QObject* parent)
    : QObject(parent), store_(store), editors_(std::move(editors)) {
    timer_.setSingleShot(true);
    timer_.setInterval(KeepMilliseconds);
    connect(&timer_, &QTimer::timeout, this, &RecoveryKeeper::keepAll);
}

// Further changes do not delay the copy.
void RecoveryKeeper::keepSoon() {
    if (!timer_.isActive()) timer_.start();
}

void RecoveryKeeper::keepAll() {
    for (PageEditor* editor : editors_()) {
        editor->controls().takeChanges();
        EditedPage& page = editor->page();
        if (!page.isModified()) {
            forget(editor);
            continue;
        }
        Kept& kept = kept_[editor];
        if (kept.key.isEmpty()) kept.key = QString::number(++keys_);
        if (kept.content == page.content() && kept.saved == page.saved()) continue;
        kept.content = page.content();
        kept.saved = page.saved();
        store_.keep(kept.key, {.page = page.file(),
                               .hasFile = page.hasFile(),
                               .base = page.hasFile() ? page.saved()->bytes() : std::string(),
                               .bytes = page.content()->bytes(),
                               .when = QDateTime::currentDateTimeUtc(),
                               .copy = {}});
    }
}

bool RecoveryKeeper::keepSafely(PageEditor* editor) {
    keepAll();
    store_.flush();
    const auto kept = kept_.find(editor);
    return kept == kept_.end() || store_.holds(kept->second.key);
}

void RecoveryKeeper::forget(PageEditor* editor) {
    const auto kept = kept_.find(editor);
    if (kept == kept_.end()) return;
    store_.forget(kept->second.key);
    kept_.erase(kept);
}

}  // namespace headerdtc::qt
