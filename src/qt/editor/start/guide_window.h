#pragma once

#include <QList>
#include <QMainWindow>
#include <QUrl>

class QAction;
class QLineEdit;
class QTextBrowser;

namespace headerdtc::qt {

// The guide that comes with the program, and the pages that it leads to.
class GuideWindow : public QMainWindow {
    Q_OBJECT

  public:
    explicit GuideWindow(QWidget* parent = nullptr);

    // Shows a chapter ("guide.md#setting-up-a-site"); the beginning without one.
    void showGuide(const QUrl& chapter = {});
    // Follows a link of the guide; one that leads elsewhere opens in the browser.
    void follow(const QUrl& link);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void drawTables();
    void spaceHeadings();
    void fitPictures();
    void goTo(const QString& heading);
    bool read(const QUrl& link);
    void goBack();
    void find();

    struct Place {
        QUrl link;
        int scrolled;
    };

    QTextBrowser* text_;
    QLineEdit* search_;
    QAction* back_;
    QUrl shown_;
    QList<Place> before_;
};

// The chapter on a part of the window: the property "guideChapter" of the part, or else of what it
// lies in. Empty: there is none.
QUrl chapterOn(const QWidget* part);

// What this program is and what it stands on.
void showAbout(QWidget* window);

}  // namespace headerdtc::qt
