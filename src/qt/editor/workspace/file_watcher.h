#pragma once

#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>
#include <filesystem>
#include <set>

namespace headerdtc::qt {

// Notices when files may have changed: at once where the system reports it, and whenever the
// program gets the focus again. Whether one really has changed is for its owner to check.
class FileWatcher : public QObject {
    Q_OBJECT

  public:
    explicit FileWatcher(QObject* parent = nullptr);

    void watch(const std::set<std::filesystem::path>& files);

  Q_SIGNALS:
    // Something happened to one of the files, or could have.
    void mayHaveChanged();

  private:
    void watchAgain();

    QFileSystemWatcher watcher_;
    std::set<std::filesystem::path> files_;
    QTimer soon_;
};

}  // namespace headerdtc::qt
