#pragma once

#include <QWidget>
#include <memory>

namespace Ui {
class FindBar;
}

namespace headerdtc::qt {

class SourceView;

// Finds text in a page's source; folded lines that hold it are unfolded.
class FindBar : public QWidget {
    Q_OBJECT

  public:
    explicit FindBar(SourceView& view, QWidget* parent = nullptr);
    ~FindBar() override;
    void open();

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void find(bool backwards, bool fromSelectionStart);
    void close();

    std::unique_ptr<Ui::FindBar> ui_;
    SourceView& view_;
};

}  // namespace headerdtc::qt
