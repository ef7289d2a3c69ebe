#include "qt/editor/page/edited_page.h"

#include "host/files/file_replacer.h"
#include "host/page/new_control.h"
#include "qt/editor/base/step_name.h"
#include "qt/editor/preview/expansion.h"

#include <utility>

namespace headerdtc::qt {

namespace fs = std::filesystem;

EditedPage::EditedPage(std::shared_ptr<Site> site, fs::path file, PageContentPtr content)
    : file_(std::move(file)),
      site_(std::move(site)),
      saved_(content),
      history_(std::move(content)) {}

std::unique_ptr<EditedPage> EditedPage::open(Sites& sites, const fs::path& file) {
    auto site = sites.forPage(file);
    WholeFile whole = readWholeFile(file);
    auto content = std::make_shared<const PageContent>(file, std::move(whole.bytes),
                                                       site->configuration->codePage);
    std::unique_ptr<EditedPage> page(new EditedPage(std::move(site), file, std::move(content)));
    page->hasFile_ = true;
    page->stamp_ = whole.stamp;
    page->sites_ = &sites;
    return page;
}

std::unique_ptr<EditedPage> EditedPage::makeNew(Sites& sites, const fs::path& place) {
    auto site = sites.forPage(place);
    const CodePage& codePage = site->configuration->codePage;
    auto content = std::make_shared<const PageContent>(place, newPage(place, codePage), codePage);
    std::unique_ptr<EditedPage> page(new EditedPage(std::move(site), place, std::move(content)));
    page->sites_ = &sites;
    return page;
}

bool EditedPage::isModified() const {
    return fileIsGone_ || content()->bytes() != saved_->bytes();
}

PageContentPtr EditedPage::contentOf(std::string bytes) const {
    return std::make_shared<const PageContent>(file_, std::move(bytes),
                                               site_->configuration->codePage);
}

// ---- steps --------------------------------------------------------------------------------------

void EditedPage::step(std::string bytes, Step step) {
    if (bytes == content()->bytes()) return;
    history_.push(contentOf(std::move(bytes)), std::move(step));
    Q_EMIT contentChanged();
    Q_EMIT stateChanged();
}

void EditedPage::replaceText(const ByteRange& range, const std::string& bytes,
                             const QString& kind) {
    step(content()->withText(range, bytes), {.name = tr("edit the source"), .kind = kind});
}

void EditedPage::setProperties(std::size_t control, const StoredProperties& properties) {
    const ControlSpan& span = content()->controls().at(control);
    Step step{
        .name = describeChange(span.properties, properties),
        .kind = QString::fromStdString(span.id) + ' ' + changedNames(span.properties, properties),
        .control = span.id};
    this->step(content()->withProperties(control, properties, *saved_), std::move(step));
}

void EditedPage::insertControl(std::optional<int> line) {
    step(content()->withNewControl(line), {.name = tr("insert a control")});
}

void EditedPage::removeControl(std::size_t control) {
    step(content()->withoutControl(control), {.name = tr("remove the control")});
}

void EditedPage::recover(std::string base, std::string bytes) {
    if (hasFile_ && base != saved_->bytes() && bytes != saved_->bytes()) {
        saved_ = contentOf(std::move(base));
        stamp_ = {};
    }
    step(std::move(bytes), {.name = tr("recover the changes")});
}

void EditedPage::undo() {
    history_.undo();
    Q_EMIT contentChanged();
    Q_EMIT stateChanged();
}

void EditedPage::redo() {
    history_.redo();
    Q_EMIT contentChanged();
    Q_EMIT stateChanged();
}

// ---- the file -----------------------------------------------------------------------------------

std::string EditedPage::bytesToSave(const fs::path& file, const std::shared_ptr<Site>& site,
                                    Guard guard) const {
    if (const auto& problem = content()->problem()) {
        SaveDoubt doubt{SaveDoubt::Kind::Loss, problem->what(), {}};
        if (isRefused(doubt, guard)) throw SaveRefused(std::move(doubt));
        return content()->bytes();
    }
    std::vector<ControlContent> contents;
    std::optional<SaveDoubt> refused;
    for (const ControlSpan& span : content()->controls()) {
        Expansion expansion = expand(site, file, span);
        contents.push_back(std::move(expansion.content));
        if (!expansion.doubt || !isRefused(*expansion.doubt, guard)) continue;
        SaveDoubt& doubt = *expansion.doubt;
        doubt.reason.insert(0, span.id + ": ");
        if (!refused || (expansion.failed() && refused->kind == SaveDoubt::Kind::Loss)) {
            refused = std::move(doubt);
        } else if (doubt.kind == refused->kind) {
            refused->reason += '\n' + doubt.reason;
        }
    }
    if (refused) throw SaveRefused(std::move(*refused));
    return content()->withContents(contents);
}

void EditedPage::save(Guard guard) {
    const std::string bytes = bytesToSave(file_, site_, guard);
    if (!hasFile_ || fileIsGone_) {
        createWholeFile(file_, bytes);
    } else if (bytes != saved_->bytes()) {
        replaceFile(bytes);
    } else {
        // The file already holds these bytes; only an undone step may have come in between.
        history_.replaceCurrent(saved_);
        Q_EMIT contentChanged();
        Q_EMIT stateChanged();
        return;
    }
    takeSaved(file_);
}

// The file is replaced only as long as it is the one that was read: another writer is noticed up to
// the last moment.
void EditedPage::replaceFile(const std::string& bytes) {
    try {
        replaceWholeFile(file_, bytes, stamp_);
    } catch (const FileError&) {
        if (!changedOnDisk()) throw;
        throw ChangedByOther(file_.string(), "was written by somebody else meanwhile");
    }
}

void EditedPage::saveAs(const fs::path& file, Guard guard) {
    const auto site = sites_->forPage(file);
    const std::string bytes = bytesToSave(file, site, guard);
    writeWholeFile(file, bytes, FileStamp::of(file));
    site_ = site;
    takeSaved(file);
    Q_EMIT placeChanged();
}

void EditedPage::takeSaved(const fs::path& file) {
    WholeFile whole = readWholeFile(file);
    file_ = file;
    hasFile_ = true;
    fileIsGone_ = false;
    stamp_ = whole.stamp;
    saved_ = contentOf(std::move(whole.bytes));
    history_.replaceCurrent(saved_);
    Q_EMIT contentChanged();
    Q_EMIT stateChanged();
}

bool EditedPage::changedOnDisk() const {
    return hasFile_ && !stamp_.isStillOf(file_);
}

WholeFile EditedPage::readTheirs() const {
    return readWholeFile(file_);
}

void EditedPage::takeTheirs(WholeFile theirs) {
    stamp_ = theirs.stamp;
    saved_ = contentOf(theirs.bytes);
    step(std::move(theirs.bytes), {.name = tr("read the page again")});
    Q_EMIT stateChanged();
    Q_EMIT readAgain();
}

void EditedPage::takeBoth(WholeFile theirs, std::string merged) {
    keepMine(std::move(theirs));
    step(std::move(merged), {.name = tr("take what is on disk")});
}

void EditedPage::keepMine(WholeFile theirs) {
    stamp_ = theirs.stamp;
    saved_ = contentOf(std::move(theirs.bytes));
    Q_EMIT stateChanged();
}

void EditedPage::keepWithoutFile() {
    stamp_ = FileStamp::of(file_);
    fileIsGone_ = true;
    Q_EMIT stateChanged();
}

void EditedPage::refreshSite(Sites& sites) {
    auto site = sites.forPage(file_);
    if (site == site_) return;
    site_ = std::move(site);
    saved_ = contentOf(saved_->bytes());
    history_.replaceCurrent(contentOf(content()->bytes()));
    Q_EMIT placeChanged();
    Q_EMIT contentChanged();
    Q_EMIT stateChanged();
}

}  // namespace headerdtc::qt
