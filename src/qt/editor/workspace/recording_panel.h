#pragma once

#include <QWidget>

class QAction;
class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace headerdtc::qt {

class Recorder;

// The lines of a recording as they come, and what can be done with them.
class RecordingPanel : public QWidget {
    Q_OBJECT

  public:
    // `record` starts and stops the recorder.
    RecordingPanel(Recorder& recorder, QAction& record, QWidget* parent = nullptr);

    // Writes the script. Throws std::runtime_error with the reason.
    void save(const QString& file) const;

  private:
    void follow();
    void chooseFile();

    Recorder& recorder_;
    QLabel* state_;
    QPlainTextEdit* lines_;
    QPushButton* copy_;
    QPushButton* save_;
};

}  // namespace headerdtc::qt
