#include "qt/editor/health/page_health.h"

#include "core/header_dtc.h"
#include "host/inspection/field_health.h"
#include "host/page/quiet_host.h"
#include "qt/editor/health/replace_dialog.h"
#include "qt/editor/health/surface_marks.h"
#include "qt/editor/page/control_pane.h"
#include "qt/editor/page/edited_page.h"
#include "qt/surface/control_surface.h"
#include "qt/surface/text.h"

#include <QMenu>
#include <QMessageBox>
#include <algorithm>

namespace headerdtc::qt {
namespace {

constexpr int JudgeDelay = 50;  // milliseconds; typing goes on meanwhile

bool isSame(const VanishedField& left, const VanishedField& right) {
    return left.family == right.family && left.role == right.role &&
           left.item.text == right.item.text && left.item.row == right.item.row;
}

int tabOf(const VanishedField& field) {
    const bool isLink = field.role == StoredRole::LinkFrom || field.role == StoredRole::LinkTo ||
                        field.role == StoredRole::LinkedField;
    return isLink ? traitsOf(field.family).linkTabPage : traitsOf(field.family).tabPage;
}

// The cell that holds a field, and the editor that a click on it opens.
struct Cell {
    Grid& grid;
    int column;
    ComboBox& editor;
};

std::optional<Cell> cellOf(FamilyControls& family, StoredRole role) {
    switch (role) {
        case StoredRole::CriterionKey:
            return Cell{family.CriteriaGrid, criteria_column::Key, family.KeyFieldsCombo};
        case StoredRole::LinkFrom:
            return Cell{family.LinksGrid, links_column::From, family.FromLinkFieldsCombo};
        case StoredRole::LinkTo:
            return Cell{family.LinksGrid, links_column::To, family.ToLinkFieldsCombo};
        default:
            return std::nullopt;
    }
}

}  // namespace

PageHealth::PageHealth(EditedPage& page, ControlPane& controls, QObject* parent)
    : QObject(parent), page_(page), controls_(controls) {
    soon_.setSingleShot(true);
    soon_.setInterval(JudgeDelay);
    connect(&soon_, &QTimer::timeout, this, &PageHealth::judge);
    connect(&page_, &EditedPage::contentChanged, this, &PageHealth::judgeSoon);
    connect(&page_, &EditedPage::placeChanged, this, &PageHealth::judgeSoon);
    connect(&controls_, &ControlPane::currentChanged, this, &PageHealth::judgeSoon);
    connect(&controls_, &ControlPane::surfaceMade, this, &PageHealth::judgeSoon);
    judgeSoon();
}

void PageHealth::judge() {
    offers_.refresh(page_.site());
    const auto lookup = [this](const std::string& provider, Family family) {
        return offers_.of(provider, family);
    };
    const auto before = vanished_.size();
    vanished_.clear();
    configuration_ = {};
    const auto current = controls_.current();
    if (current && *current < page_.content()->controls().size()) {
        configuration_ = readStoredConfiguration(page_.content()->controls()[*current].properties);
        vanished_ = vanishedFields(configuration_, lookup);
    }
    mark();
    if (before != vanished_.size()) Q_EMIT changed();
}

void PageHealth::mark() {
    ControlSurface* surface = controls_.surface();
    if (!surface) return;
    if (!marks_ || marks_->parent() != surface) {
        marks_ = surface->findChild<SurfaceMarks*>();
        if (!marks_) {
            marks_ = new SurfaceMarks(controls_.live()->dtc(), *surface);
            connect(marks_, &SurfaceMarks::menuRequested, this, &PageHealth::openMenu);
        }
    }
    marks_->show(vanished_, offers_);
}

// ---- replacing ----------------------------------------------------------------------------------

void PageHealth::openMenu(const VanishedField& vanished, const QPoint& at) {
    constexpr std::size_t Suggestions = 3;
    const auto replacements = offers_.replacements(vanished, configuration_);
    auto* menu = new QMenu(controls_.surface());
    menu->setObjectName(QStringLiteral("MissingFieldMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (std::size_t i = 0; i < std::min(Suggestions, replacements.size()); ++i) {
        QString text = toQt(replacements[i]).trimmed();
        menu->addAction(tr("Replace with %1").arg(text.replace('&', QLatin1String("&&"))), this,
                        [this, field = vanished, with = replacements[i]] {
                            const QString problem = replace(field, with);
                            if (!problem.isEmpty())
                                QMessageBox::warning(&controls_, tr("Not replaced"), problem);
                        });
    }
    menu->addSeparator();
    menu->addAction(tr("Replace &with..."), this,
                    [this, field = vanished] { chooseReplacement(field); });
    menu->popup(at);
}

void PageHealth::chooseReplacement(const std::optional<VanishedField>& which) {
    controls_.finishEditing();
    judge();
    if (vanished_.empty()) return;
    // The dialog's own: the page may be judged anew while it is open.
    const auto vanished = vanished_;
    const auto configuration = configuration_;
    std::size_t first = 0;
    for (std::size_t i = 0; which && i < vanished.size(); ++i) {
        if (isSame(vanished[i], *which)) first = i;
    }
    ReplaceDialog dialog(vanished, first, offers_, configuration, controls_.window());
    if (dialog.exec() != QDialog::Accepted || dialog.replacement().empty()) return;
    const QString problem = replace(dialog.vanished(), dialog.replacement());
    if (!problem.isEmpty()) QMessageBox::warning(&controls_, tr("Not replaced"), problem);
}

// By the editor of the cell, where that offers the field.
bool PageHealth::replaceByPerson(const VanishedField& vanished, const std::string& with) {
    HeaderDTC& dtc = controls_.live()->dtc();
    const auto cell = cellOf(dtc.family(vanished.family), vanished.role);
    if (!cell || cell->editor.find(with) < 0) return false;
    const int row = vanished.item.row;
    controls_.surface()->act([&] {
        if (dtc.SSTab1.Tab() != tabOf(vanished)) dtc.SSTab1.clickTab(tabOf(vanished));
        cell->grid.clickCell(row, cell->column);
        cell->editor.choose(with);
        // The editor writes when it is left.
        cell->grid.clickCell(row, 0);
    });
    controls_.takeChanges();
    return cell->grid.TextMatrix(row, cell->column) == with;
}

QString PageHealth::replace(const VanishedField& vanished, const std::string& with) {
    controls_.finishEditing();
    const auto current = controls_.current();
    if (!current || controls_.isBusy())
        return tr("No control is shown, or a dialog of it is open.");
    page_.sealStep();
    if (replaceByPerson(vanished, with)) return {};
    const ControlSpan& span = page_.content()->controls()[*current];
    try {
        QuietHost host;
        OpenControl hidden(page_.site(), page_.file(), span, host.faces());
        if (hidden.loadingDoubt())
            return tr("Something else would be lost: %1").arg(toQt(hidden.loadingDoubt()->reason));
        replaceField(hidden.dtc(), vanished, with);
        page_.setProperties(*current, hidden.propertiesToStore());
    } catch (const std::exception& error) {
        return toQt(error.what());
    }
    page_.sealStep();
    return {};
}

}  // namespace headerdtc::qt
