#pragma once

#include <QLabel>

namespace headerdtc::qt {

class EditedPage;

// In a word, how the current page is written: its code page, line ends, controls.
class PageStatus : public QLabel {
    Q_OBJECT

  public:
    using QLabel::QLabel;
    // nullptr: no page is open.
    void follow(const EditedPage* page);
};

}  // namespace headerdtc::qt
