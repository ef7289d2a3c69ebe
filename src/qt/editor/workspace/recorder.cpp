#include "qt/editor/workspace/recorder.h"

#include "core/header_dtc.h"
#include "qt/editor/page/control_pane.h"
#include "qt/editor/page/live_control.h"
#include "qt/editor/workspace/page_editor.h"

namespace headerdtc::qt {

Recorder::Recorder(QObject* parent) : QObject(parent) {
    soon_.setSingleShot(true);
    connect(&soon_, &QTimer::timeout, this, &Recorder::takeLines);
}

void Recorder::start(PageEditor& editor) {
    stop();
    editor.controls().loadAnew();
    live_ = editor.controls().live();
    if (!live_) return;
    editor_ = &editor;
    subject_ = tr("%1 of %2").arg(QString::fromStdString(live_->id()), editor.title());
    live_->takeEveryChange();
    recording_ = std::make_unique<Recording>(live_->dtc().desktop);
    subscription_ = recording_->changed.subscribe([this] { soon_.start(); });
    connect(live_, &LiveControl::fileChosen, this,
            [this](const std::string& file) { recording_->fileChosen(file); });
    connect(live_, &QObject::destroyed, this, [this] {
        end();
        Q_EMIT ended(
            tr("The recording has ended: a script cannot undo, redo, edit the source or close the "
               "page. What was recorded before is kept."));
    });
    takeLines();
}

void Recorder::stop() {
    if (!isRecording()) return;
    // A cell whose editor is still open is left, as it is before a save.
    editor_->finishEditing();
    if (isRecording()) end();
}

void Recorder::takeLines() {
    soon_.stop();
    if (!recording_) return;
    script_ = QString::fromStdString(recording_->script());
    lineCount_ = static_cast<int>(recording_->size());
    Q_EMIT changed();
}

void Recorder::end() {
    takeLines();
    if (live_) live_->disconnect(this);
    live_ = nullptr;
    editor_ = nullptr;
    recording_.reset();
    Q_EMIT changed();
}

}  // namespace headerdtc::qt
