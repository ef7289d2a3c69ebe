#include "qt/editor/site/site_view.h"

#include "qt/editor/base/icons.h"
#include "qt/editor/base/words.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace headerdtc::qt {
namespace {

using Verdict = GeneratedPage::Verdict;

// A site of this many pages can be looked over as a whole.
constexpr std::size_t MostExpanded = 200;

// A page's messages, of a run that had no window of the page to show a place in.
std::vector<Message> messagesOf(const PageResult& result) {
    std::vector<Message> messages;
    const bool failed = result.verdict >= Verdict::LeftAlone;
    for (std::size_t i = 0; i < result.messages.size(); ++i) {
        Message message = messageOf(result.messages[i], result.page, {});
        // The reason for a bad verdict stands last.
        if (failed && i + 1 == result.messages.size()) message.severity = Message::Severity::Error;
        messages.push_back(std::move(message));
    }
    return messages;
}

}  // namespace

void SiteFilter::setShow(Show show) {
    show_ = show;
    invalidateFilter();
}

bool SiteFilter::filterAcceptsRow(int row, const QModelIndex& parent) const {
    const QModelIndex index = sourceModel()->index(row, SiteModel::Name, parent);
    // A folder is shown for what is in it.
    if (index.data(SiteModel::PageRole).isNull()) return false;
    if (show_ == WithControl && !index.data(SiteModel::HasControlRole).toBool()) return false;
    if (show_ == NeedingWork && !index.data(SiteModel::NeedsWorkRole).toBool()) return false;
    return QSortFilterProxyModel::filterAcceptsRow(row, parent);
}

SiteView::SiteView(Sites& sites, QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("SiteView"));
    model_ = new SiteModel(this);
    filter_ = new SiteFilter(this);
    filter_->setSourceModel(model_);
    filter_->setRecursiveFilteringEnabled(true);
    filter_->setFilterCaseSensitivity(Qt::CaseInsensitive);
    run_ = new SiteRun(sites, this);

    title_ = new QLabel;
    title_->setObjectName(QStringLiteral("SiteTitle"));
    QFont bold = title_->font();
    bold.setBold(true);
    title_->setFont(bold);
    auto* openFolder = new QToolButton;
    openFolder->setIcon(editorIcon("folder-open"));
    openFolder->setAutoRaise(true);
    openFolder->setToolTip(tr("Open another site folder"));
    openFolder->setAccessibleName(openFolder->toolTip());
    connect(openFolder, &QToolButton::clicked, this, &SiteView::folderRequested);
    search_ = new QLineEdit;
    search_->setObjectName(QStringLiteral("SiteSearch"));
    search_->setPlaceholderText(tr("Find pages"));
    search_->setAccessibleName(tr("Find pages by name"));
    search_->setClearButtonEnabled(true);
    connect(search_, &QLineEdit::textChanged, this, [this](const QString& text) {
        filter_->setFilterFixedString(text);
        tree_->expandAll();
    });
    show_ = new QComboBox;
    show_->setObjectName(QStringLiteral("SiteShow"));
    show_->setAccessibleName(tr("Which pages are shown"));
    show_->addItems({tr("All pages"), tr("With a control"), tr("Needing work")});
    connect(show_, &QComboBox::currentIndexChanged, this, [this](int index) {
        filter_->setShow(static_cast<SiteFilter::Show>(index));
        tree_->expandAll();
    });

    tree_ = new QTreeView;
    tree_->setObjectName(QStringLiteral("SiteTree"));
    tree_->setAccessibleName(tr("Pages of the site"));
    tree_->setModel(filter_);
    tree_->setUniformRowHeights(true);
    tree_->setIndentation(fontMetrics().height());
    tree_->setAllColumnsShowFocus(true);
    tree_->header()->setStretchLastSection(false);
    tree_->header()->setSectionResizeMode(SiteModel::Name, QHeaderView::Stretch);
    // Measured once: to fit the contents all rows would be asked with each result that comes in.
    tree_->header()->resizeSection(
        SiteModel::State,
        fontMetrics().horizontalAdvance(tr("out of date")) + 2 * fontMetrics().height());
    connect(tree_, &QTreeView::activated, this, [this](const QModelIndex& index) {
        const QString page = index.data(SiteModel::PageRole).toString();
        if (!page.isEmpty()) Q_EMIT pageActivated(page);
    });

    check_ = new QPushButton(editorIcon("view-refresh"), tr("Check"));
    check_->setObjectName(QStringLiteral("SiteCheckButton"));
    check_->setToolTip(tr("Find out which pages are out of date; writes nothing"));
    connect(check_, &QPushButton::clicked, this, &SiteView::checkAll);
    generate_ = new QPushButton(editorIcon("system-run"), tr("Generate all"));
    generate_->setObjectName(QStringLiteral("SiteGenerateButton"));
    generate_->setToolTip(tr("Write every page that is out of date"));
    connect(generate_, &QPushButton::clicked, this, &SiteView::generateRequested);
    stop_ = new QPushButton(editorIcon("process-stop"), tr("Stop"));
    stop_->setObjectName(QStringLiteral("SiteStopButton"));
    connect(stop_, &QPushButton::clicked, run_, &SiteRun::cancel);
    progress_ = new QProgressBar;
    progress_->setAccessibleName(tr("Progress"));
    summary_ = new QLabel;
    summary_->setObjectName(QStringLiteral("SiteSummary"));
    summary_->setWordWrap(true);

    auto* head = new QHBoxLayout;
    head->addWidget(title_, 1);
    head->addWidget(openFolder);
    auto* filters = new QHBoxLayout;
    filters->addWidget(search_, 1);
    filters->addWidget(show_);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(check_);
    buttons->addWidget(generate_);
    buttons->addWidget(stop_);
    buttons->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 4, 6, 6);
    layout->setSpacing(4);
    layout->addLayout(head);
    layout->addLayout(filters);
    layout->addWidget(tree_, 1);
    layout->addWidget(progress_);
    layout->addWidget(summary_);
    layout->addLayout(buttons);

    connect(run_, &SiteRun::found, this,
            [this](const std::vector<std::filesystem::path>& pages, const QStringList& problems) {
                model_->setPages(folder_, pages);
                if (pages.size() <= MostExpanded) {
                    tree_->expandAll();
                } else {
                    tree_->expandToDepth(0);
                }
                std::vector<Message> messages;
                for (const QString& problem : problems)
                    messages.push_back({Message::Severity::Error, problem, folder_, {}});
                Q_EMIT pageMessages(folder_, messages);
            });
    connect(run_, &SiteRun::done, this, &SiteView::takeResults);
    connect(run_, &SiteRun::progressed, this, [this](int finished, int all) {
        progress_->setRange(0, all);
        progress_->setValue(finished);
    });
    connect(run_, &SiteRun::finished, this, &SiteView::finish);
    showState();
}

