#include "translation_database.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>

namespace headerdtc::server_test {

using namespace std::chrono_literals;

// What only a server can do to a client. Runs beside with-server.sh.
using Server = TranslationSite;
using ServerStops = TranslationSite;

// A port of this machine at which connections are accepted and never answered.
class SilentPort {
  public:
    SilentPort() : socket_(socket(AF_INET, SOCK_STREAM, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto* generic = reinterpret_cast<sockaddr*>(&address);
        if (bind(socket_, generic, size) != 0 || listen(socket_, 5) != 0 ||
            getsockname(socket_, generic, &size) != 0)
            throw std::runtime_error("no port");
        number = ntohs(address.sin_port);
    }
    SilentPort(const SilentPort&) = delete;
    SilentPort& operator=(const SilentPort&) = delete;
    ~SilentPort() { close(socket_); }

    int number = 0;

  private:
    int socket_;
};

TEST_F(Server, ThatNeverAnswersFailsAfterTheLogOnsTime) {
    const SilentPort silent;
    const TempFolder folder;
    auto settings = translations.settings;
    const std::string driver =
        translations.kind == "postgresql" ? "PostgreSQL Unicode" : "MariaDB Unicode";
    settings.odbcIni =
        folder.write("odbc.ini", "[Orvane]\nDriver = " + driver +
                                     "\nServer = 127.0.0.1\nDatabase = orvane\nPort = " +
                                     std::to_string(silent.number) + "\n");
    settings.connectTimeout = 1s;
    database = OdbcDatabase(settings);
    EXPECT_THROW(store.ListLabels(), RuntimeError);
}

TEST_F(Server, IsSpokenToInUtf8ThroughADriverThatTakesBytes) {
    if (translations.kind != "postgresql") GTEST_SKIP() << "no such driver for this server";
    logOn("DSN=OrvaneAnsi;UID=WWWappsOrvane;PWD=");
    store.AddLabel("SLBDA3", "Κατάσταση 状態 𝄞?");
    EXPECT_EQ(store.LabelText("SLBDA3"), "Κατάσταση 状態 𝄞?");
    database = OdbcDatabase(translations.settings);
    EXPECT_EQ(store.LabelText("SLBDA3"), "Κατάσταση 状態 𝄞?");
}

TEST_F(ServerStops, InTheMiddleOfAnOperationAndBetweenTwo) {
    store.AddLabel("SLBDA2001", "Open");
    auto settings = translations.settings;
    settings.connectTimeout = settings.statementTimeout = 60s;
    database = OdbcDatabase(settings);
    // The change waits for this transaction until the server is gone.
    const auto other = translations.connect();
    other->BeginTrans();
    other->Execute("UPDATE I18NTEXT SET STATUS = 7", nullptr, -1);
    std::thread stopper([this] {
        std::this_thread::sleep_for(500ms);
        translations.stopServer();
    });
    EXPECT_THROW(store.AddLabel("SLBDA2001", "Shut"), RuntimeError);
    stopper.join();
    EXPECT_THROW(store.AddLabel("SLBDA2001", "Shut"), RuntimeError);
}

}  // namespace headerdtc::server_test
