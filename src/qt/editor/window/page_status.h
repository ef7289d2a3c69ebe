#pragma once

#include <QLabel>

namespace headerdtc::qt {

class PageEditor;

// In a word, how the current page is written: its code page and byte-order mark, line ends,
// controls, and whether its text is what would be generated.
class PageStatus : public QLabel {
    Q_OBJECT

  public:
    using QLabel::QLabel;
    // nullptr: no page is open.
    void follow(const PageEditor* editor);
};

}  // namespace headerdtc::qt
