#pragma once

#include "host/doctor/doctor.h"
#include "host/files/whole_file.h"
#include "qt/editor/settings/configuration_text.h"

#include <QDialog>
#include <filesystem>
#include <map>
#include <memory>
#include <vector>

class QLineEdit;
class QToolButton;

namespace Ui {
class SettingsDialog;
}

namespace headerdtc::qt {

// A site's configuration as a form over its headerdtc.toml. Saving changes the values in the file
// and leaves all else in it as it is; a file that could not be read afterwards is not written.
// Beside them stands what is found with them, and where to mend what is not.
class SettingsDialog : public QDialog {
    Q_OBJECT

  public:
    // Throws FileError when the file is there and cannot be read. One that is not there is made.
    explicit SettingsDialog(std::filesystem::path file, QWidget* parent = nullptr);
    ~SettingsDialog() override;

  public Q_SLOTS:
    void accept() override;

  private:
    struct Field {
        std::string section, key;
        QLineEdit* edit;
        QString fallback;  // what holds without the key
    };

    void fillFields();
    void connectDrives();
    void connectChoice(QToolButton& button, QLineEdit& edit, bool folder);
    QString relative(const QString& path) const;
    void addDrive(const QString& letter, const QString& folder);
    void examine();
    void showSetup(std::vector<Diagnosis> setup);
    QWidget* mendOf(const std::string& link);
    std::string changed() const;
    // Why a text cannot be the file's; empty when it can.
    QString problemOf(const std::string& bytes) const;

    std::filesystem::path file_;
    WholeFile old_;
    ConfigurationText text_;
    std::vector<Field> fields_;
    std::unique_ptr<Ui::SettingsDialog> ui_;
};

}  // namespace headerdtc::qt
