#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <set>

namespace headerdtc {
class Control;
class HeaderDTC;
}  // namespace headerdtc

namespace headerdtc::qt {

class FormBinder;

// The surface of one control: its six tabs. The control is set up first and outlives the surface.
class ControlSurface : public QWidget {
    Q_OBJECT

  public:
    explicit ControlSurface(HeaderDTC& dtc, QWidget* parent = nullptr);
    ~ControlSurface() override;

    QSize sizeHint() const override;
    // In pixels, what the tabs are drawn for.
    static constexpr int DesignedWidth = 560;

    // Does something to the control in the person's name, with the focus following as it follows a
    // key or the mouse; what a person could not do is left undone.
    void act(const std::function<void()>& action);

    // Moves the focus to the control that has it among the models, or else to the tabs.
    void enter();

    // What is being edited reaches the control (Form::finishEditing). To be called before the page
    // is saved.
    void finishEditing();

    // Marks these controls as other than in the page's file, and no others.
    void markChanged(const std::set<const Control*>& changed);

  private:
    HeaderDTC& dtc_;
    std::unique_ptr<FormBinder> binder_;
};

}  // namespace headerdtc::qt
