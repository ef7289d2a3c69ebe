#pragma once

#include "controls/button.h"
#include "controls/list_box.h"

#include <QObject>
#include <vector>

class QKeyEvent;

namespace headerdtc {
class HeaderDTC;
}

namespace headerdtc::qt {

class ControlSurface;
class ListFinder;
class SelectionList;

enum class FieldMove { Up, Down, ToTop, ToBottom };

// Makes the long lists of a control's surface quick to use: finding, counts, moving fields with one
// key. Everything goes through the operations that a person has, and raises the same events.
//
//     letters, digits, Ctrl+F     find
//     Alt+Up, Alt+Down            move the marked fields
//     Alt+Home, Alt+End           move them to the top, to the bottom
class ListTools : public QObject {
    Q_OBJECT

  public:
    // Belongs to the surface.
    ListTools(HeaderDTC& dtc, ControlSurface& surface);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct Tools {
        ListBox* list = nullptr;
        SelectionList* view = nullptr;
        ListFinder* finder = nullptr;
        Button* up = nullptr;  // nullptr where the order is not the author's
        Button* down = nullptr;
    };

    void equip(ListBox& list, Button* use, Button* up, Button* down, bool marksAtOnce);
    void addCount(ListBox& list, SelectionList& view);
    bool keyPressed(const Tools& tools, const QKeyEvent& event);
    void move(const Tools& tools, FieldMove move);

    ControlSurface& surface_;
    std::vector<Tools> tools_;
};

}  // namespace headerdtc::qt
