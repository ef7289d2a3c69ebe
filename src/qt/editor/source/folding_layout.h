#pragma once

#include <QPlainTextDocumentLayout>

namespace headerdtc::qt {

// Lays out only the lines that show: a folded control may have thousands of others.
class FoldingLayout : public QPlainTextDocumentLayout {
  public:
    using QPlainTextDocumentLayout::QPlainTextDocumentLayout;

    QRectF blockBoundingRect(const QTextBlock& block) const override {
        return block.isVisible() ? QPlainTextDocumentLayout::blockBoundingRect(block) : QRectF();
    }
};

}  // namespace headerdtc::qt
