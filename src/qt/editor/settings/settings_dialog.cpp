#include "qt/editor/settings/settings_dialog.h"

#include "host/files/file_replacer.h"
#include "host/site/site_configuration.h"
#include "qt/editor/base/icons.h"
#include "qt/editor/base/words.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QToolButton>
#include <QVBoxLayout>
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

}  // namespace

SettingsDialog::SettingsDialog(std::filesystem::path file, QWidget* parent)
    : QDialog(parent), file_(std::move(file)), old_(readOrNothing(file_)), text_(old_.bytes) {
    setObjectName(QStringLiteral("SettingsDialog"));
    setWindowTitle(tr("Site settings"));
    auto* head = new QLabel(
        old_.stamp.size < 0
            ? tr("This site has no configuration yet. Saving makes %1.").arg(toName(file_))
            : toName(file_));
    head->setWordWrap(true);
    head->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Save | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &SettingsDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(head);
    layout->addWidget(siteBox());
    layout->addWidget(drivesBox());
    layout->addWidget(translationsBox());
    layout->addWidget(buttons);
    connect(&connection_, &ConnectionTest::finished, this,
            [this](bool connected, const QString& text) {
                test_->setEnabled(true);
                testResult_->setText(text);
                testResult_->setProperty("connected", connected);
            });
    resize(640, sizeHint().height());
}

// ---- the form -----------------------------------------------------------------------------------

QWidget* SettingsDialog::siteBox() {
    auto* box = new QGroupBox(tr("Site"));
    auto* form = new QFormLayout(box);
    codePage_ = new QComboBox;
    codePage_->setObjectName(QStringLiteral("CodePageCombo"));
    codePage_->setEditable(true);
    for (const char* name : CommonCodePages)
        codePage_->addItem(QLatin1String(name));
    codePage_->setCurrentText(
        QString::fromStdString(text_.get("", "code_page").value_or(CommonCodePages[0])));
    codePage_->setToolTip(tr("Of every page that has no UTF-8 byte-order mark"));
    form->addRow(tr("Code &page:"), codePage_);
    addPathField(*form, tr("&Project folder:"), "project", "root", QStringLiteral("."), true)
        ->setToolTip(tr("The root folder of the web project"));
    addPathField(*form, tr("&Registry export:"), "", "registry", QStringLiteral("velmora.reg"),
                 false)
        ->setToolTip(tr("Says where the suite is installed"));
    addPathField(*form, tr("&Catalogue:"), "datasource", "catalogue",
                 QStringLiteral("catalogue.json"), false)
        ->setToolTip(tr("The data providers and their fields"));
    return box;
}

QWidget* SettingsDialog::drivesBox() {
    auto* box = new QGroupBox(tr("Drives of the suite's Windows paths"));
    drives_ = new QTableWidget(0, 2);
    drives_->setObjectName(QStringLiteral("DrivesTable"));
    drives_->setAccessibleName(box->title());
    drives_->setHorizontalHeaderLabels({tr("Drive"), tr("Folder on this machine")});
    drives_->horizontalHeader()->setStretchLastSection(true);
    drives_->verticalHeader()->hide();
    drives_->setTabKeyNavigation(false);
    drives_->setSelectionBehavior(QAbstractItemView::SelectRows);
    drives_->setMinimumHeight(90);
    drives_->setMaximumHeight(130);
    drives_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 8);
    fillDrives();
    auto* add = new QPushButton(tr("&Add"));
    auto* remove = new QPushButton(tr("Re&move"));
    auto* choose = new QPushButton(tr("&Folder..."));
    connect(add, &QPushButton::clicked, this, [this] {
        addDrive({}, {});
        drives_->setCurrentCell(drives_->rowCount() - 1, 0);
        drives_->editItem(drives_->currentItem());
    });
    connect(remove, &QPushButton::clicked, this,
            [this] { drives_->removeRow(drives_->currentRow()); });
    connect(choose, &QPushButton::clicked, this, [this] {
        if (drives_->currentRow() < 0) return;
        const QString folder = QFileDialog::getExistingDirectory(this, tr("Folder of the drive"),
                                                                 toName(file_.parent_path()));
        if (!folder.isEmpty()) drives_->item(drives_->currentRow(), 1)->setText(relative(folder));
    });
    auto* buttons = new QVBoxLayout;
    buttons->addWidget(add);
    buttons->addWidget(remove);
    buttons->addWidget(choose);
    buttons->addStretch();
    auto* layout = new QHBoxLayout(box);
    layout->addWidget(drives_, 1);
    layout->addLayout(buttons);
    return box;
}

