#include "qt/editor/page/live_control.h"

#include "core/header_dtc.h"
#include "qt/editor/page/step_name.h"

#include <stdexcept>
#include <utility>

namespace headerdtc::qt {

LiveControl::LiveControl(std::shared_ptr<Site> site, const std::filesystem::path& page,
                         const ControlSpan& span, const Faces& faces)
    : messages_(faces.messages), fileDialog_(faces.fileDialog), properties_(span.properties) {
    control_ = std::make_unique<OpenControl>(std::move(site), page, span,
                                             HostFaces{*this, *this, *this, faces.modalLoop});
    written_ = control_->properties();
    collecting_ = false;
}

LiveControl::~LiveControl() = default;

bool LiveControl::isBusy() {
    return !dtc().desktop.modalForms().empty();
}

StoredProperties LiveControl::snapshot() {
    const std::vector<std::string> before = collected_;
    collecting_ = true;
    StoredProperties now = control_->properties();
    collecting_ = false;
    collected_ = before;
    return now;
}

std::optional<StoredProperties> LiveControl::takeChange() {
    StoredProperties now = snapshot();
    const bool same = takesEveryChange_ ? now == written_ : isSameConfiguration(now, written_);
    if (same) return std::nullopt;
    properties_ = now;
    written_ = std::move(now);
    return properties_;
}

void LiveControl::wasStoredAs(const StoredProperties& properties) {
    properties_ = properties;
    written_ = snapshot();
}

bool LiveControl::showTab(int page) {
    if (dtc().SSTab1.Tab() == page) return true;
    collecting_ = true;
    try {
        dtc().SSTab1.clickTab(page);
    } catch (const std::runtime_error&) {
        // It stays where it is, and the author meets the failure with the next click.
    }
    collecting_ = false;
    return isSameConfiguration(snapshot(), written_);
}

void LiveControl::goOnFrom(LiveControl& before) {
    for (const Family which : BothFamilies)
        dtc().family(which).warnAboutDeleteKey = before.dtc().family(which).warnAboutDeleteKey;
}

void LiveControl::show(const std::string& text) {
    if (collecting_) {
        collected_.push_back(text);
    } else {
        messages_.show(text);
    }
}

void LiveControl::showError(const std::string& text) {
    if (collecting_) {
        collected_.push_back(text);
    } else {
        messages_.showError(text);
    }
}

std::string LiveControl::open(const FileDialogRequest& request) {
    std::string file = fileDialog_.open(request);
    Q_EMIT fileChosen(file);
    return file;
}

void LiveControl::propertyChanged(std::string_view property) {
    if (collecting_) return;
    Q_EMIT propertyChangeNoticed(
        QString::fromUtf8(property.data(), static_cast<qsizetype>(property.size())));
}

}  // namespace headerdtc::qt
