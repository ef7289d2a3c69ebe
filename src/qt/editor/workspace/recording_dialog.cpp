#include "qt/editor/workspace/recording_dialog.h"

#include "qt/editor/base/words.h"
#include "qt/editor/workspace/recorder.h"
#include "ui_recording_dialog.h"

#include <QClipboard>
#include <QFileDialog>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QMessageBox>
#include <QSaveFile>

namespace headerdtc::qt {

RecordingDialog::RecordingDialog(const Recorder& recorder, QWidget* parent)
    : QDialog(parent), recorder_(recorder), ui_(std::make_unique<Ui::RecordingDialog>()) {
    ui_->setupUi(this);
    ui_->RecordingSubject->setText(
        tr("Recorded at %1: %2")
            .arg(recorder.subject(), counted(recorder.lineCount(), "line", "lines")));
    ui_->RecordingLines->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    ui_->RecordingLines->setPlainText(recorder.script());
    connect(ui_->CopyScript, &QPushButton::clicked, this,
            [this] { QGuiApplication::clipboard()->setText(recorder_.script()); });
    connect(ui_->SaveScript, &QPushButton::clicked, this, &RecordingDialog::chooseFile);
    connect(ui_->CloseRecording, &QPushButton::clicked, this, &QDialog::reject);
}

RecordingDialog::~RecordingDialog() = default;

void RecordingDialog::chooseFile() {
    const QString file =
        QFileDialog::getSaveFileName(this, tr("Save script"), QStringLiteral("recording.jsonl"),
                                     tr("Automation scripts (*.jsonl);;All files (*)"));
    if (file.isEmpty()) return;
    QSaveFile script(file);
    const QByteArray bytes = recorder_.script().toUtf8();
    if (script.open(QIODevice::WriteOnly) && script.write(bytes) == bytes.size() && script.commit())
        return accept();
    QMessageBox::critical(this, tr("Script not saved"),
                          tr("%1 could not be written.\n\n%2").arg(file, script.errorString()));
}

}  // namespace headerdtc::qt
