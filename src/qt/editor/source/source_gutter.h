#pragma once

#include <QWidget>

namespace headerdtc::qt {

class SourceView;

// The column beside the source: line numbers, and the triangles that fold a control's span.
class SourceGutter : public QWidget {
    Q_OBJECT

  public:
    explicit SourceGutter(SourceView& view);
    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    int foldWidth() const;

    SourceView& view_;
};

}  // namespace headerdtc::qt
