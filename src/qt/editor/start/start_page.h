#pragma once

#include <QWidget>

class QLabel;
class QVBoxLayout;

namespace headerdtc::qt {

class RecentFiles;

// What is shown while no page is open: where to begin.
class StartPage : public QWidget {
    Q_OBJECT

  public:
    explicit StartPage(RecentFiles& recent, QWidget* parent = nullptr);

  Q_SIGNALS:
    void demoRequested();
    void newRequested();
    void openRequested();
    void siteRequested();
    void guideRequested();
    void pageRequested(const QString& file);

  private:
    void showRecent();

    RecentFiles& recent_;
    QWidget* recentBox_;
    QVBoxLayout* recentList_;
};

}  // namespace headerdtc::qt
