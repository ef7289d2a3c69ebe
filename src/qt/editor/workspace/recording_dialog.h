#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class RecordingDialog;
}

namespace headerdtc::qt {

class Recorder;

// What was recorded, and what can be done with it.
class RecordingDialog : public QDialog {
    Q_OBJECT

  public:
    explicit RecordingDialog(const Recorder& recorder, QWidget* parent = nullptr);
    ~RecordingDialog() override;

  private:
    void chooseFile();

    const Recorder& recorder_;
    std::unique_ptr<Ui::RecordingDialog> ui_;
};

}  // namespace headerdtc::qt
