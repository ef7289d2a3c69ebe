#include "qt/editor/health/surface_marks.h"

#include "qt/editor/base/icons.h"
#include "qt/surface/control_surface.h"
#include "qt/surface/grid_model.h"
#include "qt/surface/items_model.h"
#include "qt/surface/selection_list.h"
#include "qt/surface/text.h"

#include <QTableView>
#include <algorithm>

namespace headerdtc::qt {

SurfaceMarks::SurfaceMarks(HeaderDTC& dtc, ControlSurface& surface)
    : QObject(&surface), dtc_(dtc), surface_(surface) {
    for (const Family which : BothFamilies) {
        const FamilyControls& family = dtc.family(which);
        add(family.SelectedFieldsList, 0, which, StoredRole::ReturnField);
        add(family.I18NFieldnamesList, 0, which, StoredRole::ReturnField);
        add(family.I18NFieldValuesList, 0, which, StoredRole::ReturnField);
        add(family.SelectedLinkedFieldsList, 0, which, StoredRole::LinkedField);
        add(family.CriteriaGrid, criteria_column::Key, which, StoredRole::CriterionKey);
        add(family.LinksGrid, links_column::From, which, StoredRole::LinkFrom);
        add(family.LinksGrid, links_column::To, which, StoredRole::LinkTo);
    }
}

void SurfaceMarks::add(const Control& control, int column, Family family, StoredRole role) {
    auto* view = surface_.findChild<QAbstractItemView*>(toQt(control.name()));
    if (!view) return;
    const bool isNew = std::none_of(places_.begin(), places_.end(),
                                    [&](const Place& place) { return place.view == view; });
    places_.push_back({view, column, family, role, qobject_cast<QTableView*>(view) != nullptr});
    if (!isNew) return;
    view->setMouseTracking(true);  // for the status line
    view->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(view, &QWidget::customContextMenuRequested, this,
            [this, view](const QPoint& position) { requestMenu(*view, position); });
}

const VanishedField* SurfaceMarks::vanishedAt(const Place& place, const QModelIndex& index) const {
    if (index.column() != place.column) return nullptr;
    const int row = index.row() + 1;
    const std::string text =
        fromQt(index.data(place.isGrid ? Qt::DisplayRole : Qt::EditRole).toString());
    const auto found =
        std::find_if(vanished_.begin(), vanished_.end(), [&](const VanishedField& field) {
            return field.family == place.family && field.role == place.role &&
                   field.item.text == text && (!place.isGrid || field.item.row == row);
        });
    return found == vanished_.end() ? nullptr : &*found;
}

const VanishedField* SurfaceMarks::vanishedAt(const QAbstractItemView& view,
                                              const QModelIndex& index) const {
    for (const Place& place : places_) {
        if (place.view != &view) continue;
        if (const VanishedField* field = vanishedAt(place, index)) return field;
    }
    return nullptr;
}

void SurfaceMarks::show(const std::vector<VanishedField>& vanished, FieldOffers& offers) {
    vanished_ = vanished;
    for (const Place& place : places_) {
        const ItemRemarks remarks{[this, place](const QModelIndex& index) -> ItemRemark {
            const VanishedField* field = vanishedAt(place, index);
            if (!field) return {};
            return {tr("Not offered by %1: %2").arg(toQt(field->provider), toQt(field->advice)),
                    editorIcon("dialog-warning")};
        }};
        if (auto* items = dynamic_cast<ItemsModel*>(place.view->model()))
            items->setRemarks(remarks);
        if (auto* cells = dynamic_cast<GridModel*>(place.view->model()))
            cells->setRemarks(place.column, remarks);
    }
    explainEmptyLists(offers);
}

void SurfaceMarks::requestMenu(QAbstractItemView& view, const QPoint& position) {
    QModelIndex index = view.indexAt(position);
    QPoint at = view.viewport()->mapToGlobal(position);
    if (!index.isValid() || !vanishedAt(view, index)) {
        // Asked for by a key, which points at nothing.
        index = view.currentIndex();
        at = view.viewport()->mapToGlobal(view.visualRect(index).bottomLeft());
    }
    if (!index.isValid()) return;
    if (const VanishedField* field = vanishedAt(view, index)) Q_EMIT menuRequested(*field, at);
}

// The first reason that holds.
void SurfaceMarks::explainEmptyLists(FieldOffers& offers) {
    const auto say = [this](const ListBox& list, const QString& why) {
        if (auto* view = surface_.findChild<SelectionList*>(toQt(list.name())))
            view->setEmptyText(why);
    };
    const auto missing = [&](const std::string& provider, Family which, const QString& tab) {
        const QString name = toQt(provider);
        if (!offers.problem().empty())
            return tr("The catalogue cannot be read:\n%1").arg(toQt(offers.problem()));
        if (provider.empty()) return tr("No data provider is chosen on the %1 tab.").arg(tab);
        if (!offers.knows(provider)) return tr("The catalogue has no provider \"%1\".").arg(name);
        const auto* fields = offers.of(provider, which);
        return fields && fields->empty() ? tr("The catalogue has no %1 fields of \"%2\".")
                                               .arg(toQt(std::string(traitsOf(which).prefix)), name)
                                         : QString();
    };
    const auto otherwise = [](const QString& reason, const QString& text) {
        return reason.isEmpty() ? text : reason;
    };
    for (const Family which : BothFamilies) {
        const FamilyControls& family = dtc_.family(which);
        const QString own = missing(dtc_.DataProvidersCombo.Text(), which, tr("General"));
        const bool anyChosen = family.SelectedFieldsList.ListCount() > 0;
        say(family.FieldsList,
            otherwise(own, anyChosen ? tr("All fields are chosen.") : tr("There are no fields.")));
        say(family.SelectedFieldsList, otherwise(own, tr("No field is chosen yet.")));
        const QString link = tr("%1 Link").arg(toQt(std::string(family.traits.prefix)));
        const QString linked = missing(family.LinkedDataProvidersCombo.Text(), which, link);
        const bool anyLinked = family.SelectedLinkedFieldsList.ListCount() > 0;
        say(family.LinkedFieldsList, otherwise(linked, anyLinked ? tr("All fields are chosen.")
                                                                 : tr("There are no fields.")));
        say(family.SelectedLinkedFieldsList, otherwise(linked, tr("No field is chosen yet.")));
        const QString none = tr("There are no return fields; choose them on the %1 tab.")
                                 .arg(toQt(std::string(family.traits.prefix)));
        say(family.I18NFieldnamesList, none);
        say(family.I18NFieldValuesList, none);
    }
    say(dtc_.IncludeASPList, tr("No include files."));
}

}  // namespace headerdtc::qt
