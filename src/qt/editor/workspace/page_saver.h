#pragma once

#include <QObject>

class QWidget;

namespace headerdtc::qt {

class PageEditor;

// Saving with all that a person may have to be asked: a name, what to do about a page that somebody
// else has changed, whether to save although something would be lost.
class PageSaver : public QObject {
    Q_OBJECT

  public:
    explicit PageSaver(QWidget& window) : QObject(), window_(window) {}

    // Each tells whether the page is saved now.
    bool save(PageEditor& editor);
    bool saveAs(PageEditor& editor);
    // Asks whose content is kept, when somebody else has written the file; tells whether the
    // author's may be saved.
    bool resolveChangeOnDisk(PageEditor& editor);

  Q_SIGNALS:
    void saved(headerdtc::qt::PageEditor* editor);

  private:
    template <class Save>
    bool guarded(PageEditor& editor, Save save);

    QWidget& window_;
};

// What of a page is not saved, part by part, for the question whether to.
QString unsavedChanges(PageEditor& editor);

}  // namespace headerdtc::qt
