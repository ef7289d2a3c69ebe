#include "qt/editor/page/live_control.h"

#include "core/header_dtc.h"
#include "qt/editor/base/step_name.h"

#include <QScopedValueRollback>
#include <map>
#include <stdexcept>
#include <utility>

namespace headerdtc::qt {
namespace {

// Stored properties with the changes from one state of their control to the next applied.
StoredProperties withChanges(const StoredProperties& stored, const StoredProperties& before,
                             const StoredProperties& after) {
    const std::map<std::string, std::string> old(before.begin(), before.end());
    std::map<std::string, std::string> now(after.begin(), after.end());
    StoredProperties changed;
    for (const auto& [name, text] : stored) {
        const auto was = old.find(name);
        const auto is = now.find(name);
        const bool isUntouched =
            is == now.end() ? was == old.end() : was != old.end() && was->second == is->second;
        if (isUntouched) {
            changed.emplace_back(name, text);
        } else if (is != now.end()) {
            changed.emplace_back(name, is->second);
        }
        now.erase(name);
    }
    for (const auto& [name, text] : after) {
        const auto was = old.find(name);
        if (now.contains(name) && (was == old.end() || was->second != text))
            changed.emplace_back(name, text);
    }
    return changed;
}

}  // namespace

LiveControl::LiveControl(std::shared_ptr<Site> site, const std::filesystem::path& page,
                         const ControlSpan& span, ControlFaces& faces)
    : faces_(faces), properties_(span.properties) {
    control_ = std::make_unique<OpenControl>(std::move(site), page, span,
                                             HostFaces{*this, *this, *this, faces.modalLoop});
    written_ = control_->propertiesToStore();
    quiet_ = false;
    if (!loadingDoubt()) return;
    // Without its provider a control empties the lists of the tab that is entered, which is no
    // change of the author's.
    subscriptions_ += dtc().SSTab1.tabChanged.subscribe([this] { take(snapshot()); });
    subscriptions_ += dtc().SSTab1.Click.subscribe([this](int) {
        if (dtc().DataProvidersCombo.Text().empty()) written_ = snapshot();
    });
}

LiveControl::~LiveControl() = default;

bool LiveControl::isBusy() {
    return asking_ || !dtc().desktop.modalForms().empty();
}

StoredProperties LiveControl::snapshot() {
    const QScopedValueRollback quiet(quiet_, true);
    return control_->propertiesToStore();
}

void LiveControl::take(StoredProperties now) {
    const bool same = takesEveryChange_ ? now == written_ : isSameConfiguration(now, written_);
    if (same) return;
    // What the control could not be given stays in the page, for as long as the author does not put
    // something else in its place.
    properties_ = loadingDoubt() ? withChanges(properties_, written_, now) : now;
    written_ = std::move(now);
    changed_ = true;
}

std::optional<StoredProperties> LiveControl::takeChange() {
    take(snapshot());
    if (!std::exchange(changed_, false)) return std::nullopt;
    return properties_;
}

void LiveControl::wasStoredAs(const StoredProperties& properties) {
    properties_ = properties;
    written_ = snapshot();
}

bool LiveControl::showTab(int page) {
    if (dtc().SSTab1.Tab() == page) return true;
    const QScopedValueRollback quiet(quiet_, true);
    try {
        dtc().SSTab1.clickTab(page);
    } catch (const std::runtime_error&) {
        // It stays on its tab; the author sees the failure with the next click.
    }
    return isSameConfiguration(snapshot(), written_);
}

void LiveControl::goOnFrom(LiveControl& before) {
    for (const Family which : BothFamilies)
        dtc().family(which).warnAboutDeleteKey = before.dtc().family(which).warnAboutDeleteKey;
}

void LiveControl::show(const std::string& text) {
    if (quiet_) return;
    const QScopedValueRollback asking(asking_, true);
    faces_.messages.show(text);
}

void LiveControl::showError(const std::string& text) {
    if (quiet_) return;
    const QScopedValueRollback asking(asking_, true);
    faces_.messages.showError(text);
}

std::string LiveControl::open(const FileDialogRequest& request) {
    const QScopedValueRollback asking(asking_, true);
    std::string file = faces_.fileDialog.open(request);
    Q_EMIT fileChosen(file);
    return file;
}

void LiveControl::propertyChanged(std::string_view property) {
    if (quiet_) return;
    Q_EMIT propertyChangeNoticed(
        QString::fromUtf8(property.data(), static_cast<qsizetype>(property.size())));
}

}  // namespace headerdtc::qt
