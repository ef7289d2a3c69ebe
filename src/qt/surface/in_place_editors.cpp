#include "qt/surface/in_place_editors.h"

#include "controls/control.h"
#include "qt/surface/grid_model.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QTableView>
#include <algorithm>

namespace headerdtc::qt {
namespace {

constexpr const char* CellColumn = "cellColumn";

}  // namespace

InPlaceEditors::InPlaceEditors(QTableView& table, const GridModel& cells)
    : table_(table), cells_(cells) {
    const auto placeAll = [this] { place(); };
    connect(table_.verticalScrollBar(), &QScrollBar::valueChanged, this, placeAll);
    connect(table_.horizontalScrollBar(), &QScrollBar::valueChanged, this, placeAll);
    connect(table_.horizontalHeader(), &QHeaderView::sectionResized, this, placeAll);
    connect(table_.verticalHeader(), &QHeaderView::sectionResized, this, placeAll);
    connect(&cells_, &QAbstractItemModel::rowsInserted, this, placeAll);
    connect(&cells_, &QAbstractItemModel::rowsRemoved, this, placeAll);
}

bool InPlaceEditors::isEditor(const QWidget& widget) {
    return widget.property(CellColumn).isValid();
}

void InPlaceEditors::add(Control& control, QWidget& widget) {
    auto* frame = new QWidget(table_.parentWidget());
    frame->setFocusProxy(&table_);
    frame->setBackgroundRole(table_.viewport()->backgroundRole());
    widget.setParent(frame);
    widget.setAutoFillBackground(true);
    editors_.push_back(std::make_unique<Editor>(Editor{control, widget, *frame}));
    Editor& editor = *editors_.back();
    subscriptions_ += control.appearanceChanged.subscribe([this, &editor] { follow(editor); });
    follow(editor);
}

void InPlaceEditors::follow(Editor& editor) {
    const bool shown = editor.control.Visible();
    const bool laidAnew =
        editor.left != editor.control.Left() || editor.top != editor.control.Top();
    if (shown && (!editor.shown || laidAnew)) editor.cell = cells_.currentCell();
    editor.shown = shown;
    editor.frame.setVisible(shown);
    editor.frame.raise();
    editor.left = editor.control.Left();
    editor.top = editor.control.Top();
    place(editor);
}

void InPlaceEditors::place() {
    for (const auto& editor : editors_)
        place(*editor);
}

void InPlaceEditors::place(Editor& editor) {
    if (!editor.shown) return;
    // The row of the editor's cell was removed: the editor stays with the current cell.
    if (!editor.cell.isValid()) editor.cell = cells_.currentCell();
    if (!editor.cell.isValid()) return;
    const QWidget& area = *table_.viewport();
    const QRect cell = table_.visualRect(editor.cell);
    const QRect seen = cell & area.rect();
    editor.frame.setGeometry(seen.translated(area.mapTo(table_.parentWidget(), QPoint())));
    editor.widget.setGeometry(cell.translated(-seen.topLeft()));
}

Control& InPlaceEditors::controlOf(const QWidget& widget) const {
    const auto found = std::find_if(editors_.begin(), editors_.end(),
                                    [&](const auto& editor) { return &editor->widget == &widget; });
    return (*found)->control;
}

QWidget* InPlaceEditors::over(const QModelIndex& cell) const {
    for (const auto& editor : editors_) {
        if (editor->shown && editor->cell == cell) return &editor->widget;
    }
    return nullptr;
}

int InPlaceEditors::widthNeeded(int column) const {
    int width = 0;
    for (const auto& editor : editors_) {
        if (editor->widget.property(CellColumn).toInt() == column)
            width = std::max(width, editor->widget.minimumSizeHint().width());
    }
    return width;
}

int InPlaceEditors::heightNeeded() const {
    int height = 0;
    for (const auto& editor : editors_)
        height = std::max(height, editor->widget.minimumSizeHint().height());
    return height;
}

}  // namespace headerdtc::qt
