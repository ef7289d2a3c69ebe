#pragma once

#include <QDateTime>
#include <QString>
#include <QThreadPool>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

class QLockFile;

namespace headerdtc::qt {

// A page with changes that were not saved.
struct RecoveryCopy {
    std::filesystem::path page;
    bool hasFile = true;  // the page had a file, and not only a name for one
    std::string base;     // that file when it was last read or saved
    std::string bytes;
    QDateTime when;
    std::filesystem::path copy;  // where the copy itself lies
};

// Copies of unsaved pages, so that a crash costs seconds. Each running editor has a folder of its
// own with a lock in it; what lies in a folder whose editor has ended without cleaning up was left
// behind by a crash. Copies are written aside, whole or not at all.
class RecoveryStore {
  public:
    // `folder` holds the folders of all editors; it is made when the first copy is.
    explicit RecoveryStore(std::filesystem::path folder);
    // Removes its own folder: by now the author has been asked about every change.
    ~RecoveryStore();
    RecoveryStore(const RecoveryStore&) = delete;
    RecoveryStore& operator=(const RecoveryStore&) = delete;

    // Keeps a page's copy under a key of the editor's, in place of the one before.
    void keep(const QString& key, RecoveryCopy copy);
    void forget(const QString& key);
    // Whether a copy under this key is on disk.
    bool holds(const QString& key) const;
    // Waits until everything is on disk; for the tests, and before the program ends.
    void flush();

    // Copies of editors that have crashed, the latest first. Damaged ones are passed over.
    std::vector<RecoveryCopy> leftBehind() const;
    // Removes one of them.
    static void discard(const RecoveryCopy& copy);

  private:
    std::filesystem::path ownFile(const QString& key) const;
    bool open();

    std::filesystem::path folder_;
    std::filesystem::path own_;
    std::unique_ptr<QLockFile> lock_;
    QThreadPool writer_;  // one thread, so that writing and forgetting stay in order
};

}  // namespace headerdtc::qt
