#pragma once

#include "host/page/page_document.h"
#include "host/site/site.h"
#include "qt/editor/page/undo_history.h"

#include <QObject>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>

namespace headerdtc::qt {

// Somebody else has written the file, perhaps a moment ago: nothing was saved.
class ChangedByOther : public FileError {
  public:
    using FileError::FileError;
};

// A page that is being edited: its content, how it came to it, and its file. Whatever changes it,
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
    const PageContentPtr& content() const { return history_.current(); }
    // As the file holds it.
    const PageContentPtr& saved() const { return saved_; }
    bool isModified() const;

    // ---- steps -------------------------------------------------------------------------------
    // All do nothing when the bytes stay the same; they throw FileError where PageContent does.
    void replaceText(const ByteRange& range, const std::string& bytes, const QString& kind);
    void setProperties(std::size_t control, const StoredProperties& properties);
    void insertControl(int line);
    void removeControl(std::size_t control);
    void replaceAll(std::string bytes, const QString& stepName);

    const UndoHistory& history() const { return history_; }
    void undo();
    void redo();
    void sealStep() { history_.seal(); }

    // ---- the file ----------------------------------------------------------------------------
    // Generates the controls and writes the page where its bytes are others. Throws SaveRefused
    // with the reasons, ChangedByOther, and FileError.
    void save(Guard guard);
    // The same into another file, which the page then has; one that is there is replaced.
    void saveAs(const std::filesystem::path& file, Guard guard);
    // Loading a control has shown that something of it would be lost: the next save is refused.
    void noteDoubt(const std::string& controlId, const std::string& doubt);
    // Why the next save would be refused, as far as that is known.
    const std::map<std::string, std::string>& doubts() const { return doubts_; }

    // Somebody else changed or removed the file since it was read. A change that leaves size and
    // time as they were, which is possible right after the reading, is found by its bytes.
    bool changedOnDisk() const;
    // The file's bytes as they are now. Throws FileError.
    WholeFile readTheirs() const;
    // The file's content becomes the page's, as a step.
    void takeTheirs(WholeFile theirs);
    // The next save replaces the file as it is now.
    void keepMine(WholeFile theirs);
    // The file is gone; the next save makes it anew.
    void keepWithoutFile();

    // The site's configuration may be another. Throws ConfigurationError.
    void refreshSite(Sites& sites);

  Q_SIGNALS:
    // The content is another.
    void contentChanged();
    // What is read of the page besides its content: modified, saved, steps, doubts.
    void stateChanged();
    // The page's file or its site is another: controls have to be made anew.
    void placeChanged();

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
    std::map<std::string, std::string> doubts_;  // by control
    Sites* sites_ = nullptr;
};

}  // namespace headerdtc::qt
