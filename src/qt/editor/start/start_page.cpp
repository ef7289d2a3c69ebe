#include "qt/editor/start/start_page.h"

#include "qt/editor/base/icons.h"
#include "qt/editor/start/recent_files.h"
#include "qt/surface/control_view.h"
#include "ui_start_page.h"

#include <QDir>
#include <QFileInfo>
#include <QPushButton>

namespace headerdtc::qt {
namespace {

// A page's path with the home folder as people write it.
QString shortened(const QString& path) {
    const QString home = QDir::homePath() + QLatin1Char('/');
    return path.startsWith(home) ? QLatin1String("~/") + path.mid(home.size()) : path;
}

}  // namespace

StartPage::StartPage(RecentFiles& recent, QWidget* parent)
    : QWidget(parent), recent_(recent), ui_(std::make_unique<Ui::StartPage>()) {
    ui_->setupUi(this);
    setIcons(*this);
    ui_->ProgramIcon->setPixmap(applicationIcon().pixmap(QSize(56, 56), devicePixelRatioF()));
    QFont large = ui_->ProgramTitle->font();
    large.setPointSizeF(large.pointSizeF() * 1.8);
    ui_->ProgramTitle->setFont(large);
    for (auto* button : findChildren<QCommandLinkButton*>()) {
        button->setAutoDefault(true);  // Enter presses it
        outlineFocus(*button);
        button->setAccessibleName(button->text().remove(QLatin1Char('&')));
        button->setAccessibleDescription(button->description());
    }
    connect(ui_->TryDemo, &QPushButton::clicked, this, &StartPage::demoRequested);
    connect(ui_->OpenSite, &QPushButton::clicked, this, &StartPage::siteRequested);
    connect(ui_->OpenPage, &QPushButton::clicked, this, &StartPage::openRequested);
    connect(ui_->NewPage, &QPushButton::clicked, this, &StartPage::newRequested);
    connect(ui_->ReadGuide, &QPushButton::clicked, this, &StartPage::guideRequested);
    connect(&recent_, &RecentFiles::changed, this, &StartPage::showRecent);
    showRecent();
}

StartPage::~StartPage() = default;

void StartPage::showRecent() {
    while (QLayoutItem* item = ui_->recentLayout->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    const QStringList files = recent_.files();
    ui_->RecentBox->setVisible(!files.isEmpty());
    for (const QString& file : files) {
        const QFileInfo info(file);
        QString name = info.fileName();
        auto* button = new QPushButton(name.replace(QLatin1Char('&'), QLatin1String("&&")));
        button->setIcon(editorIcon("text-html"));
        button->setFlat(true);
        button->setAutoDefault(true);
        outlineFocus(*button);
        button->setToolTip(shortened(file));
        button->setAccessibleDescription(file);
        button->setCursor(Qt::PointingHandCursor);
        button->setStyleSheet(QStringLiteral("text-align: left; padding: 3px;"));
        connect(button, &QPushButton::clicked, this, [this, file] { Q_EMIT pageRequested(file); });
        auto* folder = new QLabel(shortened(info.path()));
        folder->setForegroundRole(QPalette::PlaceholderText);
        folder->setContentsMargins(26, 0, 0, 4);
        ui_->recentLayout->addWidget(button);
        ui_->recentLayout->addWidget(folder);
    }
}

}  // namespace headerdtc::qt
