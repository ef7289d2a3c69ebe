#include "qt/editor/settings/connection_test.h"

#include "platform/runtime_error.h"

#include <QCoreApplication>
#include <QPointer>
#include <QThreadPool>

namespace headerdtc::qt {
namespace {

struct Result {
    bool connected;
    QString text;
};

Result tryToConnect(const OdbcDatabase::Settings& settings, const std::string& connectString) {
    constexpr int Unspecified = -1;
    OdbcDatabase database(settings);
    bool connected = false;
    try {
        const auto connection = database.createConnection();
        connection->Open(connectString, {}, {}, Unspecified);
        connected = true;
        const auto rows =
            connection->Execute("SELECT COUNT(*) AS TEXTS FROM I18NTEXT", nullptr, Unspecified);
        const QString count = QString::fromStdString(rows->Item("TEXTS").Value());
        connection->Close();
        return {true, ConnectionTest::tr("Connected; the table I18NTEXT has %1 rows.").arg(count)};
    } catch (const RuntimeError& error) {
        const QString text = QString::fromStdString(error.description()) +
                             QStringLiteral(" (%1)").arg(error.number());
        return {
            false,
            connected
                ? ConnectionTest::tr("Connected, but this is no translation database: %1").arg(text)
                : text};
    }
}

}  // namespace

void ConnectionTest::start(const OdbcDatabase::Settings& settings,
                           const std::string& connectString) {
    if (running_) return;
    running_ = true;
    QThreadPool::globalInstance()->start(
        [settings, connectString, self = QPointer<ConnectionTest>(this)] {
            const Result result = tryToConnect(settings, connectString);
            QMetaObject::invokeMethod(QCoreApplication::instance(), [result, self] {
                if (!self) return;
                self->running_ = false;
                Q_EMIT self->finished(result.connected, result.text);
            });
        });
}

}  // namespace headerdtc::qt
