#include "qt/editor/workspace/recording_panel.h"

#include "qt/editor/base/words.h"
#include "qt/editor/workspace/recorder.h"

#include <QAction>
#include <QClipboard>
#include <QFileDialog>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSaveFile>
#include <QScrollBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <stdexcept>

namespace headerdtc::qt {

RecordingPanel::RecordingPanel(Recorder& recorder, QAction& record, QWidget* parent)
    : QWidget(parent), recorder_(recorder) {
    auto* button = new QToolButton;
    button->setDefaultAction(&record);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    state_ = new QLabel;
    state_->setObjectName(QStringLiteral("RecordingState"));
    copy_ = new QPushButton(tr("Copy"));
    copy_->setToolTip(tr("Copy the script"));
    save_ = new QPushButton(tr("Save script..."));
    save_->setToolTip(tr("For headerdtc automate --over PATH... SCRIPT"));
    connect(copy_, &QPushButton::clicked, this,
            [this] { QGuiApplication::clipboard()->setText(recorder_.script()); });
    connect(save_, &QPushButton::clicked, this, &RecordingPanel::chooseFile);

    lines_ = new QPlainTextEdit;
    lines_->setObjectName(QStringLiteral("RecordingLines"));
    lines_->setAccessibleName(tr("Recorded lines"));
    lines_->setReadOnly(true);
    lines_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    lines_->setLineWrapMode(QPlainTextEdit::NoWrap);
    lines_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    lines_->setPlaceholderText(
        tr("What you do at the control while it is recorded stands here, a line each.\n"
           "\"headerdtc automate --over PATH... SCRIPT\" shows what the script would change in "
           "other pages; --apply writes it."));

    auto* bar = new QHBoxLayout;
    bar->setContentsMargins(6, 2, 6, 2);
    bar->addWidget(button);
    bar->addWidget(state_, 1);
    bar->addWidget(copy_);
    bar->addWidget(save_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(bar);
    layout->addWidget(lines_);
    connect(&recorder_, &Recorder::changed, this, &RecordingPanel::follow);
    follow();
}

void RecordingPanel::follow() {
    const QString count = counted(recorder_.lineCount(), "line", "lines");
    state_->setText(recorder_.isRecording() ? tr("Recording %1: %2").arg(recorder_.subject(), count)
                    : recorder_.script().isEmpty()
                        ? tr("Nothing is recorded.")
                        : tr("Recorded at %1: %2").arg(recorder_.subject(), count));
    if (lines_->toPlainText() != recorder_.script()) {
        lines_->setPlainText(recorder_.script());
        lines_->verticalScrollBar()->setValue(lines_->verticalScrollBar()->maximum());
    }
    const bool any = !recorder_.script().isEmpty();
    copy_->setEnabled(any);
    save_->setEnabled(any);
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
