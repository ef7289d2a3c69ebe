#include "qt/editor/site/site_view.h"

#include "qt/editor/base/icons.h"
#include "qt/editor/base/words.h"
#include "ui_site_view.h"

#include <algorithm>
#include <utility>

namespace headerdtc::qt {
namespace {

using Verdict = GeneratedPage::Verdict;

// Sites with up to this many pages are shown fully expanded.
constexpr std::size_t MostExpanded = 200;

}  // namespace

void SiteFilter::setShow(Show show) {
    show_ = show;
    invalidateFilter();
}

bool SiteFilter::filterAcceptsRow(int row, const QModelIndex& parent) const {
    const QModelIndex index = sourceModel()->index(row, SiteModel::Name, parent);
    // A folder is shown when something in it is.
    if (index.data(SiteModel::PageRole).isNull()) return false;
    if (show_ == WithControl && !index.data(SiteModel::HasControlRole).toBool()) return false;
    if (show_ == NeedingWork && !index.data(SiteModel::NeedsWorkRole).toBool()) return false;
    return QSortFilterProxyModel::filterAcceptsRow(row, parent);
}

SiteView::SiteView(Sites& sites, QWidget* parent)
    : QWidget(parent), ui_(std::make_unique<Ui::SiteView>()) {
    ui_->setupUi(this);
    setIcons(*this);
    model_ = new SiteModel(this);
    filter_ = new SiteFilter(this);
    filter_->setSourceModel(model_);
    filter_->setRecursiveFilteringEnabled(true);
    filter_->setFilterCaseSensitivity(Qt::CaseInsensitive);
    run_ = new SiteRun(sites, this);
    QTreeView& tree = *ui_->SiteTree;
    tree.setModel(filter_);
    tree.setIndentation(fontMetrics().height());
    tree.header()->setSectionResizeMode(SiteModel::Name, QHeaderView::Stretch);
    // Measured once: to fit the contents all rows would be asked with each result that comes in.
    tree.header()->resizeSection(
        SiteModel::State,
        fontMetrics().horizontalAdvance(tr("out of date")) + 2 * fontMetrics().height());

    connect(ui_->OpenFolderButton, &QToolButton::clicked, this, &SiteView::folderRequested);
    connect(ui_->SiteSearch, &QLineEdit::textChanged, this, [this](const QString& text) {
        filter_->setFilterFixedString(text);
        ui_->SiteTree->expandAll();
    });
    connect(ui_->SiteShow, &QComboBox::currentIndexChanged, this, [this](int index) {
        filter_->setShow(static_cast<SiteFilter::Show>(index));
        ui_->SiteTree->expandAll();
    });
    connect(&tree, &QTreeView::activated, this, [this](const QModelIndex& index) {
        const QString page = index.data(SiteModel::PageRole).toString();
        if (!page.isEmpty()) Q_EMIT pageActivated(page);
    });
    connect(ui_->SiteCheckButton, &QPushButton::clicked, this, &SiteView::checkAll);
    connect(ui_->SiteGenerateButton, &QPushButton::clicked, this, &SiteView::generateRequested);
    connect(ui_->SiteStopButton, &QPushButton::clicked, run_, &SiteRun::cancel);
    connectRun();
    showState();
}

SiteView::~SiteView() = default;

void SiteView::connectRun() {
    connect(run_, &SiteRun::found, this,
            [this](const std::vector<std::filesystem::path>& pages, const QStringList& problems) {
                model_->setPages(folder_, pages);
                if (pages.size() <= MostExpanded) {
                    ui_->SiteTree->expandAll();
                } else {
                    ui_->SiteTree->expandToDepth(0);
                }
                std::vector<Message> messages;
                for (const QString& problem : problems)
                    messages.push_back({Message::Severity::Error, problem, folder_, {}});
                Q_EMIT pageMessages(folder_, messages);
            });
    connect(run_, &SiteRun::done, this, &SiteView::takeResults);
    connect(run_, &SiteRun::progressed, this, [this](int finished, int all) {
        ui_->SiteProgress->setRange(0, all);
        ui_->SiteProgress->setValue(finished);
    });
    connect(run_, &SiteRun::finished, this, &SiteView::finish);
}

void SiteView::openFolder(const std::filesystem::path& folder) {
    if (folder == folder_ || run_->isRunning()) return;
    folder_ = folder;
    ui_->SiteTitle->setText(toName(folder.filename()));
    ui_->SiteTitle->setToolTip(toName(folder));
    checkAll();
}

void SiteView::checkAll() {
    if (run_->isRunning()) {
        // Pages that the run has passed may have changed: the folder stands for all of them.
        waiting_.push_back(folder_);
        return;
    }
    start(SiteRun::Mode::Check);
}

void SiteView::generateAll() {
    start(SiteRun::Mode::Write);
}

void SiteView::start(SiteRun::Mode mode) {
    if (run_->isRunning() || folder_.empty()) return;
    written_ = 0;
    ui_->SiteProgress->setRange(0, 0);
    run_->start(folder_, mode);
    showState();
}

void SiteView::recheck(const std::filesystem::path& page) {
    const auto below = std::mismatch(folder_.begin(), folder_.end(), page.begin(), page.end());
    if (folder_.empty() || below.first != folder_.end()) return;
    waiting_.push_back(page);
    if (!run_->isRunning()) recheckWaiting();
}

void SiteView::recheckWaiting() {
    std::vector<std::filesystem::path> pages = std::exchange(waiting_, {});
    const bool allKnown = std::all_of(pages.begin(), pages.end(), [this](const auto& page) {
        return model_->indexOf(page).isValid();
    });
    if (!allKnown) return checkAll();
    written_ = 0;
    run_->start(std::move(pages), SiteRun::Mode::Check);
    showState();
}

void SiteView::takeResults(const std::vector<PageResult>& results) {
    model_->setResults(results);
    for (const PageResult& result : results) {
        written_ += result.written ? 1 : 0;
        Q_EMIT pageMessages(result.page, result.messages);
    }
}

void SiteView::finish(bool cancelled) {
    showState();
    if (cancelled) ui_->SiteSummary->setText(tr("Stopped. %1").arg(ui_->SiteSummary->text()));
    Q_EMIT runFinished();
    if (!waiting_.empty()) recheckWaiting();
}

void SiteView::showState() {
    const bool running = run_->isRunning();
    const bool any = !folder_.empty();
    if (!any) ui_->SiteTitle->setText(tr("No site open"));
    ui_->SiteCheckButton->setVisible(!running);
    ui_->SiteGenerateButton->setVisible(!running);
    ui_->SiteCheckButton->setEnabled(any);
    ui_->SiteGenerateButton->setEnabled(any);
    ui_->SiteStopButton->setVisible(running);
    ui_->SiteProgress->setVisible(running);
    if (running) {
        ui_->SiteSummary->setText(run_->mode() == SiteRun::Mode::Check ? tr("Checking...")
                                                                       : tr("Generating..."));
        return;
    }
    QStringList parts;
    if (written_ > 0) parts += tr("%1 written").arg(written_);
    parts += tr("%1 up to date").arg(model_->count(Verdict::UpToDate));
    const int stale = model_->count(Verdict::Stale);
    if (stale > 0) parts += tr("%1 out of date").arg(stale);
    int failed = 0;
    for (const Verdict verdict :
         {Verdict::Losing, Verdict::Failing, Verdict::NotReadable, Verdict::NotConfigured})
        failed += model_->count(verdict);
    if (failed > 0) parts += tr("%1 not done").arg(failed);
    ui_->SiteSummary->setText(any ? parts.join(QLatin1String(", ")) : QString());
}

}  // namespace headerdtc::qt
