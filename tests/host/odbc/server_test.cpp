#include "translation_site.h"

#include <arpa/inet.h>
#include <chrono>
#include <gmock/gmock.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace headerdtc {
namespace {

using namespace ::testing;
using namespace std::chrono_literals;

// What only a server can do to a client. Runs beside with-server.sh.
using Server = headerdtc::testing::TranslationSite;
using ServerStops = headerdtc::testing::TranslationSite;

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

TEST_F(Server, ThatNeverAnswersEndsInAReportAfterTheLogOnsTime) {
    const SilentPort silent;
    const headerdtc::testing::TempFolder folder;
    auto settings = translations.settings;
    const std::string driver =
        translations.kind == "postgresql" ? "PostgreSQL Unicode" : "MariaDB Unicode";
    settings.odbcIni =
        folder.write("odbc.ini", "[Orvane]\nDriver = " + driver +
                                     "\nServer = 127.0.0.1\nDatabase = orvane\nPort = " +
                                     std::to_string(silent.number) + "\n");
    settings.connectTimeout = 1s;
    database = OdbcDatabase(settings);
    const auto begin = std::chrono::steady_clock::now();
    openValues(pressing("CancelButton"));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 15s);
    EXPECT_THAT(outside.messages.shown, ElementsAre(StartsWith("Error in 'Init': ")));
}

TEST_F(Server, IsSpokenToInUtf8ThroughADriverThatTakesBytes) {
    if (translations.kind != "postgresql") GTEST_SKIP() << "no such driver for this server";
    auto settings = translations.settings;
    settings.connectString = settings.labelConnectString = "DSN=OrvaneAnsi;UID=WWWappsOrvane;PWD=";
    database = OdbcDatabase(settings);
    TranslationStore store(dtc.surroundings);
    store.AddLabel("SLBDA3", "Κατάσταση 状態 𝄞?");
    EXPECT_EQ(store.LabelText("SLBDA3"), "Κατάσταση 状態 𝄞?");
    database = OdbcDatabase(translations.settings);
    EXPECT_EQ(store.LabelText("SLBDA3"), "Κατάσταση 状態 𝄞?");
}

TEST_F(ServerStops, InTheMiddleOfAnOperationAndBetweenTwo) {
    translations.run(
        "INSERT INTO I18NTEXT (LABEL, TEXT, LOCALEID) VALUES ('SLBDA2001', 'Open', 1033)");
    translations.run(
        "INSERT INTO I18NFIELDVALUES (PROVIDERNAME, BISTYPE, FIELDNAME, FIELDVALUE, LABEL) VALUES "
        "('Orders', 'zeko', 'STATUS', '10', 'SLBDA2001')");
    auto settings = translations.settings;
    settings.connectTimeout = settings.statementTimeout = 60s;
    database = OdbcDatabase(settings);
    const auto begin = std::chrono::steady_clock::now();
    openValues([this](Form& form) {
        chooseLabel(form, 1, "SLBDA2001");
        // The change waits for this transaction until the server is gone.
        const auto other = translations.connect();
        other->BeginTrans();
        other->Execute("UPDATE I18NFIELDVALUES SET LABEL = 'x'", nullptr, -1);
        std::thread stopper([this] {
            std::this_thread::sleep_for(500ms);
            translations.stopServer();
        });
        press(form, "OKButton");
        stopper.join();
        EXPECT_TRUE(form.Visible());
        press(form, "OKButton");
        EXPECT_TRUE(form.Visible());
        press(form, "CancelButton");
    });
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 20s);
    EXPECT_THAT(outside.messages.shown, ElementsAre(StartsWith("Error in 'OKButton_Click': "),
                                                    StartsWith("Error in 'OKButton_Click': ")));
}

}  // namespace
}  // namespace headerdtc