void SiteView::openFolder(const std::filesystem::path& folder) {
    if (folder == folder_ || run_->isRunning()) return;
    folder_ = folder;
    title_->setText(toName(folder.filename()));
    title_->setToolTip(toName(folder));
    checkAll();
}

void SiteView::checkAll() {
    if (run_->isRunning()) {
        // What it has passed already may be another: the folder stands for all that is in it.
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
    progress_->setRange(0, 0);
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
        Q_EMIT pageMessages(result.page, messagesOf(result));
    }
}

void SiteView::finish(bool cancelled) {
    showState();
    if (cancelled) summary_->setText(tr("Stopped. %1").arg(summary_->text()));
    Q_EMIT runFinished();
    if (!waiting_.empty()) recheckWaiting();
}

void SiteView::showState() {
    const bool running = run_->isRunning();
    const bool any = !folder_.empty();
    if (!any) title_->setText(tr("No site open"));
    check_->setVisible(!running);
    generate_->setVisible(!running);
    check_->setEnabled(any);
    generate_->setEnabled(any);
    stop_->setVisible(running);
    progress_->setVisible(running);
    if (running) {
        summary_->setText(run_->mode() == SiteRun::Mode::Check ? tr("Checking...")
                                                               : tr("Generating..."));
        return;
    }
    QStringList parts;
    if (written_ > 0) parts += tr("%1 written").arg(written_);
    parts += tr("%1 up to date").arg(model_->count(Verdict::UpToDate));
    const int stale = model_->count(Verdict::Stale);
    if (stale > 0) parts += tr("%1 out of date").arg(stale);
    const int failed = model_->count(Verdict::LeftAlone) + model_->count(Verdict::NotReadable) +
                       model_->count(Verdict::NotConfigured);
    if (failed > 0) parts += tr("%1 not done").arg(failed);
    summary_->setText(any ? parts.join(QLatin1String(", ")) : QString());
}

}  // namespace headerdtc::qt
