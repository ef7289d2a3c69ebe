#pragma once

#include <QWidget>
#include <memory>

namespace Ui {
class StartPage;
}

namespace headerdtc::qt {

class RecentFiles;

// What is shown while no page is open: where to begin.
class StartPage : public QWidget {
    Q_OBJECT

  public:
    explicit StartPage(RecentFiles& recent, QWidget* parent = nullptr);
    ~StartPage() override;

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
    std::unique_ptr<Ui::StartPage> ui_;
};

}  // namespace headerdtc::qt
