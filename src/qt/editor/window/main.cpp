#include "qt/editor/base/icons.h"
#include "qt/editor/base/words.h"
#include "qt/editor/version.h"
#include "qt/editor/window/main_window.h"
#include "qt/editor/window/opener.h"
#include "qt/surface/shades.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QSettings>
#include <QStandardPaths>
#include <QStyle>
#include <QTimer>
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string_view>

using namespace headerdtc::qt;

namespace {

constexpr int WrongUsage = 2;  // as the command line has it

// Without a screen Qt would abort, before it has looked at --help.
bool hasScreen(int argc, char** argv) {
    for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        if (!qEnvironmentVariableIsEmpty(variable)) return true;
    }
    return std::any_of(argv, argv + argc, [](std::string_view argument) {
        return argument == "-platform" || argument == "--platform";
    });
}

struct CommandLine {
    CommandLine() {
        parser.setApplicationDescription(QStringLiteral(
            "Edits the data headers of dashboard pages.\n\nWithout --config, a page's "
            "site configuration is the headerdtc.toml in its folder or the nearest one "
            "above it; the environment variable HEADERDTC_CONFIG names another."));
        parser.addOption(configuration);
        parser.addHelpOption();
        parser.addVersionOption();
        parser.addPositionalArgument(QStringLiteral("page"),
                                     QStringLiteral("Pages to open; a folder opens as a site."),
                                     QStringLiteral("[--] [page...]"));
    }

    // Ends the program where its words ask for help or are wrong.
    void read(const QCoreApplication& application) {
        // The program's own name is told; settings and copies lie under the project's.
        QCoreApplication::setApplicationName(QStringLiteral("headerdtc-editor"));
        if (!parser.parse(QCoreApplication::arguments())) {
            std::fprintf(stderr, "headerdtc-editor: %s\nSee headerdtc-editor --help.\n",
                         qPrintable(parser.errorText()));
            std::exit(WrongUsage);
        }
        parser.process(application);
        QCoreApplication::setApplicationName(QStringLiteral("headerdtc"));
    }

    QCommandLineParser parser;
    QCommandLineOption configuration{
        QStringLiteral("config"), QStringLiteral("The site's configuration for every page."),
        QStringLiteral("file"), qEnvironmentVariable("HEADERDTC_CONFIG")};
};

// Earlier versions kept the settings where Qt does without the name of an organization.
void takeOldSettingsOver() {
    QSettings settings;
    const QSettings old(QStringLiteral("Unknown Organization"), settings.applicationName());
    if (!settings.allKeys().isEmpty()) return;
    for (const QString& key : old.allKeys())
        settings.setValue(key, old.value(key));
}

int complainOfNoScreen(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    CommandLine().read(application);
    std::fputs(
        "headerdtc-editor: there is no screen; neither DISPLAY nor WAYLAND_DISPLAY names "
        "one.\nWithout a screen, pages are edited with headerdtc automate.\n",
        stderr);
    return WrongUsage;
}

}  // namespace

int main(int argc, char** argv) {
    // A file that would become too large is a failure to be reported, not the end.
    std::signal(SIGXFSZ, SIG_IGN);
    QCoreApplication::setApplicationName(QStringLiteral("headerdtc"));
    QCoreApplication::setOrganizationName(QStringLiteral("headerdtc"));
    QCoreApplication::setApplicationVersion(QStringLiteral(HEADERDTC_VERSION));
    if (!hasScreen(argc, argv)) return complainOfNoScreen(argc, argv);
    const QApplication application(argc, argv);
    if (const QString style = QApplication::style()->name(); style == QLatin1String("fusion"))
        QApplication::setStyle(new ReadableStyle(style));
    QApplication::setDesktopFileName(QStringLiteral("headerdtc-editor"));
    QApplication::setWindowIcon(applicationIcon());
    CommandLine commandLine;
    commandLine.read(application);

    takeOldSettingsOver();
    MainWindow::Options options;
    if (const QString file = commandLine.parser.value(commandLine.configuration); !file.isEmpty())
        options.configuration = toPath(file);
    options.recoveryFolder =
        toPath(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)) /
        "headerdtc" / "recovery";
    MainWindow window(options);
    window.show();
    // The focus is to be seen from the start, not only once Tab has moved it.
    window.setAttribute(Qt::WA_KeyboardFocusChange);
    for (const QString& page : commandLine.parser.positionalArguments())
        window.opener().openAnything(toPath(page));
    // Once the window is shown and dialogs can open over it.
    QTimer::singleShot(0, &window, &MainWindow::offerRecovery);
    return QApplication::exec();
}
