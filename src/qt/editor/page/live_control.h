#pragma once

#include "controls/event.h"
#include "host/page/page_session.h"
#include "platform/design_time_site.h"
#include "platform/file_dialog.h"
#include "platform/message_box.h"
#include "qt/surface/qt_faces.h"

#include <QObject>
#include <QString>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace headerdtc::qt {

// A control of an open page, in the author's hands. It tells what the author has changed in it
// since it was last asked.
class LiveControl : public QObject,
                    private MessageBox,
                    private FileDialog,
                    private PropertyChangeSink {
    Q_OBJECT

  public:
    // Boxes of the loading are collected, not shown. The faces outlive the control. Throws what
    // OpenControl throws.
    LiveControl(std::shared_ptr<Site> site, const std::filesystem::path& page,
                const ControlSpan& span, ControlFaces& faces);
    ~LiveControl() override;

    HeaderDTC& dtc() { return control_->dtc(); }
    const std::string& id() const { return control_->id(); }
    // A dialog of the control is open, or a box: whatever it does goes on when that is answered.
    bool isBusy();

    // What the page stores for this control, as of the last change taken.
    const StoredProperties& properties() const { return properties_; }
    // The stored properties, if the author has changed any since; they are properties() then.
    std::optional<StoredProperties> takeChange();
    // From now on every difference is a change, also one that says nothing to an author: what is
    // recorded is replayed to the very bytes.
    void takeEveryChange() { takesEveryChange_ = true; }
    // The page stores these for the control as it is now.
    void wasStoredAs(const StoredProperties& properties);
    // Shows a tab page, unless that would change the control by itself: tells whether it is shown.
    bool showTab(int page);

    // The same control made anew: it has said what it says only once.
    void goOnFrom(LiveControl& before);

    // Why saving the page would lose something, found while loading.
    const std::optional<SaveDoubt>& loadingDoubt() const { return control_->loadingDoubt(); }
    const std::vector<std::string>& loadingMessages() const { return collected_; }

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
    // What of it the author has done becomes properties().
    void take(StoredProperties now);

    ControlFaces& faces_;
    bool collecting_ = true;
    bool asking_ = false;  // a box or a file dialog is open
    bool changed_ = false;
    bool takesEveryChange_ = false;
    std::vector<std::string> collected_;
    std::unique_ptr<OpenControl> control_;
    StoredProperties properties_;
    // What the control wrote when its properties were properties_. It may say more than they do:
    // defaults that were never stored.
    StoredProperties written_;
    Subscriptions subscriptions_;
};

}  // namespace headerdtc::qt
