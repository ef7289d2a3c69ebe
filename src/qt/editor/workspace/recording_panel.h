#pragma once

#include <QWidget>
#include <memory>

class QAction;

namespace Ui {
class RecordingPanel;
}

namespace headerdtc::qt {

class Recorder;

// The lines of a recording as they come, and what can be done with them.
class RecordingPanel : public QWidget {
    Q_OBJECT

  public:
    // `record` starts and stops the recorder.
    RecordingPanel(Recorder& recorder, QAction& record, QWidget* parent = nullptr);
    ~RecordingPanel() override;

    // Writes the script. Throws std::runtime_error with the reason.
    void save(const QString& file) const;

  private:
    void follow();
    void chooseFile();

    Recorder& recorder_;
    std::unique_ptr<Ui::RecordingPanel> ui_;
};

}  // namespace headerdtc::qt
