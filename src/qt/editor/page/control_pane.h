#pragma once

#include "qt/editor/base/message.h"
#include "qt/editor/page/edited_page.h"
#include "qt/editor/page/live_control.h"

#include <QTimer>
#include <QWidget>
#include <memory>
#include <vector>

namespace Ui {
class ControlPane;
}

namespace headerdtc::qt {

class ControlSurface;

// Shows one of a page's controls on its surface, below a list to choose from where the page has
// several. What the author changes at a control goes into the page; when the page changes
// otherwise, by undo, reload or its source, the controls follow.
class ControlPane : public QWidget {
    Q_OBJECT

  public:
    explicit ControlPane(EditedPage& page, QWidget* parent = nullptr);
    ~ControlPane() override;

    // Index of the control shown; nothing when the page has none.
    std::optional<std::size_t> current() const { return current_; }
    ControlSurface* surface() const;
    LiveControl* live() const;

    void select(std::size_t control);
    void focusControl();
    // Where a new control begins.
    void focusProvider();
    // The control that is shown, loaded anew from the page as it is.
    void loadAnew();
    // Loads controls again that were loaded with a fault: what was missing may be there now. Waits
    // while one of them has a dialog open.
    void renewFaulty();
    // Shows the control, tab and row of a place.
    void goTo(const Place& place);

    // Puts the author's changes into the page now, including what is still being typed.
    void finishEditing();
    // The same without what is being typed.
    void takeChanges();
    // A dialog of a control is open: nothing else may change the page.
    bool isBusy() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

  Q_SIGNALS:
    void currentChanged();
    void insertRequested();
    // Another control is shown, or the same one was made anew.
    void surfaceMade();

  private:
    struct Shown {
        std::unique_ptr<LiveControl> live;
        ControlSurface* surface = nullptr;
    };

    void followPage();
    void rebuildAll();
    void matchControls();
    void show(std::size_t control);
    void make(std::size_t control, int tab);
    void drop(Shown& shown);
    void mark();
    void fillSelector();
    bool belongsToControl(const QObject* object) const;

    std::unique_ptr<Ui::ControlPane> ui_;
    EditedPage& page_;
    ControlFaces faces_;
    std::vector<Shown> shown_;  // one for each control of the page, made when it is first shown
    std::vector<std::string> ids_;
    std::optional<std::size_t> current_;
    bool taking_ = false;        // a change of the author is on its way into the page
    bool renewalWaits_ = false;  // until a dialog is closed
    QTimer idle_;
};

}  // namespace headerdtc::qt
