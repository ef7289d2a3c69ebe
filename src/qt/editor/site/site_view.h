#pragma once

#include "qt/editor/base/message.h"
#include "qt/editor/site/site_model.h"
#include "qt/editor/site/site_run.h"

#include <QSortFilterProxyModel>
#include <QWidget>
#include <memory>

namespace Ui {
class SiteView;
}

namespace headerdtc::qt {

// The tree's rows that a person asked for: by name, and by what a check found.
class SiteFilter : public QSortFilterProxyModel {
    Q_OBJECT

  public:
    enum Show { AllPages, WithControl, NeedingWork };
    using QSortFilterProxyModel::QSortFilterProxyModel;
    void setShow(Show show);

  protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

  private:
    Show show_ = AllPages;
};

// The web project: its pages, which of them hold a control, which are out of date, and the run that
// generates them all.
class SiteView : public QWidget {
    Q_OBJECT

  public:
    explicit SiteView(Sites& sites, QWidget* parent = nullptr);
    ~SiteView() override;

    // Shows the pages below a folder and checks them.
    void openFolder(const std::filesystem::path& folder);
    const std::filesystem::path& folder() const { return folder_; }
    SiteModel& model() { return *model_; }
    SiteRun& run() { return *run_; }

    void checkAll();
    // Generates every page of the folder, from its file: open pages are saved before.
    void generateAll();
    // Checks one page of the folder again.
    void recheck(const std::filesystem::path& page);

  Q_SIGNALS:
    void pageActivated(const QString& file);
    void folderRequested();
    // The messages of a page in the last run, in place of those it had before.
    void pageMessages(const std::filesystem::path& page,
                      const std::vector<headerdtc::qt::Message>& messages);
    void runFinished();

  private:
    void connectRun();
    void start(SiteRun::Mode mode);
    void recheckWaiting();
    void takeResults(const std::vector<PageResult>& results);
    void showState();
    void fitStates();
    void expand();
    void finish(bool cancelled);

    Sites& sites_;
    std::filesystem::path folder_;
    std::unique_ptr<Ui::SiteView> ui_;
    SiteModel* model_;
    SiteFilter* filter_;
    SiteRun* run_;
    std::vector<std::filesystem::path> waiting_;  // to be checked again after the run
    int written_ = 0;
};

}  // namespace headerdtc::qt
