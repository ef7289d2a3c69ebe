#include <QtWidgets>
#include <gtest/gtest.h>

// The tests' windows need no screen, unless somebody wants to watch, and leave the settings and
// files of whoever runs them alone.
int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QStandardPaths::setTestModeEnabled(true);
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("headerdtc-editor-tests"));
    QApplication::setOrganizationName(QStringLiteral("headerdtc-editor-tests"));
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