QWidget* SettingsDialog::translationsBox() {
    auto* box = new QGroupBox(tr("Translation database"));
    auto* form = new QFormLayout(box);
    const QString fallback = QStringLiteral("DSN=Orvane;UID=WWWappsOrvane;PWD=");
    addField(*form, tr("C&onnect string:"), Translations, "connect_string", fallback);
    addField(*form, tr("For new &labels:"), Translations, "label_connect_string", fallback);
    addPathField(*form, tr("O&DBC data sources:"), Translations, "odbc_ini", {}, false)
        ->setPlaceholderText(tr("those of the user and the machine"));
    test_ = new QPushButton(tr("&Test connection"));
    test_->setObjectName(QStringLiteral("TestConnectionButton"));
    connect(test_, &QPushButton::clicked, this, &SettingsDialog::testConnection);
    testResult_ = new QLabel;
    testResult_->setObjectName(QStringLiteral("TestConnectionResult"));
    testResult_->setWordWrap(true);
    testResult_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* row = new QHBoxLayout;
    row->addWidget(test_);
    row->addWidget(testResult_, 1);
    form->addRow(row);
    return box;
}

QLineEdit* SettingsDialog::addField(QFormLayout& form, const QString& label, const char* section,
                                    const char* key, const QString& fallback) {
    auto* edit = new QLineEdit;
    edit->setObjectName(QLatin1String(section) + QLatin1Char('.') + QLatin1String(key));
    const auto value = text_.get(section, key);
    edit->setText(value ? QString::fromStdString(*value) : fallback);
    edit->setCursorPosition(0);
    fields_.push_back({section, key, edit, fallback});
    form.addRow(label, edit);
    return edit;
}

QLineEdit* SettingsDialog::addPathField(QFormLayout& form, const QString& label,
                                        const char* section, const char* key,
                                        const QString& fallback, bool folder) {
    QLineEdit* edit = addField(form, label, section, key, fallback);
    auto* button = new QToolButton;
    button->setIcon(editorIcon("folder-open"));
    button->setToolTip(folder ? tr("Choose a folder") : tr("Choose a file"));
    button->setAccessibleName(button->toolTip());
    connect(button, &QToolButton::clicked, this, [this, edit, folder] { browse(*edit, folder); });
    auto* row = new QHBoxLayout;
    auto* caption = form.labelForField(edit);
    // What the row is made of stays; the items that hold it in the layout are ours now.
    const QFormLayout::TakeRowResult taken = form.takeRow(edit);
    delete taken.labelItem;
    delete taken.fieldItem;
    row->addWidget(edit);
    row->addWidget(button);
    form.addRow(caption, row);
    return edit;
}

void SettingsDialog::browse(QLineEdit& edit, bool folder) {
    const QString begin = QDir(toName(file_.parent_path())).absoluteFilePath(edit.text());
    const QString chosen =
        folder ? QFileDialog::getExistingDirectory(this, tr("Choose a folder"), begin)
               : QFileDialog::getOpenFileName(this, tr("Choose a file"), begin);
    if (!chosen.isEmpty()) edit.setText(relative(chosen));
}

// Below the site's folder as the file writes it, elsewhere in full.
QString SettingsDialog::relative(const QString& path) const {
    const QString name = QDir(toName(file_.parent_path())).relativeFilePath(path);
    return name.startsWith(QLatin1String("..")) ? path : name;
}

void SettingsDialog::fillDrives() {
    for (const auto& [letter, folder] : text_.entries(Drives))
        addDrive(QString::fromStdString(letter), QString::fromStdString(folder));
}

void SettingsDialog::addDrive(const QString& letter, const QString& folder) {
    const int row = drives_->rowCount();
    drives_->insertRow(row);
    drives_->setItem(row, 0, new QTableWidgetItem(letter));
    drives_->setItem(row, 1, new QTableWidgetItem(folder));
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
    test_->setEnabled(false);
    testResult_->setText(tr("Connecting..."));
    connection_.start(settings, settings.connectString);
}

std::string SettingsDialog::changed() const {
    ConfigurationText text = text_;
    const auto put = [&](const std::string& section, const std::string& key, const QString& value,
                         const QString& fallback) {
        // What is as it would be anyway needs no line.
        if (text.get(section, key) ? false : value == fallback) return;
        if (value.isEmpty()) {
            text.remove(section, key);
        } else {
            text.set(section, key, value.toStdString());
        }
    };
    put({}, "code_page", codePage_->currentText(), QLatin1String(CommonCodePages[0]));
    for (const Field& field : fields_)
        put(field.section, field.key, field.edit->text(), field.fallback);

    std::map<std::string, std::string> wanted;
    for (int row = 0; row < drives_->rowCount(); ++row) {
        const QString letter = drives_->item(row, 0)->text().trimmed();
        if (!letter.isEmpty())
            wanted[letter.toStdString()] = drives_->item(row, 1)->text().toStdString();
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
            read.codePage.name() != CodePage(codePage_->currentText().toStdString()).name())
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
