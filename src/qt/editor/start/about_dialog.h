#pragma once

class QWidget;

namespace headerdtc::qt {

// What this program is and what it stands on.
void showAbout(QWidget* window);

}  // namespace headerdtc::qt
