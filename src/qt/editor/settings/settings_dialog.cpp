#include "qt/editor/settings/settings_dialog.h"

#include "host/doctor/doctor.h"
#include "host/files/file_replacer.h"
#include "host/site/site_configuration.h"
#include "qt/editor/base/icons.h"
#include "qt/editor/base/words.h"
#include "ui_settings_dialog.h"

#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QPointer>
#include <QThreadPool>
#include <algorithm>
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

// In the order of Health.
constexpr const char* HealthIcons[] = {"dialog-ok", "dialog-warning", "dialog-error", ""};

}  // namespace

SettingsDialog::SettingsDialog(std::filesystem::path file, QWidget* parent)
    : QDialog(parent),
      file_(std::move(file)),
      old_(readOrNothing(file_)),
      text_(file_, old_.bytes),
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
    connect(ui_->LookAgainButton, &QPushButton::clicked, this, &SettingsDialog::examine);
    ui_->SetupList->header()->setStretchLastSection(false);
    ui_->SetupList->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    ui_->SetupList->header()->setSectionResizeMode(1, QHeaderView::Stretch);
    connect(ui_->AnswerButtons, &QDialogButtonBox::accepted, this, &SettingsDialog::accept);
    connect(ui_->AnswerButtons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    resize(760, sizeHint().height());
    examine();
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
        if (folder.isEmpty()) return;
        drives.item(drives.currentRow(), 1)->setText(relative(folder));
        examine();
    });
}

void SettingsDialog::connectChoice(QToolButton& button, QLineEdit& edit, bool folder) {
    connect(&button, &QToolButton::clicked, this, [this, &edit, folder] {
        const QString begin = QDir(toName(file_.parent_path())).absoluteFilePath(edit.text());
        const QString chosen =
            folder ? QFileDialog::getExistingDirectory(this, tr("Choose a folder"), begin)
                   : QFileDialog::getOpenFileName(this, tr("Choose a file"), begin);
        if (chosen.isEmpty()) return;
        edit.setText(relative(chosen));
        examine();
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

// Looks at the site as it would be with what the form says.
void SettingsDialog::examine() {
    const std::string bytes = changed();
    if (const QString problem = problemOf(bytes); !problem.isEmpty())
        return showSetup({{"configuration", Health::Broken, fromQt(problem), {}}});
    ui_->LookAgainButton->setEnabled(false);
    ui_->SetupSummary->setText(tr("Looking..."));
    // A server that does not answer keeps only the look waiting.
    QThreadPool::globalInstance()->start([configuration = readSiteConfiguration(file_, bytes),
                                          self = QPointer<SettingsDialog>(this)] {
        const auto setup = examineSite(configuration);
        QMetaObject::invokeMethod(QCoreApplication::instance(), [setup, self] {
            if (self) self->showSetup(setup);
        });
    });
}

// What is to be done comes first.
void SettingsDialog::showSetup(std::vector<Diagnosis> setup) {
    std::stable_sort(setup.begin(), setup.end(), [](const Diagnosis& one, const Diagnosis& other) {
        const auto weight = [](Health health) {
            return health == Health::NotLookedAt ? Health::Whole : health;
        };
        return weight(one.health) > weight(other.health);
    });
    int toDo = 0;
    ui_->SetupList->clear();
    for (const Diagnosis& diagnosis : setup) {
        const bool isToDo =
            diagnosis.health == Health::Broken || diagnosis.health == Health::Doubtful;
        toDo += isToDo ? 1 : 0;
        QWidget* mend = isToDo ? mendOf(diagnosis.link) : nullptr;
        QString text = toQt(diagnosis.detail);
        if (isToDo && !mend && !diagnosis.nextStep.empty())
            text += tr("; %1").arg(toQt(diagnosis.nextStep));
        auto* item = new QTreeWidgetItem(ui_->SetupList, {toQt(diagnosis.link), text});
        item->setIcon(0, editorIcon(HealthIcons[static_cast<std::size_t>(diagnosis.health)]));
        item->setToolTip(1, diagnosis.nextStep.empty()
                                ? text
                                : text + QLatin1Char('\n') + toQt(diagnosis.nextStep));
        if (!mend) continue;
        auto* button = new QPushButton(tr("Mend..."));
        button->setAccessibleName(tr("Mend: %1").arg(toQt(diagnosis.link)));
        connect(button, &QPushButton::clicked, mend, [mend] {
            mend->setFocus();
            if (auto* chooser = qobject_cast<QAbstractButton*>(mend)) chooser->click();
        });
        ui_->SetupList->setItemWidget(item, 2, button);
    }
    ui_->LookAgainButton->setEnabled(true);
    ui_->SetupSummary->setText(toDo == 0 ? tr("Everything is there.")
                                         : tr("%1 to mend").arg(counted(toDo, "thing", "things")));
}

// What of the form mends a link of the set-up: a button that chooses, or a field to write in.
QWidget* SettingsDialog::mendOf(const std::string& link) {
    const std::pair<const char*, QWidget*> mends[] = {
        {"project root", ui_->ChooseProject},
        {"registry export", ui_->ChooseRegistry},
        {"catalogue", ui_->ChooseCatalogue},
        {"drive ", ui_->DrivesTable},
        {"install directory", ui_->DrivesTable},
        {"data source for labels", ui_->LabelConnectString},
        {"log-on for labels", ui_->LabelConnectString},
        {"data source", ui_->ConnectString},
        {"log-on", ui_->ConnectString}};
    for (const auto& [begin, mend] : mends) {
        if (link.starts_with(begin)) return mend;
    }
    return nullptr;
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
    try {
        readSiteConfiguration(file_, bytes);
        return {};
    } catch (const FileError& error) {
        return tr("line %1: %2").arg(error.line()).arg(toQt(error.problem()));
    }
}

void SettingsDialog::accept() {
    const std::string bytes = changed();
    if (old_.stamp.size >= 0 && bytes == old_.bytes) return QDialog::accept();
    if (const QString problem = problemOf(bytes); !problem.isEmpty()) {
        QMessageBox::warning(this, windowTitle(),
                             tr("The settings were not saved.\n\n%1").arg(problem));
        return;
    }
    try {
        writeWholeFile(file_, bytes, old_.stamp);
    } catch (const FileError& error) {
        QMessageBox::critical(
            this, windowTitle(),
            tr("The settings were not saved.\n\n%1").arg(QString::fromStdString(error.what())));
        return;
    }
    QDialog::accept();
}

}  // namespace headerdtc::qt
