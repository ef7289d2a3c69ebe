#include "qt/editor/workspace/recording_panel.h"

#include "qt/editor/base/words.h"
#include "qt/editor/workspace/recorder.h"
#include "ui_recording_panel.h"

#include <QAction>
#include <QClipboard>
#include <QFileDialog>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QMessageBox>
#include <QSaveFile>
#include <QScrollBar>
#include <stdexcept>

namespace headerdtc::qt {

RecordingPanel::RecordingPanel(Recorder& recorder, QAction& record, QWidget* parent)
    : QWidget(parent), recorder_(recorder), ui_(std::make_unique<Ui::RecordingPanel>()) {
    ui_->setupUi(this);
    ui_->RecordButton->setDefaultAction(&record);
    ui_->RecordingLines->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    connect(ui_->CopyScript, &QPushButton::clicked, this,
            [this] { QGuiApplication::clipboard()->setText(recorder_.script()); });
    connect(ui_->SaveScript, &QPushButton::clicked, this, &RecordingPanel::chooseFile);
    connect(&recorder_, &Recorder::changed, this, &RecordingPanel::follow);
    follow();
}

RecordingPanel::~RecordingPanel() = default;

void RecordingPanel::follow() {
    const QString count = counted(recorder_.lineCount(), "line", "lines");
    const QString script = recorder_.script();
    ui_->RecordingState->setText(
        recorder_.isRecording() ? tr("Recording %1: %2").arg(recorder_.subject(), count)
        : script.isEmpty()      ? tr("Nothing is recorded.")
                                : tr("Recorded at %1: %2").arg(recorder_.subject(), count));
    QPlainTextEdit& lines = *ui_->RecordingLines;
    if (lines.toPlainText() != script) {
        lines.setPlainText(script);
        lines.verticalScrollBar()->setValue(lines.verticalScrollBar()->maximum());
    }
    ui_->CopyScript->setEnabled(!script.isEmpty());
    ui_->SaveScript->setEnabled(!script.isEmpty());
}

void RecordingPanel::save(const QString& file) const {
    QSaveFile script(file);
    const QByteArray bytes = recorder_.script().toUtf8();
    if (!script.open(QIODevice::WriteOnly) || script.write(bytes) != bytes.size() ||
        !script.commit())
        throw std::runtime_error(script.errorString().toStdString());
}

void RecordingPanel::chooseFile() {
    const QString file =
        QFileDialog::getSaveFileName(this, tr("Save script"), QStringLiteral("recording.jsonl"),
                                     tr("Automation scripts (*.jsonl);;All files (*)"));
    if (file.isEmpty()) return;
    try {
        save(file);
    } catch (const std::exception& error) {
        QMessageBox::critical(
            this, tr("Script not saved"),
            tr("%1 could not be written.\n\n%2").arg(file, QString::fromStdString(error.what())));
    }
}

}  // namespace headerdtc::qt
