#include "qt/editor/workspace/file_watcher.h"

#include "qt/editor/base/words.h"

#include <QFile>
#include <QGuiApplication>

namespace headerdtc::qt {
namespace {

// Programs replace files in several steps; the last one counts.
constexpr int SettleMilliseconds = 200;

}  // namespace

FileWatcher::FileWatcher(QObject* parent) : QObject(parent) {
    soon_.setSingleShot(true);
    soon_.setInterval(SettleMilliseconds);
    connect(&watcher_, &QFileSystemWatcher::fileChanged, &soon_, qOverload<>(&QTimer::start));
    connect(&watcher_, &QFileSystemWatcher::directoryChanged, &soon_, qOverload<>(&QTimer::start));
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this,
            [this](Qt::ApplicationState state) {
                if (state == Qt::ApplicationActive) soon_.start();
            });
    connect(&soon_, &QTimer::timeout, this, [this] {
        watchAgain();
        Q_EMIT mayHaveChanged();
    });
}

void FileWatcher::watch(const std::set<std::filesystem::path>& files) {
    if (files == files_) return;
    files_ = files;
    const QStringList watched = watcher_.files() + watcher_.directories();
    if (!watched.isEmpty()) watcher_.removePaths(watched);
    watchAgain();
}

// A file that was replaced is another file, which the system does not watch yet; its folder tells
// when one comes back that was gone.
void FileWatcher::watchAgain() {
    const QStringList files = watcher_.files();
    const QStringList folders = watcher_.directories();
    for (const auto& file : files_) {
        const QString name = toName(file);
        const QString folder = toName(file.parent_path());
        if (!files.contains(name) && QFile::exists(name)) watcher_.addPath(name);
        if (!folders.contains(folder) && QFile::exists(folder)) watcher_.addPath(folder);
    }
}

}  // namespace headerdtc::qt
