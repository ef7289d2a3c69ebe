#pragma once

#include "qt/editor/base/message.h"
#include "qt/editor/page/control_faces.h"
#include "qt/editor/page/edited_page.h"
#include "qt/editor/page/live_control.h"

#include <QTimer>
#include <QWidget>
#include <memory>
#include <vector>

class QComboBox;
class QLabel;
class QPushButton;
class QScrollArea;
class QStackedWidget;

namespace headerdtc::qt {

class ControlSurface;

// The controls of a page, one of them shown: the control's own surface, and above it the choice of
// the control where a page has several. It brings what the author does into the page, and the page
// into the controls when it became another by undo, reload or the source.
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
    // Controls that were loaded with a fault are made anew: what they lacked may be there now.
    // While one of them has a dialog open that waits.
    void renewFaulty();
    // Shows the control, tab and row of a place.
    void goTo(const Place& place);

    // What the author has changed goes into the page now, what is still being typed too.
    void finishEditing();
    // The same, but what is being typed is left alone.
    void takeChanges();
    // A dialog of a control is open; the page is not to be changed from elsewhere.
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
    void fillSelector();
    bool belongsToControl(const QObject* object) const;

    EditedPage& page_;
    ControlFaces faces_;
    std::vector<Shown> shown_;  // one for each control of the page, made when it is first shown
    std::vector<std::string> ids_;
    std::optional<std::size_t> current_;
    bool taking_ = false;        // a change of the author is on its way into the page
    bool renewalWaits_ = false;  // until a dialog is closed
    QTimer idle_;

    QWidget* bar_;
    QComboBox* selector_;
    QStackedWidget* stack_;
    QScrollArea* area_;
    QWidget* nothing_;
    QLabel* reason_;
    QPushButton* insert_;
};

}  // namespace headerdtc::qt
