#pragma once

#include "qt/editor/files/aligned_texts.h"
#include "qt/editor/page/page_content.h"

#include <QDialog>
#include <array>
#include <vector>

class QComboBox;
class QLabel;
class QPlainTextEdit;

namespace headerdtc::qt {

// The three states of a page that two have changed: as it was read, as it stands in the editor,
// and as somebody else has written it; of the whole page, or of one control's span where nothing
// else differs. The answer is whose is kept; the dialog changes nothing.
class CompareDialog : public QDialog {
    Q_OBJECT

  public:
    enum class Answer { Later, KeepMine, TakeTheirs };

    CompareDialog(const QString& title, const PageContent& base, const PageContent& mine,
                  const PageContent& theirs, QWidget* parent = nullptr);

    Answer answer() const { return answer_; }

  private:
    void addParts();
    void showPart(int part);
    void fill(const std::vector<AlignedRow>& rows);
    void scrollTogether();
    void goToDifference(int direction);

    std::array<const PageContent*, 3> states_;  // outlive the dialog
    QComboBox* parts_;
    std::array<QPlainTextEdit*, 3> panes_{};
    std::array<QLabel*, 3> counts_{};
    std::vector<int> differences_;  // the rows at which differences begin
    int shown_ = -1;
    Answer answer_ = Answer::Later;
};

}  // namespace headerdtc::qt
