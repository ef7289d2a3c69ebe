#include "qt/editor/settings/settings_dialog.h"

#include "host/files/file_replacer.h"
#include "host/odbc/odbc_database.h"
#include "host/site/site_configuration.h"
#include "platform/runtime_error.h"
#include "qt/editor/base/icons.h"
#include "qt/editor/base/words.h"
#include "ui_settings_dialog.h"

#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QPointer>
#include <QTemporaryDir>
#include <QThreadPool>
#include <utility>

namespace headerdtc::qt {
namespace {

constexpr const char* Drives = "drives";
constexpr const char* Translations = "translations";
constexpr const char* CommonCodePages[] = {"windows-1252", "utf-8",        "iso-8859-1",
                                           "iso-8859-15",  "windows-1250", "windows-1253"};

WholeFile readOrNothing(const std::filesystem::path& file) {
    const FileStamp stamp = FileStamp::of(file);
    if (stamp.size < 0) return {{}, stamp};
    return readWholeFile(file);
}

struct ConnectionResult {
    bool connected;
    QString text;
};

// Whether the connect string leads to a translation database.
ConnectionResult tryToConnect(const OdbcDatabase::Settings& settings) {
    constexpr int Unspecified = -1;
    OdbcDatabase database(settings);
    bool connected = false;
    try {
        const auto connection = database.createConnection();
        connection->Open(settings.connectString, {}, {}, Unspecified);
        connected = true;
        const auto rows =
            connection->Execute("SELECT COUNT(*) AS TEXTS FROM I18NTEXT", nullptr, Unspecified);
        const QString count = QString::fromStdString(rows->Item("TEXTS").Value());
        connection->Close();
        return {true, SettingsDialog::tr("Connected; the table I18NTEXT has %1 rows.").arg(count)};
    } catch (const RuntimeError& error) {
        const QString text = QString::fromStdString(error.description()) +
                             QStringLiteral(" (%1)").arg(error.number());
        return {
            false,
            connected
                ? SettingsDialog::tr("Connected, but this is no translation database: %1").arg(text)
                : text};
    }
}

}  // namespace

SettingsDialog::SettingsDialog(std::filesystem::path file, QWidget* parent)
    : QDialog(parent),
      file_(std::move(file)),
      old_(readOrNothing(file_)),
      text_(old_.bytes),
      ui_(std::make_unique<Ui::SettingsDialog>()) {
    ui_->setupUi(this);
    setIcons(*this);
    ui_->FileLabel->setText(
        old_.stamp.size < 0
            ? tr("This site has no configuration yet. Saving makes %1.").arg(toName(file_))
            : toName(file_));
    fillFields();
    connectDrives();
    connectChoice(*ui_->ChooseProject, *ui_->ProjectRoot, true);
    connectChoice(*ui_->ChooseRegistry, *ui_->RegistryFile, false);
    connectChoice(*ui_->ChooseCatalogue, *ui_->CatalogueFile, false);
    connectChoice(*ui_->ChooseOdbcIni, *ui_->OdbcIni, false);
    connect(ui_->TestConnectionButton, &QPushButton::clicked, this,
            &SettingsDialog::testConnection);
    connect(ui_->AnswerButtons, &QDialogButtonBox::accepted, this, &SettingsDialog::accept);
    connect(ui_->AnswerButtons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    resize(640, sizeHint().height());
}

SettingsDialog::~SettingsDialog() = default;

// ---- the form -----------------------------------------------------------------------------------

void SettingsDialog::fillFields() {
    for (const char* name : CommonCodePages)
        ui_->CodePageCombo->addItem(QLatin1String(name));
    ui_->CodePageCombo->setCurrentText(
        QString::fromStdString(text_.get("", "code_page").value_or(CommonCodePages[0])));
    const QString dsn = QStringLiteral("DSN=Orvane;UID=WWWappsOrvane;PWD=");
    fields_ = {{"project", "root", ui_->ProjectRoot, QStringLiteral(".")},
               {"", "registry", ui_->RegistryFile, QStringLiteral("velmora.reg")},
               {"datasource", "catalogue", ui_->CatalogueFile, QStringLiteral("catalogue.json")},
               {Translations, "connect_string", ui_->ConnectString, dsn},
               {Translations, "label_connect_string", ui_->LabelConnectString, dsn},
               {Translations, "odbc_ini", ui_->OdbcIni, {}}};
    for (const Field& field : fields_) {
        field.edit->setObjectName(QString::fromStdString(field.section + '.' + field.key));
        const auto value = text_.get(field.section, field.key);
        field.edit->setText(value ? QString::fromStdString(*value) : field.fallback);
        field.edit->setCursorPosition(0);
    }
}

void SettingsDialog::connectDrives() {
    QTableWidget& drives = *ui_->DrivesTable;
    drives.verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    for (const auto& [letter, folder] : text_.entries(Drives))
        addDrive(QString::fromStdString(letter), QString::fromStdString(folder));
    connect(ui_->AddDrive, &QPushButton::clicked, this, [this, &drives] {
        addDrive({}, {});
        drives.setCurrentCell(drives.rowCount() - 1, 0);
        drives.editItem(drives.currentItem());
    });
    connect(ui_->RemoveDrive, &QPushButton::clicked, this,
            [&drives] { drives.removeRow(drives.currentRow()); });
    connect(ui_->ChooseDriveFolder, &QPushButton::clicked, this, [this, &drives] {
        if (drives.currentRow() < 0) return;
        const QString folder = QFileDialog::getExistingDirectory(this, tr("Folder of the drive"),
                                                                 toName(file_.parent_path()));
        if (!folder.isEmpty()) drives.item(drives.currentRow(), 1)->setText(relative(folder));
    });
}

void SettingsDialog::connectChoice(QToolButton& button, QLineEdit& edit, bool folder) {
    connect(&button, &QToolButton::clicked, this, [this, &edit, folder] {
        const QString begin = QDir(toName(file_.parent_path())).absoluteFilePath(edit.text());
        const QString chosen =
            folder ? QFileDialog::getExistingDirectory(this, tr("Choose a folder"), begin)
                   : QFileDialog::getOpenFileName(this, tr("Choose a file"), begin);
        if (!chosen.isEmpty()) edit.setText(relative(chosen));
    });
}

// Below the site's folder as the file writes it, elsewhere in full.
QString SettingsDialog::relative(const QString& path) const {
    const QString name = QDir(toName(file_.parent_path())).relativeFilePath(path);
    return name.startsWith(QLatin1String("..")) ? path : name;
}

void SettingsDialog::addDrive(const QString& letter, const QString& folder) {
    const int row = ui_->DrivesTable->rowCount();
    ui_->DrivesTable->insertRow(row);
    ui_->DrivesTable->setItem(row, 0, new QTableWidgetItem(letter));
    ui_->DrivesTable->setItem(row, 1, new QTableWidgetItem(folder));
}

// ---- what it does -------------------------------------------------------------------------------

std::string SettingsDialog::valueOf(const char* section, const char* key) const {
    for (const Field& field : fields_) {
        if (field.section == section && field.key == key) return field.edit->text().toStdString();
    }
    return {};
}

void SettingsDialog::testConnection() {
    OdbcDatabase::Settings settings;
    settings.connectString = valueOf(Translations, "connect_string");
    settings.labelConnectString = valueOf(Translations, "label_connect_string");
    settings.siteFolder = file_.parent_path();
    const std::string odbcIni = valueOf(Translations, "odbc_ini");
    if (!odbcIni.empty()) settings.odbcIni = settings.siteFolder / odbcIni;
    ui_->TestConnectionButton->setEnabled(false);
    ui_->TestConnectionResult->setText(tr("Connecting..."));
    // A server that does not answer keeps only the test waiting.
    QThreadPool::globalInstance()->start([settings, self = QPointer<SettingsDialog>(this)] {
        const ConnectionResult result = tryToConnect(settings);
        QMetaObject::invokeMethod(QCoreApplication::instance(), [result, self] {
            if (!self) return;
            self->ui_->TestConnectionButton->setEnabled(true);
            self->ui_->TestConnectionResult->setText(result.text);
            self->ui_->TestConnectionResult->setProperty("connected", result.connected);
        });
    });
}

std::string SettingsDialog::changed() const {
    ConfigurationText text = text_;
    const auto put = [&](const std::string& section, const std::string& key, const QString& value,
                         const QString& fallback) {
        // A default value needs no line of its own.
        if (text.get(section, key) ? false : value == fallback) return;
        if (value.isEmpty()) {
            text.remove(section, key);
        } else {
            text.set(section, key, value.toStdString());
        }
    };
    put({}, "code_page", ui_->CodePageCombo->currentText(), QLatin1String(CommonCodePages[0]));
    for (const Field& field : fields_)
        put(field.section, field.key, field.edit->text(), field.fallback);

    std::map<std::string, std::string> wanted;
    for (int row = 0; row < ui_->DrivesTable->rowCount(); ++row) {
        const QString letter = ui_->DrivesTable->item(row, 0)->text().trimmed();
        if (!letter.isEmpty())
            wanted[letter.toStdString()] = ui_->DrivesTable->item(row, 1)->text().toStdString();
    }
    for (const auto& [letter, folder] : text.entries(Drives)) {
        if (!wanted.contains(letter)) text.remove(Drives, letter);
    }
    for (const auto& [letter, folder] : wanted)
        text.set(Drives, letter, folder);
    return text.bytes();
}

QString SettingsDialog::problemOf(const std::string& bytes) const {
    const QTemporaryDir folder;
    const std::filesystem::path trial = toPath(folder.path()) / file_.filename();
    try {
        FileReplacer replacer;
        replacer.create(trial, bytes);
        replacer.commit();
        const SiteConfiguration read = readSiteConfiguration(trial);
        // A file that says the same in a form which this form does not know is not to be guessed
        // at.
        const std::string connectString = valueOf(Translations, "connect_string");
        if ((!connectString.empty() && read.connectString != connectString) ||
            read.codePage.name() !=
                CodePage(ui_->CodePageCombo->currentText().toStdString()).name())
            return tr(
                "The file is written in a form that this window does not know; please change "
                "it in a text editor.");
        return {};
    } catch (const FileError& error) {
        return error.line() > 0 ? tr("line %1: %2")
                                      .arg(error.line())
                                      .arg(QString::fromStdString(error.problem()))
                                : QString::fromStdString(error.problem());
    } catch (const std::exception& error) {
        return QString::fromStdString(error.what());
    }
}

void SettingsDialog::accept() {
    const std::string bytes = changed();
    if (bytes == old_.bytes) return QDialog::accept();
    if (const QString problem = problemOf(bytes); !problem.isEmpty()) {
        QMessageBox::warning(this, windowTitle(),
                             tr("The settings were not saved.\n\n%1").arg(problem));
        return;
    }
    try {
        if (old_.stamp.size < 0) {
            FileReplacer replacer;
            replacer.create(file_, bytes);
            const std::string problem = replacer.commit().front().problem;
            if (!problem.empty()) throw FileError(file_.string(), problem);
        } else {
            replaceWholeFile(file_, bytes, old_.stamp);
        }
    } catch (const FileError& error) {
        QMessageBox::critical(
            this, windowTitle(),
            tr("The settings were not saved.\n\n%1").arg(QString::fromStdString(error.what())));
        return;
    }
    QDialog::accept();
}

}  // namespace headerdtc::qt
