#include "qt/editor/start/guide_window.h"

#include "qt/editor/base/icons.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextTable>
#include <QToolBar>
#include <algorithm>

namespace headerdtc::qt {
namespace {

constexpr const char* Folder = ":/docs/";
constexpr const char* Guide = "guide.md";

// How a heading is named in links to it: lower case, blanks as hyphens, no punctuation.
QString anchorOf(const QString& heading) {
    QString anchor;
    for (const QChar c : heading.toLower()) {
        if (c.isLetterOrNumber() || c == QLatin1Char('-') || c == QLatin1Char('_')) anchor += c;
        if (c == QLatin1Char(' ')) anchor += QLatin1Char('-');
    }
    return anchor;
}

}  // namespace

GuideWindow::GuideWindow(QWidget* parent) : QMainWindow(parent) {
    setObjectName(QStringLiteral("GuideWindow"));
    setWindowTitle(tr("HeaderDTC guide"));
    text_ = new QTextBrowser;
    text_->setAccessibleName(tr("Guide"));
    text_->setOpenLinks(false);
    text_->setSearchPaths({QLatin1String(Folder)});
    text_->document()->setDocumentMargin(14);
    connect(text_, &QTextBrowser::anchorClicked, this, &GuideWindow::follow);
    setCentralWidget(text_);

    search_ = new QLineEdit;
    search_->setPlaceholderText(tr("Find in the guide"));
    search_->setAccessibleName(search_->placeholderText());
    search_->setClearButtonEnabled(true);
    search_->setMaximumWidth(260);
    connect(search_, &QLineEdit::returnPressed, this, &GuideWindow::find);
    auto* bar = addToolBar(tr("Guide"));
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    back_ = bar->addAction(editorIcon("go-previous"), tr("Back"), this, &GuideWindow::goBack);
    back_->setShortcut(QKeySequence::Back);
    back_->setToolTip(tr("To what was read before (%1)")
                          .arg(back_->shortcut().toString(QKeySequence::NativeText)));
    back_->setEnabled(false);
    bar->addAction(editorIcon("help-contents"), tr("Contents"), this, [this] { showGuide(); });
    auto* gap = new QWidget;
    gap->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    bar->addWidget(gap);
    bar->addWidget(search_);
    auto* findAction = new QAction(this);
    findAction->setShortcut(QKeySequence::Find);
    connect(findAction, &QAction::triggered, search_, qOverload<>(&QLineEdit::setFocus));
    addAction(findAction);
    auto* close = new QAction(this);
    close->setShortcuts({QKeySequence::Close, QKeySequence(Qt::Key_Escape)});
    connect(close, &QAction::triggered, this, &QWidget::close);
    addAction(close);
    resize(820, 720);
}

void GuideWindow::showGuide(const QUrl& chapter) {
    show();
    raise();
    activateWindow();
    follow(chapter.isEmpty() ? QUrl(QLatin1String(Guide)) : chapter);
}

void GuideWindow::follow(const QUrl& link) {
    if (!link.isRelative()) {
        QDesktopServices::openUrl(link);
        return;
    }
    const Place before{shown_, text_->verticalScrollBar()->value()};
    if (!read(link)) return;
    if (!before.link.isEmpty()) before_ += before;
    back_->setEnabled(!before_.isEmpty());
}

void GuideWindow::goBack() {
    const Place before = before_.takeLast();
    read(before.link);
    text_->verticalScrollBar()->setValue(before.scrolled);
    back_->setEnabled(!before_.isEmpty());
}

bool GuideWindow::read(const QUrl& link) {
    const QString name = QFileInfo(link.path()).fileName();
    if (!name.isEmpty()) {
        QFile file(QLatin1String(Folder) + name);
        if (!file.open(QIODevice::ReadOnly)) return false;
        text_->document()->setMarkdown(QString::fromUtf8(file.readAll()));
        drawTables();
        spaceHeadings();
        fitPictures();
        text_->moveCursor(QTextCursor::Start);
    }
    shown_ = shown_.resolved(link);
    goTo(link.fragment());
    return true;
}

// Borders and padding for table cells, which Markdown does not define.
void GuideWindow::drawTables() {
    constexpr int Padding = 4;
    for (QTextFrame* frame : text_->document()->rootFrame()->childFrames()) {
        auto* table = qobject_cast<QTextTable*>(frame);
        if (!table) continue;
        QTextTableFormat format = table->format();
        format.setBorderCollapse(true);
        format.setBorder(1);
        format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        format.setBorderBrush(palette().placeholderText());
        format.setCellPadding(Padding);
        format.setCellSpacing(0);
        table->setFormat(format);
    }
}

// A chapter begins apart from the one before.
void GuideWindow::spaceHeadings() {
    QTextBlockFormat spaced;
    spaced.setTopMargin(fontMetrics().height());
    QTextCursor changes(text_->document());
    changes.beginEditBlock();
    for (QTextBlock block = changes.block(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() > 1) QTextCursor(block).mergeBlockFormat(spaced);
    }
    changes.endEditBlock();
}

// No picture is wider than the window.
void GuideWindow::fitPictures() {
    QTextDocument& document = *text_->document();
    const int room = text_->viewport()->width() - 2 * static_cast<int>(document.documentMargin());
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QTextImageFormat format = part.fragment().charFormat().toImageFormat();
            if (!format.isValid()) continue;
            // An indexed image cannot be scaled smoothly.
            QImage picture = QImage(QLatin1String(Folder) + format.name())
                                 .convertToFormat(QImage::Format_ARGB32_Premultiplied);
            if (picture.width() > room) {
                const int pixels = qRound(room * devicePixelRatioF());
                picture = picture.scaledToWidth(std::max(1, std::min(pixels, picture.width())),
                                                Qt::SmoothTransformation);
                picture.setDevicePixelRatio(picture.width() / static_cast<double>(room));
            }
            document.addResource(QTextDocument::ImageResource, QUrl(format.name()), picture);
        }
    }
    document.markContentsDirty(0, document.characterCount());
}

void GuideWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    fitPictures();
}

void GuideWindow::goTo(const QString& heading) {
    if (heading.isEmpty()) return;
    for (QTextBlock block = text_->document()->begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() == 0 || anchorOf(block.text()) != heading) continue;
        // The heading comes to the top of the window, not to its bottom.
        text_->moveCursor(QTextCursor::End);
        text_->setTextCursor(QTextCursor(block));
        return;
    }
}

void GuideWindow::find() {
    if (text_->find(search_->text())) return;
    text_->moveCursor(QTextCursor::Start);
    text_->find(search_->text());
}

QUrl chapterOn(const QWidget* part) {
    for (; part; part = part->parentWidget()) {
        const auto* tabs = qobject_cast<const QTabWidget*>(part);
        const QWidget* page = tabs ? tabs->currentWidget() : nullptr;
        const QVariant chapter = (page ? page : part)->property("guideChapter");
        if (chapter.isValid()) return QUrl(chapter.toString());
    }
    return {};
}

// ---- about --------------------------------------------------------------------------------------

void showAbout(QWidget* window) {
    QMessageBox box(window);
    box.setObjectName(QStringLiteral("AboutBox"));
    box.setWindowTitle(QMessageBox::tr("About HeaderDTC"));
    box.setIconPixmap(applicationIcon().pixmap(QSize(64, 64), box.devicePixelRatioF()));
    box.setText(
        QStringLiteral("<b>HeaderDTC page editor %1</b>").arg(QApplication::applicationVersion()));
    box.setInformativeText(
        QMessageBox::tr(
            "Keeps the data headers of dashboard pages: what a page shows is said once, "
            "in the page, and the server script that fetches it is written from that.\n"
            "\nUses Qt %1.")
            .arg(QLatin1String(qVersion())));
    auto* aboutQt = box.addButton(QMessageBox::tr("About &Qt"), QMessageBox::HelpRole);
    box.addButton(QMessageBox::Close);
    box.exec();
    if (box.clickedButton() == aboutQt) QApplication::aboutQt();
}

}  // namespace headerdtc::qt
