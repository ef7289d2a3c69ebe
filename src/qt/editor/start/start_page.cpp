#include "qt/editor/start/start_page.h"

#include "qt/editor/base/icons.h"
#include "qt/editor/start/recent_files.h"
#include "qt/surface/focus_outline.h"

#include <QCommandLinkButton>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

namespace headerdtc::qt {
namespace {

struct Beginning {
    const char* icon;
    const char* text;
    const char* description;
    void (StartPage::*signal)();
};

constexpr Beginning Beginnings[] = {
    {"system-run", QT_TRANSLATE_NOOP("StartPage", "Try the &demo site"),
     QT_TRANSLATE_NOOP("StartPage",
                       "Copies a small site to a folder of yours and opens a page that uses "
                       "everything a control can do."),
     &StartPage::demoRequested},
    {"folder-open", QT_TRANSLATE_NOOP("StartPage", "Open a s&ite folder"),
     QT_TRANSLATE_NOOP("StartPage", "Shows the pages of a web project and which are out of date."),
     &StartPage::siteRequested},
    {"document-open", QT_TRANSLATE_NOOP("StartPage", "&Open a page"),
     QT_TRANSLATE_NOOP("StartPage", "Opens an ASP page; files can also be dropped here."),
     &StartPage::openRequested},
    {"document-new", QT_TRANSLATE_NOOP("StartPage", "&New page"),
     QT_TRANSLATE_NOOP("StartPage", "Begins a page with one new control."),
     &StartPage::newRequested},
    {"help-contents", QT_TRANSLATE_NOOP("StartPage", "&Read the guide"),
     QT_TRANSLATE_NOOP("StartPage", "Setting up a site, and the editor tab by tab."),
     &StartPage::guideRequested},
};

// A page's path with the home folder as people write it.
QString shortened(const QString& path) {
    const QString home = QDir::homePath() + QLatin1Char('/');
    return path.startsWith(home) ? QLatin1String("~/") + path.mid(home.size()) : path;
}

}  // namespace

StartPage::StartPage(RecentFiles& recent, QWidget* parent) : QWidget(parent), recent_(recent) {
    setObjectName(QStringLiteral("StartPage"));
    auto* icon = new QLabel;
    icon->setPixmap(applicationIcon().pixmap(QSize(56, 56), devicePixelRatioF()));
    auto* title = new QLabel(tr("HeaderDTC page editor"));
    QFont large = title->font();
    large.setPointSizeF(large.pointSizeF() * 1.8);
    title->setFont(large);
    auto* subtitle =
        new QLabel(tr("Configure the data header of a dashboard page; the editor "
                      "writes the server script that belongs to it."));
    subtitle->setWordWrap(true);
    auto* titles = new QVBoxLayout;
    titles->setSpacing(2);
    titles->addWidget(title);
    titles->addWidget(subtitle);
    auto* head = new QHBoxLayout;
    head->setSpacing(14);
    head->addWidget(icon, 0, Qt::AlignTop);
    head->addLayout(titles, 1);

    auto* choices = new QVBoxLayout;
    choices->setSpacing(2);
    for (const Beginning& beginning : Beginnings) {
        auto* button = new QCommandLinkButton(tr(beginning.text), tr(beginning.description));
        button->setIcon(editorIcon(beginning.icon));
        button->setAutoDefault(true);  // Enter presses it
        new FocusOutline(*button);
        button->setAccessibleName(tr(beginning.text).remove(QLatin1Char('&')));
        button->setAccessibleDescription(tr(beginning.description));
        connect(button, &QCommandLinkButton::clicked, this, beginning.signal);
        choices->addWidget(button);
    }
    choices->addStretch();

    auto* recentTitle = new QLabel(tr("Recent pages"));
    QFont bold = recentTitle->font();
    bold.setBold(true);
    recentTitle->setFont(bold);
    recentBox_ = new QWidget;
    recentList_ = new QVBoxLayout;
    recentList_->setSpacing(1);
    auto* recentLayout = new QVBoxLayout(recentBox_);
    recentLayout->setContentsMargins(0, 8, 0, 0);
    recentLayout->addWidget(recentTitle);
    recentLayout->addLayout(recentList_);
    recentLayout->addStretch();

    auto* columns = new QHBoxLayout;
    columns->setSpacing(28);
    columns->addLayout(choices, 3);
    columns->addWidget(recentBox_, 2);
    auto* content = new QWidget;
    content->setMaximumWidth(900);
    auto* contentLayout = new QVBoxLayout(content);
    contentLayout->setContentsMargins(28, 28, 28, 28);
    contentLayout->setSpacing(22);
    contentLayout->addLayout(head);
    contentLayout->addLayout(columns, 1);

    auto* centred = new QWidget;
    auto* centredLayout = new QHBoxLayout(centred);
    centredLayout->setContentsMargins(0, 0, 0, 0);
    centredLayout->addStretch(1);
    centredLayout->addWidget(content, 100);
    centredLayout->addStretch(1);
    auto* area = new QScrollArea;
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setFocusPolicy(Qt::NoFocus);  // no stop for Tab of its own
    area->setWidget(centred);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(area);

    connect(&recent_, &RecentFiles::changed, this, &StartPage::showRecent);
    showRecent();
}

void StartPage::showRecent() {
    while (QLayoutItem* item = recentList_->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    const QStringList files = recent_.files();
    recentBox_->setVisible(!files.isEmpty());
    for (const QString& file : files) {
        const QFileInfo info(file);
        QString name = info.fileName();
        auto* button = new QPushButton(name.replace(QLatin1Char('&'), QLatin1String("&&")));
        button->setIcon(editorIcon("text-html"));
        button->setFlat(true);
        button->setAutoDefault(true);
        new FocusOutline(*button);
        button->setToolTip(shortened(file));
        button->setAccessibleDescription(file);
        button->setCursor(Qt::PointingHandCursor);
        button->setStyleSheet(QStringLiteral("text-align: left; padding: 3px;"));
        connect(button, &QPushButton::clicked, this, [this, file] { Q_EMIT pageRequested(file); });
        auto* folder = new QLabel(shortened(info.path()));
        folder->setForegroundRole(QPalette::PlaceholderText);
        folder->setContentsMargins(26, 0, 0, 4);
        recentList_->addWidget(button);
        recentList_->addWidget(folder);
    }
}

}  // namespace headerdtc::qt
