#pragma once

#include "host/odbc/odbc_database.h"

#include <QObject>
#include <QString>
#include <string>

namespace headerdtc::qt {

// Tries whether a connect string leads to a translation database. A server that does not answer
// keeps only the test waiting.
class ConnectionTest : public QObject {
    Q_OBJECT

  public:
    using QObject::QObject;

    void start(const OdbcDatabase::Settings& settings, const std::string& connectString);
    bool isRunning() const { return running_; }

  Q_SIGNALS:
    void finished(bool connected, const QString& text);

  private:
    bool running_ = false;
};

}  // namespace headerdtc::qt
