#pragma once

#include "qt/editor/preview/preview_worker.h"

#include <QPlainTextEdit>
#include <QWidget>
#include <memory>
#include <vector>

class QLabel;
class QToolButton;

namespace headerdtc::qt {

class AspHighlighter;

// The text that would be generated now, compared with the file: added lines, and between them the
// lines that would be removed.
class PreviewPane : public QWidget {
    Q_OBJECT

  public:
    explicit PreviewPane(QWidget* parent = nullptr);

    void showPreview(const std::shared_ptr<const Preview>& preview);
    void showNothing(const QString& reason);
    QPlainTextEdit& text() { return *text_; }

  public Q_SLOTS:
    void goToNextChange();
    void goToPreviousChange();

  protected:
    void changeEvent(QEvent* event) override;

  private:
    enum class Mark { None, Added, Removed };

    void append(QString& all, std::string_view line, Mark mark);
    void paintMarks();
    bool showsChange() const;
    void goToChange(int direction);

    QLabel* summary_;
    QToolButton* previous_;
    QToolButton* next_;
    QPlainTextEdit* text_;
    AspHighlighter* highlighter_ = nullptr;
    std::vector<Mark> marks_;  // of each line shown
};

}  // namespace headerdtc::qt
