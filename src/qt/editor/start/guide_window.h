#pragma once

#include <QMainWindow>

class QLineEdit;
class QTextBrowser;
class QUrl;

namespace headerdtc::qt {

// The guide that comes with the program, and the pages that it leads to.
class GuideWindow : public QMainWindow {
    Q_OBJECT

  public:
    explicit GuideWindow(QWidget* parent = nullptr);

    // Shows a heading of the guide ("setting-up-a-site"); the beginning without one.
    void showGuide(const QString& heading = {});
    // Follows a link of the guide; one that leads elsewhere opens in the browser.
    void follow(const QUrl& link);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void drawTables();
    void fitPictures();
    void goTo(const QString& heading);
    void find();

    QTextBrowser* text_;
    QLineEdit* search_;
};

// What this program is and what it stands on.
void showAbout(QWidget* window);

}  // namespace headerdtc::qt
