#include "qt/editor/site/site_view.h"

#include "qt/editor/base/icons.h"
#include "qt/editor/base/words.h"
#include "scripts/scripts.h"
#include "ui_site_view.h"

#include <QStyle>
#include <algorithm>
#include <utility>

namespace headerdtc::qt {
namespace {

using Verdict = GeneratedPage::Verdict;

// Sites with up to this many pages are shown fully expanded.
constexpr std::size_t MostExpanded = 200;

// The folder of the installed suite, as far as it lies below another; where that is the installed
// site itself, the folder of the template.
std::filesystem::path installedBelow(const std::filesystem::path& folder, Sites& sites) {
    try {
        const auto site = sites.forPage(folder / "page.asp");
        const std::string directory = installDirectoryOf(site->registry);
        if (directory.empty()) return {};
        const WindowsPaths& drives = site->configuration->drives;
        auto installed = (drives.toLocal(directory) / "page.asp").parent_path();
        if (!isBelow(folder, installed)) return installed;
        return site->templateFile().parent_path();
    } catch (const std::exception&) {
        return {};  // What is wrong with the site is told of its pages.
    }
}

}  // namespace

void SiteFilter::setShow(Show show) {
    show_ = show;
    invalidateFilter();
}

bool SiteFilter::filterAcceptsRow(int row, const QModelIndex& parent) const {
    const QModelIndex index = sourceModel()->index(row, SiteModel::Name, parent);
    // A folder is shown when something in it is.
    if (index.data(SiteModel::PageRole).isNull()) return false;
    // The suite's own files are nobody's to edit here.
    if (index.data(SiteModel::InstalledRole).toBool() &&
        !index.data(SiteModel::HasControlRole).toBool())
        return false;
    if (show_ == WithControl && !index.data(SiteModel::HasControlRole).toBool()) return false;
    if (show_ == NeedingWork && !index.data(SiteModel::NeedsWorkRole).toBool()) return false;
    return QSortFilterProxyModel::filterAcceptsRow(row, parent);
}

SiteView::SiteView(Sites& sites, QWidget* parent)
    : QWidget(parent), sites_(sites), ui_(std::make_unique<Ui::SiteView>()) {
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

    connect(ui_->OpenFolderButton, &QToolButton::clicked, this, &SiteView::folderRequested);
    connect(ui_->SiteSearch, &QLineEdit::textChanged, this, [this](const QString& text) {
        filter_->setFilterFixedString(text);
        expand();
    });
    connect(ui_->SiteShow, &QComboBox::currentIndexChanged, this, [this](int index) {
        filter_->setShow(static_cast<SiteFilter::Show>(index));
        expand();
    });
    connect(&tree, &QTreeView::activated, this, [this](const QModelIndex& index) {
        const QString page = index.data(SiteModel::PageRole).toString();
        if (!page.isEmpty()) Q_EMIT pageActivated(page);
    });
    connect(ui_->SiteStopButton, &QPushButton::clicked, run_, &SiteRun::cancel);
    connectRun();
    showState();
}

SiteView::~SiteView() = default;

void SiteView::connectRun() {
    connect(run_, &SiteRun::found, this,
            [this](const std::vector<std::filesystem::path>& pages, const QStringList& problems) {
                model_->setPages(folder_, pages, installedBelow(folder_, sites_));
                expand();
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

// What was asked for lies open; of a large site as a whole, the first folders.
void SiteView::expand() {
    const bool isAsked = !ui_->SiteSearch->text().isEmpty() || ui_->SiteShow->currentIndex() != 0;
    const bool isLarge = model_->pageCount() > MostExpanded;
    ui_->SiteTree->collapseAll();
    isLarge && !isAsked ? ui_->SiteTree->expandToDepth(0) : ui_->SiteTree->expandAll();
}

// Wide enough for every state, beside names that can be read. Not by Qt's own way to fit a column,
// which would ask all rows with each result that comes in.
void SiteView::fitStates() {
    constexpr int LettersOfName = 14;
    // Left and right of the icon, of the text and of the cell.
    const int margins = 6 * (style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1);
    const int icon = style()->pixelMetric(QStyle::PM_SmallIconSize);
    int width = ui_->SiteTree->header()->sectionSizeHint(SiteModel::State);
    for (const QString& state : model_->states())
        width = std::max(width, fontMetrics().horizontalAdvance(state) + icon + margins);
    ui_->SiteTree->header()->resizeSection(SiteModel::State, width);
    // Before a name stand the branches of the tree and an icon.
    constexpr int Depth = 4;
    ui_->SiteTree->setMinimumWidth(width + LettersOfName * fontMetrics().averageCharWidth() +
                                   Depth * ui_->SiteTree->indentation());
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
    if (folder_.empty() || !isBelow(page, folder_)) return;
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
    fitStates();
    const bool running = run_->isRunning();
    const bool any = !folder_.empty();
    if (!any) ui_->SiteTitle->setText(tr("No site open"));
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
    if (!model_->work().isEmpty()) parts += model_->work();
    ui_->SiteSummary->setText(any ? parts.join(QLatin1String(", ")) : QString());
}

}  // namespace headerdtc::qt
