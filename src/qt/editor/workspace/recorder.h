#pragma once

#include "host/automation/recording.h"

#include <QObject>
#include <QString>
#include <QTimer>
#include <memory>

namespace headerdtc::qt {

class LiveControl;
class PageEditor;

// Records what the author does at one control of a page. The recording begins with the control
// loaded anew, as a replay finds it, and ends when it is told to or when the control is made anew
// for another reason: undo, say, which no script can do.
class Recorder : public QObject {
    Q_OBJECT

  public:
    explicit Recorder(QObject* parent = nullptr);

    bool isRecording() const { return recording_ != nullptr; }
    // The page needs to show a control. What was recorded before is forgotten.
    void start(PageEditor& editor);
    void stop();

    // Of the running recording, or of the last one.
    QString script() const { return script_; }
    int lineCount() const { return lineCount_; }
    // "HeaderDTC1 of list.asp"
    QString subject() const { return subject_; }

  Q_SIGNALS:
    // The script has changed, or recording has begun or ended.
    void changed();
    // Recording has ended by itself, and why.
    void ended(const QString& reason);

  private:
    void takeLines();
    void end();

    std::unique_ptr<Recording> recording_;
    QTimer soon_;  // one stroke may be many lines
    Subscription subscription_;
    LiveControl* live_ = nullptr;
    PageEditor* editor_ = nullptr;
    QString script_, subject_;
    int lineCount_ = 0;
};

}  // namespace headerdtc::qt
