#pragma once

#include "qt/editor/workspace/recovery_store.h"

#include <QDialog>
#include <memory>
#include <vector>

namespace Ui {
class RecoveryDialog;
}

namespace headerdtc::qt {

// Offers the pages that a crashed editor left behind. Nothing is removed before the author decides.
class RecoveryDialog : public QDialog {
    Q_OBJECT

  public:
    enum class Answer { Later, Recover, Discard };

    explicit RecoveryDialog(std::vector<RecoveryCopy> copies, QWidget* parent = nullptr);
    ~RecoveryDialog() override;

    Answer answer() const { return answer_; }
    // The copies that the author has left ticked.
    std::vector<RecoveryCopy> chosen() const;

  private:
    void answerWith(Answer answer);

    std::vector<RecoveryCopy> copies_;
    std::unique_ptr<Ui::RecoveryDialog> ui_;
    Answer answer_ = Answer::Later;
};

}  // namespace headerdtc::qt
