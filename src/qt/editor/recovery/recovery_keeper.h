#pragma once

#include "qt/editor/page/page_content.h"
#include "qt/editor/recovery/recovery_store.h"

#include <QObject>
#include <QTimer>
#include <functional>
#include <map>
#include <vector>

namespace headerdtc::qt {

class PageEditor;

// Keeps copies of the open pages that have changes, every few seconds.
class RecoveryKeeper : public QObject {
    Q_OBJECT

  public:
    using Editors = std::function<std::vector<PageEditor*>()>;

    RecoveryKeeper(RecoveryStore& store, Editors editors, QObject* parent = nullptr);

    // Looks now; called by a timer.
    void keepAll();
    void forget(PageEditor* editor);

  private:
    RecoveryStore& store_;
    Editors editors_;
    QTimer timer_;
    struct Kept {
        QString key;
        PageContentPtr content;
    };
    std::map<PageEditor*, Kept> kept_;
    int keys_ = 0;
};

}  // namespace headerdtc::qt
