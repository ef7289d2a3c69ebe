#pragma once

#include <QObject>
#include <QStringList>

namespace headerdtc::qt {

// The pages that were opened last, the latest first; kept in the user's settings.
class RecentFiles : public QObject {
    Q_OBJECT

  public:
    using QObject::QObject;

    QStringList files() const;
    void add(const QString& file);
    void clear();

  Q_SIGNALS:
    void changed();
};

}  // namespace headerdtc::qt
