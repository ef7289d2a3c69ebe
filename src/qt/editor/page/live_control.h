#pragma once

#include "controls/event.h"
#include "host/page/page_session.h"
#include "platform/surroundings.h"
#include "qt/surface/qt_faces.h"

#include <QObject>
#include <QString>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace headerdtc::qt {

// A control of an open page as the author edits it. It tells what has been changed since it was
// last asked.
class LiveControl : public QObject,
                    private MessageBox,
                    private FileDialog,
                    private PropertyChangeSink {
    Q_OBJECT

  public:
    // Boxes of the loading are not shown. The faces outlive the control. Throws what
    // OpenControl throws.
    LiveControl(std::shared_ptr<Site> site, const std::filesystem::path& page,
                const ControlSpan& span, ControlFaces& faces);
    ~LiveControl() override;

    HeaderDTC& dtc() { return control_->dtc(); }
    const std::string& id() const { return control_->id(); }
    // A dialog or box of the control is open: what it is doing continues once that is answered.
    bool isBusy();

    // What the page stores for this control, as of the last change taken.
    const StoredProperties& properties() const { return properties_; }
    // The stored properties, if the author has changed any since; they are properties() then.
    std::optional<StoredProperties> takeChange();
    // From now on every difference counts as a change, even one that means nothing to an author:
    // a replay has to give exactly the same bytes.
    void takeEveryChange() { takesEveryChange_ = true; }
    // The page stores these for the control as it is now.
    void wasStoredAs(const StoredProperties& properties);
    // Shows a tab page, unless that would change the control by itself: tells whether it is shown.
    bool showTab(int page);

    // Takes over from the control that this one replaces: what is said only once stays said.
    void goOnFrom(LiveControl& before);

    // Why saving the page would lose something, found while loading.
    const std::optional<SaveDoubt>& loadingDoubt() const { return control_->loadingDoubt(); }

  Q_SIGNALS:
    // The control's own notice that the author changed a property.
    void propertyChangeNoticed(const QString& property);
    // A file dialog of the control was answered; empty: it was cancelled.
    void fileChosen(const std::string& windowsPath);

  private:
    void show(const std::string& text) override;
    void showError(const std::string& text) override;
    std::string open(const FileDialogRequest& request) override;
    void propertyChanged(std::string_view property) override;
    // What would be stored now; boxes of this are not shown.
    StoredProperties snapshot();
    // Makes what the author changed part of properties().
    void take(StoredProperties now);

    ControlFaces& faces_;
    bool quiet_ = true;    // boxes are not shown
    bool asking_ = false;  // a box or a file dialog is open
    bool changed_ = false;
    bool takesEveryChange_ = false;
    std::unique_ptr<OpenControl> control_;
    StoredProperties properties_;
    // What the control wrote when its properties were properties_. It may say more than they do:
    // defaults that were never stored.
    StoredProperties written_;
    Subscriptions subscriptions_;
};

}  // namespace headerdtc::qt
