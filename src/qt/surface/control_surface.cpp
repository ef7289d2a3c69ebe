#include "qt/surface/control_surface.h"

#include "core/header_dtc.h"
#include "platform/surroundings.h"
#include "qt/surface/form_binder.h"
#include "qt/surface/text.h"
#include "ui_eai_link_tab.h"
#include "ui_eai_tab.h"
#include "ui_general_tab.h"
#include "ui_i18n_tab.h"

#include <QTabWidget>
#include <QVBoxLayout>

namespace headerdtc::qt {
namespace {

// Letters of the window around the surface: of its menus, of the choice among several controls, and
// of the bar that finds in the source.
constexpr const char* WindowMnemonics = "FEVSHCM";

// The twins' pages are drawn once, under the names of the EAI controls.
void nameFor(Family which, QWidget& page) {
    const FamilyTraits& drawn = traitsOf(Family::EAI);
    const FamilyTraits& wanted = traitsOf(which);
    for (QWidget* widget : page.findChildren<QWidget*>()) {
        const std::string name = fromQt(widget->objectName());
        if (name == drawn.moveUpLinkedButton) {
            widget->setObjectName(toQt(std::string(wanted.moveUpLinkedButton)));
        } else if (name == drawn.moveDownLinkedButton) {
            widget->setObjectName(toQt(std::string(wanted.moveDownLinkedButton)));
        } else if (name.starts_with(drawn.prefix)) {
            widget->setObjectName(toQt(familyName(which, name.substr(drawn.prefix.size()))));
        }
    }
}

template <class Ui>
QWidget& addPage(QTabWidget& tabs) {
    auto* page = new QWidget;
    Ui().setupUi(page);
    tabs.addTab(page, QString());
    return *page;
}

// In the order of the tab strip's captions.
void addPages(QTabWidget& tabs) {
    addPage<Ui::GeneralTab>(tabs);
    nameFor(Family::EAI, addPage<Ui::EAITab>(tabs));
    nameFor(Family::ZEKO, addPage<Ui::EAITab>(tabs));
    addPage<Ui::I18NTab>(tabs);
    nameFor(Family::EAI, addPage<Ui::EAILinkTab>(tabs));
    nameFor(Family::ZEKO, addPage<Ui::EAILinkTab>(tabs));
}

}  // namespace

ControlSurface::ControlSurface(HeaderDTC& dtc, QWidget* parent) : QWidget(parent), dtc_(dtc) {
    setObjectName(toQt(dtc.surface.name()));
    auto* tabs = new QTabWidget;
    tabs->setObjectName(toQt(dtc.SSTab1.name()));
    addPages(*tabs);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs);
    binder_ = std::make_unique<FormBinder>(dtc.surface, *this, WindowMnemonics);
    binder_->actions.onFailure = [this](const std::exception_ptr& failure) {
        dtc_.surroundings.messages.showError(failureText(failure));
    };
}

ControlSurface::~ControlSurface() = default;

QSize ControlSurface::sizeHint() const {
    return QSize(DesignedWidth, 640).expandedTo(minimumSizeHint());
}

void ControlSurface::act(const std::function<void()>& action) {
    binder_->actions.run(action);
}

void ControlSurface::enter() {
    act([this] {
        if (!dtc_.surface.ActiveControl()) dtc_.SSTab1.focus();
        binder_->focus.follow();
    });
}

void ControlSurface::finishEditing() {
    act([this] { dtc_.surface.finishEditing(); });
}

void ControlSurface::markChanged(const std::set<const Control*>& changed) {
    binder_->markChanged(changed);
}

}  // namespace headerdtc::qt
