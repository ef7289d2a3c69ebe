#include "qt/editor/start/recent_files.h"

#include <QSettings>

namespace headerdtc::qt {
namespace {

constexpr qsizetype MostFiles = 12;
constexpr const char* Key = "recentPages";

}  // namespace

QStringList RecentFiles::files() const {
    return QSettings().value(Key).toStringList();
}

void RecentFiles::add(const QString& file) {
    QStringList list = files();
    list.removeAll(file);
    list.prepend(file);
    QSettings().setValue(Key, QStringList(list.mid(0, MostFiles)));
    Q_EMIT changed();
}

void RecentFiles::clear() {
    QSettings().remove(Key);
    Q_EMIT changed();
}

}  // namespace headerdtc::qt
