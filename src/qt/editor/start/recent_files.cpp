#include "qt/editor/start/recent_files.h"

#include <QSettings>

namespace headerdtc::qt {
namespace {

constexpr qsizetype MostFiles = 12;
constexpr const char* RecentPagesKey = "recentPages";

}  // namespace

QStringList RecentFiles::files() const {
    return QSettings().value(RecentPagesKey).toStringList();
}

void RecentFiles::add(const QString& file) {
    QStringList list = files();
    list.removeAll(file);
    list.prepend(file);
    QSettings().setValue(RecentPagesKey, QStringList(list.mid(0, MostFiles)));
    Q_EMIT changed();
}

void RecentFiles::clear() {
    QSettings().remove(RecentPagesKey);
    Q_EMIT changed();
}

}  // namespace headerdtc::qt
