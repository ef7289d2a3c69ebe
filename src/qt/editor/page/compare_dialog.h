#pragma once

#include "qt/editor/page/aligned_texts.h"
#include "qt/editor/page/page_changes.h"

#include <QDialog>
#include <array>
#include <memory>
#include <vector>

class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace Ui {
class CompareDialog;
}

namespace headerdtc::qt {

// Compares a page that was changed both here and on disk: what each side did, in words, and on
// demand the lines of all three versions (as it was read, in the editor, on disk), of the whole
// page or of one control. The author chooses which version is kept, or both where they do not
// conflict; the dialog itself changes nothing.
class CompareDialog : public QDialog {
    Q_OBJECT

  public:
    enum class Answer { Later, KeepMine, TakeTheirs, TakeBoth };

    CompareDialog(const QString& title, const PageContent& base, const PageContent& mine,
                  const PageContent& theirs, QWidget* parent = nullptr);
    ~CompareDialog() override;

    Answer answer() const { return answer_; }
    // What the answer TakeBoth takes.
    const MergedPage& merged() const { return merged_; }

  private:
    void showChanges();
    void addAnswer(QPushButton& button, Answer answer);
    void setUpLines();
    void addParts();
    void showPart(int part);
    void fill(const std::vector<AlignedRow>& rows);
    void scrollTogether();
    void goToDifference(int direction);

    std::array<const PageContent*, 3> states_;  // outlive the dialog
    MergedPage merged_;
    std::unique_ptr<Ui::CompareDialog> ui_;
    std::array<QPlainTextEdit*, 3> panes_;
    std::array<QLabel*, 3> counts_;
    std::vector<int> differences_;  // the rows at which differences begin
    int shown_ = -1;
    Answer answer_ = Answer::Later;
};

}  // namespace headerdtc::qt
