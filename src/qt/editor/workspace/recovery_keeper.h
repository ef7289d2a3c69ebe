#pragma once

#include "qt/editor/base/page_content.h"
#include "qt/editor/workspace/recovery_store.h"

#include <QObject>
#include <QTimer>
#include <functional>
#include <map>
#include <vector>

namespace headerdtc::qt {

class PageEditor;

// Keeps copies of the open pages that have changes, each at most a second after a change.
class RecoveryKeeper : public QObject {
    Q_OBJECT

  public:
    using Editors = std::function<std::vector<PageEditor*>()>;

    RecoveryKeeper(RecoveryStore& store, Editors editors, QObject* parent = nullptr);

    // To be called when a page may have changed.
    void keepSoon();
    // Keeps copies of all changed pages now.
    void keepAll();
    // The same, and waits. Tells whether a page's changes are on disk now, as far as it has any.
    bool keepSafely(PageEditor* editor);
    void forget(PageEditor* editor);

  private:
    RecoveryStore& store_;
    Editors editors_;
    QTimer timer_;
    struct Kept {
        QString key;
        PageContentPtr saved, content;
    };
    std::map<PageEditor*, Kept> kept_;
    int keys_ = 0;
};

}  // namespace headerdtc::qt
