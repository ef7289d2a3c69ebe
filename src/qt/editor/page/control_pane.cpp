#include "qt/editor/page/control_pane.h"

#include "core/header_dtc.h"
#include "platform/runtime_error.h"
#include "qt/editor/base/words.h"
#include "qt/editor/lists/list_tools.h"
#include "qt/editor/page/page_marks.h"
#include "qt/surface/control_surface.h"
#include "ui_control_pane.h"

#include <QApplication>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <utility>

namespace headerdtc::qt {
namespace {

// Long enough for the control to have done all that follows from one action, too short to notice.
constexpr int IdleMilliseconds = 150;

// Events after which the author may have changed something.
bool isAction(QEvent::Type type) {
    switch (type) {
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::KeyRelease:
        case QEvent::KeyPress:
        case QEvent::InputMethod:
        case QEvent::Wheel:
        case QEvent::Drop:
        case QEvent::FocusOut:
            return true;
        default:
            return false;
    }
}

// Asks for files on the drives of the site that the page is in at the moment.
QtFileDialog fileDialogOf(const EditedPage& page, QWidget* window) {
    const auto drives = [&page]() -> const WindowsPaths& {
        return page.site()->configuration->drives;
    };
    return {[drives](const std::string& windowsPath) -> QString {
                try {
                    return toName(drives().toLocal(windowsPath));
                } catch (const RuntimeError&) {
                    return {};  // A drive that the site lacks: the dialog begins anywhere.
                }
            },
            [drives](const QString& localPath) { return drives().toWindows(toPath(localPath)); },
            window};
}

}  // namespace

ControlPane::ControlPane(EditedPage& page, QWidget* parent)
    : QWidget(parent),
      ui_(std::make_unique<Ui::ControlPane>()),
      page_(page),
      faces_{QtMessageBox(this), fileDialogOf(page, this), QtModalLoop(this)} {
    ui_->setupUi(this);
    connect(ui_->ControlSelector, &QComboBox::activated, this,
            [this](int index) { select(static_cast<std::size_t>(index)); });
    connect(ui_->InsertControlButton, &QPushButton::clicked, this, &ControlPane::insertRequested);

    idle_.setSingleShot(true);
    connect(&idle_, &QTimer::timeout, this, [this] {
        takeChanges();
        if (renewalWaits_) renewFaulty();
    });
    connect(&page_, &EditedPage::contentChanged, this, &ControlPane::followPage);
    connect(&page_, &EditedPage::placeChanged, this, &ControlPane::rebuildAll);
    connect(&page_, &EditedPage::stateChanged, this, &ControlPane::mark);
    qApp->installEventFilter(this);
    followPage();
}

ControlPane::~ControlPane() {
    for (Shown& shown : shown_)
        drop(shown);
}

ControlSurface* ControlPane::surface() const {
    return current_ ? shown_[*current_].surface : nullptr;
}

LiveControl* ControlPane::live() const {
    return current_ ? shown_[*current_].live.get() : nullptr;
}

bool ControlPane::isBusy() const {
    return live() && live()->isBusy();
}

// ---- from the page ------------------------------------------------------------------------------

void ControlPane::followPage() {
    matchControls();
    const auto& controls = page_.content()->controls();
    for (std::size_t i = 0; i < shown_.size(); ++i) {
        Shown& shown = shown_[i];
        if (!shown.live || shown.live->properties() == controls[i].properties) continue;
        if (taking_) {
            // The page stores what the control has, perhaps written in another way.
            shown.live->wasStoredAs(controls[i].properties);
        } else if (current_ == i) {
            make(i, shown.live->dtc().SSTab1.Tab());
        } else {
            drop(shown);
        }
    }
    if (current_ && !shown_[*current_].live) make(*current_, 0);
}

// One entry for each control; those that are still there keep what has been made for them.
void ControlPane::matchControls() {
    std::vector<std::string> ids;
    for (const ControlSpan& span : page_.content()->controls())
        ids.push_back(span.id);
    if (ids == ids_ && (!ids.empty() || !page_.content()->problem())) {
        if (ids.empty()) fillSelector();
        return;
    }
    const std::string shownId = current_ ? ids_[*current_] : std::string();
    std::vector<Shown> kept(ids.size());
    std::optional<std::size_t> next;
    for (std::size_t i = 0; i < ids.size(); ++i) {
        for (std::size_t old = 0; old < ids_.size(); ++old) {
            if (ids_[old] != ids[i] || !shown_[old].live) continue;
            kept[i] = std::exchange(shown_[old], {});
            break;
        }
        // A control that is new beside others is what the author has just inserted.
        const bool isNew = std::find(ids_.begin(), ids_.end(), ids[i]) == ids_.end();
        if (isNew ? !ids_.empty() : ids[i] == shownId && !next) next = i;
    }
    for (Shown& shown : shown_)
        drop(shown);
    shown_ = std::move(kept);
    ids_ = std::move(ids);
    current_ = next ? next : ids_.empty() ? std::nullopt : std::optional<std::size_t>(0);
    fillSelector();
    if (current_) show(*current_);
    Q_EMIT currentChanged();
}

void ControlPane::rebuildAll() {
    for (std::size_t i = 0; i < shown_.size(); ++i) {
        if (current_ != i) drop(shown_[i]);
    }
    if (current_) make(*current_, live() ? live()->dtc().SSTab1.Tab() : 0);
}

void ControlPane::fillSelector() {
    ui_->ControlSelector->clear();
    for (const ControlSpan& span : page_.content()->controls())
        ui_->ControlSelector->addItem(
            tr("%1 (line %2)").arg(QString::fromStdString(span.id)).arg(span.line));
    if (current_) ui_->ControlSelector->setCurrentIndex(static_cast<int>(*current_));
    ui_->ControlBar->setVisible(ids_.size() > 1);
    const auto& problem = page_.content()->problem();
    ui_->NoControlReason->setText(problem ? tr("The controls of this page cannot be read:\n%1")
                                                .arg(QString::fromStdString(problem->what()))
                                          : tr("This page has no control."));
    ui_->InsertControlButton->setVisible(!problem);
    if (ids_.empty()) ui_->ControlStack->setCurrentWidget(ui_->NoControl);
}

void ControlPane::select(std::size_t control) {
    if (current_ == control || control >= shown_.size()) return;
    finishEditing();
    show(control);
    Q_EMIT currentChanged();
}

void ControlPane::loadAnew() {
    if (!current_) return;
    finishEditing();
    make(*current_, 0);
}

void ControlPane::renewFaulty() {
    renewalWaits_ = isBusy();
    if (renewalWaits_) return idle_.start(IdleMilliseconds);
    finishEditing();
    for (std::size_t i = 0; i < shown_.size(); ++i) {
        Shown& shown = shown_[i];
        if (!shown.live || !shown.live->loadingDoubt()) continue;
        if (current_ == i) {
            make(i, shown.live->dtc().SSTab1.Tab());
        } else {
            drop(shown);
        }
    }
}

void ControlPane::focusControl() {
    if (surface()) {
        surface()->enter();
    } else {
        ui_->InsertControlButton->setFocus();
    }
}

void ControlPane::focusProvider() {
    if (live()) surface()->act([this] { live()->dtc().DataProvidersCombo.focus(); });
}

void ControlPane::show(std::size_t control) {
    current_ = control;
    ui_->ControlSelector->setCurrentIndex(static_cast<int>(control));
    if (shown_[control].live) {
        if (QWidget* before = ui_->ControlArea->takeWidget()) before->hide();
        ui_->ControlArea->setWidget(shown_[control].surface);
        shown_[control].surface->show();
        mark();
    } else {
        make(control, 0);
    }
    ui_->ControlStack->setCurrentWidget(ui_->ControlArea);
}

// Makes a control from the page again and restores the tab and the scroll position.
void ControlPane::make(std::size_t control, int tab) {
    Shown& shown = shown_[control];
    const ControlSpan& span = page_.content()->controls()[control];
    // Of a window that is not active, too: a dialog has just closed, say.
    const bool hadFocus = shown.surface && window()->focusWidget() &&
                          shown.surface->isAncestorOf(window()->focusWidget());
    const int scrolled = ui_->ControlArea->verticalScrollBar()->value();
    const auto make = [&] {
        return std::make_unique<LiveControl>(page_.site(), page_.file(), span, faces_);
    };
    auto made = make();
    if (!made->showTab(tab)) made = make();
    if (shown.live) made->goOnFrom(*shown.live);
    drop(shown);
    shown.live = std::move(made);
    // Once the control has finished everything that belongs to the change.
    connect(shown.live.get(), &LiveControl::propertyChangeNoticed, this,
            [this] { idle_.start(0); });

    shown.surface = new ControlSurface(shown.live->dtc());
    new ListTools(shown.live->dtc(), *shown.surface);
    if (QWidget* before = ui_->ControlArea->takeWidget()) before->hide();
    ui_->ControlArea->setWidget(shown.surface);
    ui_->ControlStack->setCurrentWidget(ui_->ControlArea);
    ui_->ControlArea->verticalScrollBar()->setValue(scrolled);
    if (hadFocus) shown.surface->enter();
    mark();
    Q_EMIT surfaceMade();
}

void ControlPane::mark() {
    if (!live()) return;
    showKinds(live()->dtc(), *surface());
    const auto saved = page_.saved()->indexOf(live()->id());
    const StoredProperties& now = live()->properties();
    showChanges(live()->dtc(), *surface(),
                saved ? page_.saved()->controls()[*saved].properties : now, now);
}

void ControlPane::drop(Shown& shown) {
    if (shown.surface && ui_->ControlArea->widget() == shown.surface)
        ui_->ControlArea->takeWidget();
    delete std::exchange(shown.surface, nullptr);
    shown.live.reset();
}

// ---- from the author ----------------------------------------------------------------------------

bool ControlPane::belongsToControl(const QObject* object) const {
    const auto* widget = qobject_cast<const QWidget*>(object);
    if (!widget || !current_) return false;
    if (shown_[*current_].surface && shown_[*current_].surface->isAncestorOf(widget)) return true;
    // Lists that drop down and dialogs of the control are windows of their own.
    return widget->window() != window() && isVisible();
}

bool ControlPane::eventFilter(QObject* watched, QEvent* event) {
    // Further actions do not delay the taking of the first one.
    if (isAction(event->type()) && belongsToControl(watched) && !idle_.isActive())
        idle_.start(IdleMilliseconds);
    return QWidget::eventFilter(watched, event);
}

void ControlPane::takeChanges() {
    idle_.stop();
    LiveControl* control = live();
    if (!control || taking_) return;
    const auto change = control->takeChange();
    if (!change) return;
    const QScopedValueRollback taking(taking_, true);
    page_.setProperties(*current_, *change);
}

void ControlPane::finishEditing() {
    if (!live() || isBusy()) return;
    const QPointer<QWidget> focused = window()->focusWidget();
    surface()->finishEditing();
    if (focused && !surface()->isAncestorOf(focused)) {
        focused->setFocus();
    } else if (focused && !focused->isVisible()) {
        // An editor over a cell has gone; what it lay in leads to its grid.
        if (QWidget* grid = focused->parentWidget()->focusProxy()) grid->setFocus();
    }
    takeChanges();
}

void ControlPane::goTo(const Place& place) {
    const auto control = page_.content()->indexOf(place.control);
    if (!control) return;
    select(*control);
    HeaderDTC& dtc = live()->dtc();
    try {
        surface()->setFocus();
        if (place.tab >= 0) dtc.SSTab1.clickTab(place.tab);
        // A click on any other column would open an editor, which writes when it is left.
        for (const Family family : BothFamilies) {
            Grid& grid = dtc.family(family).CriteriaGrid;
            if (grid.tabPage() == place.tab && place.row > 0 && place.row < grid.Rows())
                grid.clickCell(place.row, criteria_column::Marker);
        }
    } catch (const std::runtime_error&) {
        // The control has already told the author why.
    }
    idle_.start(IdleMilliseconds);
}

}  // namespace headerdtc::qt
