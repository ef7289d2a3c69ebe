#pragma once

#include <QWidget>

class QCheckBox;
class QLabel;
class QLineEdit;

namespace headerdtc::qt {

class SourceView;

// Finds text in a page's source; folded lines that hold it are unfolded.
class FindBar : public QWidget {
    Q_OBJECT

  public:
    explicit FindBar(SourceView& view, QWidget* parent = nullptr);
    void open();

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void find(bool backwards, bool fromSelectionStart);
    void close();

    SourceView& view_;
    QLineEdit* text_;
    QCheckBox* matchCase_;
    QLabel* result_;
};

}  // namespace headerdtc::qt
