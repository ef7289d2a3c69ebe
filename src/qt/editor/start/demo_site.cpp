#include "qt/editor/start/demo_site.h"

#include "qt/editor/base/words.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <stdexcept>

namespace headerdtc::qt {
namespace {

namespace fs = std::filesystem;

constexpr const char* SiteMark = "headerdtc.toml";
constexpr const char* MakeTranslations = "make-translations";
constexpr const char* TranslationsFile = "translations.sqlite";
constexpr int MakeTranslationsMilliseconds = 20000;

QString tr(const char* text) {
    return QCoreApplication::translate("DemoSite", text);
}

// The copy's own database, so that what is tried in it stays in it.
QString makeTranslations(const fs::path& site) {
    std::error_code failure;
    if (fs::exists(site / TranslationsFile, failure)) return {};
    QProcess process;
    process.setProgram(QStringLiteral("bash"));
    process.setArguments({toName(site / MakeTranslations)});
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start();
    const bool done = process.waitForFinished(MakeTranslationsMilliseconds) &&
                      process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    if (done) return {};
    return tr(
        "The demo's translation database could not be made, so the I18N tab will report "
        "errors. Install sqlite3 and run make-translations in the demo's folder.");
}

}  // namespace

std::optional<fs::path> findDemoSite() {
    QStringList places = QStandardPaths::locateAll(QStandardPaths::GenericDataLocation,
                                                   QStringLiteral("headerdtc/demo"),
                                                   QStandardPaths::LocateDirectory);
    // Installed elsewhere than where the desktop looks, or not installed at all.
    places.prepend(QCoreApplication::applicationDirPath() +
                   QLatin1String("/../share/headerdtc/demo"));
#ifdef HEADERDTC_SOURCE_DEMO
    places.append(QStringLiteral(HEADERDTC_SOURCE_DEMO));
#endif
    for (const QString& place : places) {
        if (QFile::exists(place + QLatin1Char('/') + QLatin1String(SiteMark)))
            return toPath(QDir::cleanPath(place));
    }
    return std::nullopt;
}

fs::path demoPage(const fs::path& site) {
    return site / "customers" / "regions" / "overview.asp";
}

QString copyDemoSite(const fs::path& from, const fs::path& to) {
    std::error_code failure;
    if (fs::exists(to, failure) && !fs::is_empty(to, failure))
        throw std::runtime_error(tr("The folder is not empty; choose another one.").toStdString());
    fs::create_directories(to, failure);
    if (!failure) fs::copy(from, to, fs::copy_options::recursive, failure);
    if (failure) throw std::runtime_error(failure.message());
    return makeTranslations(to);
}

}  // namespace headerdtc::qt
