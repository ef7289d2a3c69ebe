#pragma once

#include "qt/editor/source/source_lines.h"

#include <QPlainTextEdit>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>

namespace headerdtc::qt {

class AspHighlighter;
class SourceGutter;

// A page's source. Text around the controls can be edited; each change is signalled as a
// replacement of bytes, and the view then shows the page that it is given. The spans of controls
// are marked and can be folded; they belong to the controls, and edits inside them are taken back.
class SourceView : public QPlainTextEdit {
    Q_OBJECT

  public:
    explicit SourceView(QWidget* parent = nullptr);
    ~SourceView() override;

    // Shows a page, keeping caret, scroll position and folding where they are.
    void showPage(const PageContentPtr& page);
    const SourceLines* lines() const { return lines_.get(); }

    // The line of the caret, from 1; nothing until the author has placed the caret.
    std::optional<int> chosenLine() const;
    // Puts the caret on a line and unfolds what hides it.
    void goToLine(int line);
    bool isFolded(const std::string& controlId) const { return folded_.contains(controlId); }
    void setFolded(const std::string& controlId, bool folded);

  Q_SIGNALS:
    // The author replaced bytes of the page. `kind` is the same for letters typed one after the
    // other.
    void edited(headerdtc::ByteRange range, const std::string& bytes, const QString& kind);
    // The author edited text that belongs to a control.
    void editRefused();

  protected:
    // Whoever goes through the window by Tab goes on by it, and writes a tab only after a click or
    // a letter.
    void focusInEvent(QFocusEvent* event) override;
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;

  private:
    friend class SourceGutter;

    // The lines of a control's span, from 0: the first, and those that folding hides.
    struct Region {
        std::string controlId;
        int first, last, hiddenEnd;  // the lines behind the first one are hidden up to the end
    };

    void documentChanged(int position, int removed, int added);
    void synchronize();
    void replaceDifference(const QString& text);
    void markSpans();
    void fold();
    const Region* regionAt(int line) const;
    void toggleFoldAt(int line);
    void placeGutter();
    QColor spanTint() const;
    void tintSpans(const QRect& area);
    // The lines that show in an area, each with its place in the viewport.
    void forShownLines(const QRect& area,
                       const std::function<void(const QTextBlock&, const QRectF&)>& visit) const;

    std::unique_ptr<SourceLines> lines_;
    AspHighlighter* highlighter_ = nullptr;
    SourceGutter* gutter_ = nullptr;
    std::vector<Region> regions_;
    std::set<std::string> folded_;
    std::set<std::string> known_;  // controls whose folding has been decided
    bool showing_ = false;         // the view itself writes into the document
    bool caretIsPlaced_ = false;   // by a person, or by going to a line
    bool outOfStep_ = false;       // the document differs from the page until it is written anew
};

}  // namespace headerdtc::qt
