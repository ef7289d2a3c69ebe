#include "qt/editor/workspace/page_tabs.h"

#include "platform/runtime_error.h"
#include "qt/editor/base/words.h"
#include "qt/editor/page/control_pane.h"
#include "qt/editor/page/page_changes.h"
#include "qt/editor/workspace/notice_bar.h"
#include "qt/editor/workspace/page_editor.h"
#include "qt/editor/workspace/page_saver.h"

#include <QAbstractButton>
#include <QMessageBox>
#include <QTabBar>

namespace headerdtc::qt {
namespace {

namespace fs = std::filesystem;

fs::path spelled(const fs::path& file) {
    std::error_code failure;
    const fs::path absolute = fs::absolute(file, failure).lexically_normal();
    return failure ? file : absolute;
}

// A name below the folder that no file has and no open page.
fs::path freeName(const fs::path& folder, const PageTabs& tabs) {
    for (int number = 1;; ++number) {
        fs::path name = folder / ("page" + std::to_string(number) + ".asp");
        std::error_code failure;
        if (!fs::exists(name, failure) && !tabs.find(name)) return name;
    }
}

// What every page of a site is made with. A file whose place is not known is left out.
std::vector<fs::path> filesOf(Site& site) {
    const SiteConfiguration& configuration = *site.configuration;
    std::vector<fs::path> files{
        configuration.file.empty() ? configuration.folder / "headerdtc.toml" : configuration.file,
        configuration.catalogue, configuration.registry};
    try {
        if (const auto file = site.templateFile(); !file.empty()) files.push_back(file);
    } catch (const RuntimeError&) {
        // A drive that the configuration lacks.
    }
    return files;
}

}  // namespace

PageTabs::PageTabs(Sites& sites, PageSaver& saver, QWidget* parent)
    : QTabWidget(parent), sites_(sites), saver_(saver) {
    setObjectName(QStringLiteral("PageTabs"));
    setTabsClosable(true);
    setMovable(true);
    setDocumentMode(true);
    setUsesScrollButtons(true);
    setAccessibleName(tr("Open pages"));
    tabBar()->setAccessibleName(accessibleName());
    connect(this, &QTabWidget::tabCloseRequested, this,
            [this](int index) { close(static_cast<PageEditor*>(widget(index))); });
    connect(this, &QTabWidget::currentChanged, this, [this] {
        const auto all = editors();
        if (std::find(all.begin(), all.end(), left_) != all.end()) left_->finishEditing();
        left_ = current();
        Q_EMIT stateChanged();
    });
}

PageTabs::~PageTabs() {
    disconnect(this, &QTabWidget::currentChanged, nullptr, nullptr);
}

PageEditor* PageTabs::current() const {
    return static_cast<PageEditor*>(currentWidget());
}

std::vector<PageEditor*> PageTabs::editors() const {
    std::vector<PageEditor*> all;
    all.reserve(static_cast<std::size_t>(count()));
    for (int i = 0; i < count(); ++i)
        all.push_back(static_cast<PageEditor*>(widget(i)));
    return all;
}

PageEditor* PageTabs::find(const fs::path& file) const {
    std::error_code failure;
    for (PageEditor* editor : editors()) {
        if (editor->page().file() == file || fs::equivalent(editor->page().file(), file, failure))
            return editor;
    }
    return nullptr;
}

PageEditor* PageTabs::add(std::unique_ptr<EditedPage> page) {
    auto* editor = new PageEditor(std::move(page));
    connect(editor, &PageEditor::stateChanged, this, [this, editor] {
        showTitle(editor);
        Q_EMIT stateChanged();
    });
    addTab(editor, QString());
    showTitle(editor);
    Q_EMIT opened(editor);
    setCurrentWidget(editor);
    editor->takeFocus();
    return editor;
}

PageEditor* PageTabs::open(const fs::path& file) {
    const fs::path name = spelled(file);
    if (PageEditor* editor = find(name)) {
        setCurrentWidget(editor);
        editor->takeFocus();
        return editor;
    }
    try {
        return add(EditedPage::open(sites_, name));
    } catch (const std::exception& error) {
        QMessageBox::critical(
            this, tr("Page cannot be opened"),
            tr("%1 cannot be opened.\n\n%2")
                .arg(toName(name.filename()), QString::fromStdString(error.what())));
        return nullptr;
    }
}

PageEditor* PageTabs::openNew(const fs::path& folder) {
    try {
        PageEditor* editor = add(EditedPage::makeNew(sites_, freeName(spelled(folder), *this)));
        editor->controls().focusProvider();
        return editor;
    } catch (const std::exception& error) {
        QMessageBox::critical(this, tr("No new page"), QString::fromStdString(error.what()));
        return nullptr;
    }
}

PageEditor* PageTabs::recover(const RecoveryCopy& copy) {
    std::error_code failure;
    PageEditor* editor = nullptr;
    if (copy.hasFile && fs::exists(copy.page, failure)) {
        editor = open(copy.page);
    } else {
        // The name is kept, the file has to be made.
        try {
            editor = add(EditedPage::makeNew(sites_, copy.page));
        } catch (const std::exception& error) {
            QMessageBox::critical(this, tr("Page cannot be recovered"),
                                  QString::fromStdString(error.what()));
        }
    }
    if (!editor) return nullptr;
    editor->page().recover(copy.base, copy.bytes);
    editor->notices().show(QStringLiteral("recovered"), Message::Severity::Note,
                           tr("These are the recovered changes; undo shows the page as it is in "
                              "its file."));
    checkDisk(*editor);
    return editor;
}

void PageTabs::showTitle(PageEditor* editor) {
    const int index = indexOf(editor);
    if (index < 0) return;
    // "&" is a letter in a file's name.
    QString title = editor->title().replace(QLatin1Char('&'), QLatin1String("&&"));
    if (editor->isModified()) title += QLatin1Char('*');
    if (tabText(index) != title) setTabText(index, title);
    setTabToolTip(index, toName(editor->page().file()));
}

bool PageTabs::close(PageEditor* editor) {
    if (editor->isBusy()) return false;
    editor->finishEditing();
    if (editor->isModified()) {
        setCurrentWidget(editor);
        QMessageBox box(QMessageBox::Question, tr("Unsaved changes"),
                        tr("Save the changes of %1?").arg(editor->title()),
                        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, this);
        box.setObjectName(QStringLiteral("UnsavedBox"));
        box.setInformativeText(unsavedChanges(*editor));
        box.setTextFormat(Qt::PlainText);
        box.setDefaultButton(QMessageBox::Save);
        box.button(QMessageBox::Save)->setText(tr("&Save"));
        box.button(QMessageBox::Discard)->setText(tr("&Discard"));
        box.button(QMessageBox::Cancel)->setText(tr("&Cancel"));
        const int answer = box.exec();
        if (answer == QMessageBox::Cancel) return false;
        if (answer == QMessageBox::Save && !saver_.save(*editor)) return false;
    }
    remove(editor);
    return true;
}

void PageTabs::remove(PageEditor* editor) {
    Q_EMIT closed(editor);
    removeTab(indexOf(editor));
    delete editor;
    Q_EMIT stateChanged();
}

bool PageTabs::closeAll() {
    QStringList unsaved;
    for (PageEditor* editor : editors()) {
        if (editor->isBusy()) return false;
        editor->finishEditing();
        if (editor->isModified()) unsaved += editor->title();
    }
    using Box = QMessageBox;
    int answer = Box::No;  // one by one
    if (unsaved.size() > 1) {
        Box box(Box::Question, tr("Unsaved changes"),
                tr("Save the changes of %1 pages?").arg(unsaved.size()),
                Box::SaveAll | Box::Discard | Box::No | Box::Cancel, this);
        box.setObjectName(QStringLiteral("UnsavedPagesBox"));
        box.setInformativeText(bulleted(unsaved));
        box.setTextFormat(Qt::PlainText);
        box.setDefaultButton(Box::SaveAll);
        box.button(Box::SaveAll)->setText(tr("&Save all"));
        box.button(Box::Discard)->setText(tr("&Discard all"));
        box.button(Box::No)->setText(tr("&Ask for each"));
        box.button(Box::Cancel)->setText(tr("&Cancel"));
        answer = box.exec();
        if (answer == Box::Cancel) return false;
    }
    for (PageEditor* editor : editors()) {
        if (answer == Box::SaveAll && editor->isModified()) {
            setCurrentWidget(editor);
            if (!saver_.save(*editor)) return false;
        }
        if (answer == Box::Discard) {
            remove(editor);
        } else if (!close(editor)) {
            return false;
        }
    }
    return true;
}

void PageTabs::checkDisk() {
    for (PageEditor* editor : editors())
        checkDisk(*editor);
    bool siteChanged = false;
    for (auto& [file, stamp] : siteFiles_) {
        const FileStamp now = FileStamp::of(file);
        siteChanged = siteChanged || stamp != now;
        stamp = now;
    }
    if (!siteChanged) return;
    refreshSites();
    Q_EMIT siteFileChanged();
}

std::set<fs::path> PageTabs::filesToWatch() {
    std::set<fs::path> files;
    std::map<fs::path, FileStamp> ofSites;
    for (PageEditor* editor : editors()) {
        files.insert(editor->page().file());
        for (const fs::path& file : filesOf(*editor->page().site())) {
            files.insert(file);
            const auto known = siteFiles_.find(file);
            ofSites.emplace(file, known != siteFiles_.end() ? known->second : FileStamp::of(file));
        }
    }
    siteFiles_ = std::move(ofSites);
    return files;
}

void PageTabs::checkDisk(PageEditor& editor) {
    EditedPage& page = editor.page();
    const QString key = QStringLiteral("disk");
    if (!page.changedOnDisk()) {
        editor.notices().remove(key);
        return;
    }
    WholeFile theirs;
    try {
        theirs = page.readTheirs();
    } catch (const FileError&) {
        editor.notices().show(
            key, Message::Severity::Warning,
            tr("This page is gone from the disk. What is open here is all there is of it."),
            {{tr("Save again"), [this, &editor] {
                  editor.page().keepWithoutFile();
                  saver_.save(editor);
              }}});
        return;
    }
    if (theirs.bytes == page.saved()->bytes()) {
        page.keepMine(std::move(theirs));
        editor.notices().remove(key);
    } else if (!editor.isModified() && !editor.isBusy()) {
        page.takeTheirs(std::move(theirs));
        editor.notices().show(key, Message::Severity::Note,
                              tr("This page was changed on disk and has been read again; undo "
                                 "brings back what was here before."));
    } else if (!editor.notices().shows(key)) {
        editor.notices().show(key, Message::Severity::Warning,
                              tr("This page was changed on disk, and here too."),
                              {{tr("Compare..."), [this, &editor] {
                                    if (!saver_.resolveChangeOnDisk(editor)) checkDisk(editor);
                                }}});
    }
}

void PageTabs::refreshSites() {
    for (PageEditor* editor : editors()) {
        try {
            editor->page().refreshSite(sites_);
            editor->notices().remove(QStringLiteral("site"));
        } catch (const ConfigurationError& error) {
            editor->notices().show(QStringLiteral("site"), Message::Severity::Error,
                                   QString::fromStdString(error.what()));
        }
        editor->lookAgain();
    }
}

}  // namespace headerdtc::qt
