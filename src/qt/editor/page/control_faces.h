#pragma once

#include "qt/editor/page/live_control.h"
#include "qt/surface/qt_file_dialog.h"
#include "qt/surface/qt_message_box.h"
#include "qt/surface/qt_modal_loop.h"

#include <functional>

namespace headerdtc::qt {

// What a person at the windows of one page answers its controls with.
class ControlFaces {
  public:
    // `drives` gives the drive letters of the site that the page is in at the moment.
    ControlFaces(QWidget* window, const std::function<const WindowsPaths&()>& drives);

    LiveControl::Faces faces() { return {messages_, fileDialog_, modalLoop_}; }

  private:
    QtMessageBox messages_;
    QtFileDialog fileDialog_;
    QtModalLoop modalLoop_;
};

}  // namespace headerdtc::qt
