#pragma once

#include "core/header_dtc.h"
#include "qt/editor/health/field_offers.h"

#include <QObject>
#include <QString>
#include <functional>
#include <vector>

class QAbstractItemView;

namespace headerdtc::qt {

class ControlSurface;

// Shows at a control's surface which of its fields the catalogue does not offer, and says in empty
// lists why they are empty.
class SurfaceMarks : public QObject {
    Q_OBJECT

  public:
    // Belongs to the surface.
    SurfaceMarks(HeaderDTC& dtc, ControlSurface& surface);

    void show(const std::vector<VanishedField>& vanished, FieldOffers& offers);

  Q_SIGNALS:
    // A marked field is to be replaced; the menu is to open there.
    void menuRequested(const headerdtc::VanishedField& vanished, const QPoint& globalPosition);

  private:
    // One list, or one column of a grid, and what its texts are.
    struct Place {
        QAbstractItemView* view = nullptr;
        int column = 0;
        Family family = Family::ZEKO;
        StoredRole role = StoredRole::ReturnField;
        bool isGrid = false;
    };

    void add(const Control& control, int column, Family family, StoredRole role);
    const VanishedField* vanishedAt(const Place& place, const QModelIndex& index) const;
    const VanishedField* vanishedAt(const QAbstractItemView& view, const QModelIndex& index) const;
    void requestMenu(QAbstractItemView& view, const QPoint& position);
    void explainEmptyLists(FieldOffers& offers);

    HeaderDTC& dtc_;
    ControlSurface& surface_;
    std::vector<Place> places_;
    std::vector<VanishedField> vanished_;
};

}  // namespace headerdtc::qt
