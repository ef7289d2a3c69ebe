#pragma once

#include "host/page/page_document.h"
#include "host/site/site.h"
#include "qt/editor/page/undo_history.h"

#include <QObject>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace headerdtc::qt {

// Somebody else has written the file, perhaps a moment ago: nothing was saved.
class ChangedByOther : public FileError {
  public:
    using FileError::FileError;
};

// A page that is being edited: its content, its history and its file. Every change, whether from
// the source view, a control, undo or a reload, goes through here and can be undone.
class EditedPage : public QObject {
    Q_OBJECT

  public:
    using Guard = PageDocument::Guard;

    // Both throw ConfigurationError, and FileError for a file that cannot be read.
    static std::unique_ptr<EditedPage> open(Sites& sites, const std::filesystem::path& file);
    // A new page with one control, which has no file yet; `place` is where it will probably be.
    static std::unique_ptr<EditedPage> makeNew(Sites& sites, const std::filesystem::path& place);

    const std::filesystem::path& file() const { return file_; }
    bool hasFile() const { return hasFile_; }
    // Of the file as it was last read or saved.
    const FileStamp& stamp() const { return stamp_; }
    const std::shared_ptr<Site>& site() const { return site_; }
    // Where its site comes from.
    Sites& sites() const { return *sites_; }
    const PageContentPtr& content() const { return history_.current(); }
    // As the file holds it.
    const PageContentPtr& saved() const { return saved_; }
    bool isModified() const;

    // ---- steps -------------------------------------------------------------------------------
    // All do nothing when the bytes stay the same; they throw FileError where PageContent does.
    void replaceText(const ByteRange& range, const std::string& bytes, const QString& kind);
    void setProperties(std::size_t control, const StoredProperties& properties);
    // Before a line (from 1), or where PageMarkup puts a control that has none.
    void insertControl(std::optional<int> line);
    void removeControl(std::size_t control);
    // Changes that were made to `base`, which the file held then, become the page's. Where somebody
    // has written the file since, it counts as changed on disk, and undo shows it as it is.
    void recover(std::string base, std::string bytes);

    const UndoHistory& history() const { return history_; }
    void undo();
    void redo();
    void sealStep() { history_.seal(); }

    // ---- the file ----------------------------------------------------------------------------
    // Generates the controls and writes the page if its bytes have changed. Throws SaveRefused
    // with the reasons, ChangedByOther, and FileError.
    void save(Guard guard);
    // The same into another file, which the page then has; one that is there is replaced.
    void saveAs(const std::filesystem::path& file, Guard guard);

    // Somebody else changed or removed the file since it was read. A change that leaves size and
    // time as they were, which is possible right after the reading, is found by its bytes.
    bool changedOnDisk() const;
    // The file's bytes as they are now. Throws FileError.
    WholeFile readTheirs() const;
    // The file's content becomes the page's, as a step.
    void takeTheirs(WholeFile theirs);
    // A page made of the file's content and this one becomes the page's, as a step.
    void takeBoth(WholeFile theirs, std::string merged);
    // The next save replaces the file as it is now.
    void keepMine(WholeFile theirs);
    // The file is gone; the next save makes it anew.
    void keepWithoutFile();

    // Reads the site's configuration again. Throws ConfigurationError.
    void refreshSite(Sites& sites);

  Q_SIGNALS:
    // The content has changed.
    void contentChanged();
    // Something besides the content has changed: isModified(), saved() or history().
    void stateChanged();
    // The page has moved to another file or site: its controls have to be made again.
    void placeChanged();
    // The page was read again.
    void readAgain();

  private:
    EditedPage(std::shared_ptr<Site> site, std::filesystem::path file, PageContentPtr content);
    PageContentPtr contentOf(std::string bytes) const;
    void step(std::string bytes, Step step);
    std::string bytesToSave(const std::filesystem::path& file, const std::shared_ptr<Site>& site,
                            Guard guard) const;
    void replaceFile(const std::string& bytes);
    void takeSaved(const std::filesystem::path& file);

    std::filesystem::path file_;
    bool hasFile_ = false;
    bool fileIsGone_ = false;  // the author keeps the page all the same
    FileStamp stamp_;
    std::shared_ptr<Site> site_;
    PageContentPtr saved_;
    UndoHistory history_;
    Sites* sites_ = nullptr;
};

}  // namespace headerdtc::qt
