#pragma once

#include "qt/editor/files/aligned_texts.h"
#include "qt/editor/page/page_content.h"

#include <QDialog>
#include <array>
#include <vector>

class QPlainTextEdit;
class QLabel;

namespace headerdtc::qt {

// The three states of a page that two have changed: as it was read, as it stands in the editor,
// and as somebody else has written it. The answer is whose is kept; the dialog changes nothing.
class CompareDialog : public QDialog {
    Q_OBJECT

  public:
    enum class Answer { Later, KeepMine, TakeTheirs };

    CompareDialog(const QString& title, const PageContent& base, const PageContent& mine,
                  const PageContent& theirs, QWidget* parent = nullptr);

    Answer answer() const { return answer_; }

  private:
    void fill(const std::vector<AlignedRow>& rows);
    void scrollTogether();
    void goToDifference(int direction);

    std::array<QPlainTextEdit*, 3> panes_{};
    std::array<QLabel*, 3> counts_{};
    std::vector<int> differences_;  // the rows at which differences begin
    int shown_ = -1;
    Answer answer_ = Answer::Later;
};

}  // namespace headerdtc::qt
