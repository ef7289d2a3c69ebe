#pragma once

#include <QLabel>

namespace headerdtc::qt {

class PageEditor;

// The status line's facts about the current page: code page and byte-order mark, line ends, number
// of controls, and whether its text is up to date.
class PageStatus : public QLabel {
    Q_OBJECT

  public:
    using QLabel::QLabel;
    // nullptr: no page is open.
    void follow(const PageEditor* editor);
};

}  // namespace headerdtc::qt
