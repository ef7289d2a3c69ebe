#include "qt/editor/version.h"
#include "qt/editor/window/icons.h"
#include "qt/editor/window/main_window.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFile>
#include <QStandardPaths>
#include <QTimer>
#include <csignal>

using namespace headerdtc::qt;

namespace {

std::filesystem::path toPath(const QString& name) {
    return QFile::encodeName(name).toStdString();
}

}  // namespace

int main(int argc, char** argv) {
    // A file that would become too large is a failure to be reported, not the end.
    std::signal(SIGXFSZ, SIG_IGN);
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("headerdtc"));
    QApplication::setApplicationDisplayName(QStringLiteral("HeaderDTC page editor"));
    QApplication::setApplicationVersion(QStringLiteral(HEADERDTC_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("headerdtc-editor"));
    QApplication::setWindowIcon(applicationIcon());

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Edits the data headers of dashboard pages.\n\nWithout --config, a page's "
                       "site configuration is the headerdtc.toml in its folder or the nearest one "
                       "above it; the environment variable HEADERDTC_CONFIG names another."));
    const QCommandLineOption configuration(
        QStringLiteral("config"), QStringLiteral("The site's configuration for every page."),
        QStringLiteral("file"), qEnvironmentVariable("HEADERDTC_CONFIG"));
    parser.addOption(configuration);
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("page"),
                                 QStringLiteral("Pages to open; a folder opens as a site."),
                                 QStringLiteral("[--] [page...]"));
    parser.process(application);

    MainWindow::Options options;
    if (const QString file = parser.value(configuration); !file.isEmpty())
        options.configuration = toPath(file);
    options.recoveryFolder =
        toPath(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)) / "recovery";
    MainWindow window(options);
    window.show();
    for (const QString& page : parser.positionalArguments())
        window.openAnything(toPath(page));
    // When the window stands and can be asked over.
    QTimer::singleShot(0, &window, &MainWindow::offerRecovery);
    return QApplication::exec();
}
