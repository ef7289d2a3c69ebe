#include "qt/editor/recovery/recovery_keeper.h"

#include "qt/editor/page/control_pane.h"
#include "qt/editor/page/page_editor.h"

#include <utility>

namespace headerdtc::qt {
namespace {

constexpr int KeepMilliseconds = 2000;

}  // namespace

RecoveryKeeper::RecoveryKeeper(RecoveryStore& store, Editors editors, QObject* parent)
    : QObject(parent), store_(store), editors_(std::move(editors)) {
    timer_.setInterval(KeepMilliseconds);
    connect(&timer_, &QTimer::timeout, this, &RecoveryKeeper::keepAll);
    timer_.start();
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
        if (kept.content == page.content()) continue;
        kept.content = page.content();
        store_.keep(kept.key, {.page = page.file(),
                               .hasFile = page.hasFile(),
                               .stamp = page.stamp(),
                               .bytes = page.content()->bytes(),
                               .when = QDateTime::currentDateTimeUtc(),
                               .copy = {}});
    }
}

void RecoveryKeeper::forget(PageEditor* editor) {
    const auto kept = kept_.find(editor);
    if (kept == kept_.end()) return;
    store_.forget(kept->second.key);
    kept_.erase(kept);
}

}  // namespace headerdtc::qt
