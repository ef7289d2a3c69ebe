#include "qt/surface/grid_view.h"

#include "controls/combo_box.h"
#include "controls/text_box.h"
#include "qt/surface/focus_keeper.h"
#include "qt/surface/shades.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QHeaderView>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyle>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QToolTip>
#include <algorithm>
#include <utility>

namespace headerdtc::qt {
namespace {

// Line height of the font that the models' sizes were drawn with.
constexpr int DesignedLineHeight = 195;  // twips

QList<int> columnsOf(const QWidget& table, const char* property) {
    QList<int> columns;
    for (const QString& column : table.property(property).toString().split(' ', Qt::SkipEmptyParts))
        columns.append(column.toInt());
    return columns;
}

// As a press on the box drops it: the mouse being let go of then leaves the list open.
void dropList(QComboBox& combo) {
    QStyleOptionComboBox option;
    option.initFrom(&combo);
    option.editable = combo.isEditable();
    const QPoint arrow =
        combo.style()
            ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, &combo)
            .center();
    QMouseEvent press(QEvent::MouseButtonPress, arrow, combo.mapToGlobal(arrow), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&combo, &press);
}

// The current cell of a grid that keys do not reach is grey.
class CellDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;

  protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        const bool isReached = option->widget && option->widget->hasFocus();
        if (isReached || !option->state.testFlag(QStyle::State_Selected)) return;
        option->state.setFlag(QStyle::State_Selected, false);
        const QPalette& palette = option->palette;
        option->backgroundBrush =
            mixed(palette.color(QPalette::Text), palette.color(QPalette::Base), 0.2);
    }
};

}  // namespace

GridView::GridView(Grid& model, QTableView& widget, FormFace face)
    : ControlView(model, widget, face),
      model_(model),
      table_(widget),
      cells_(model),
      editors_(widget, cells_) {
    setUpTable();
    table_.viewport()->installEventFilter(this);
    QScrollBar& scrollBar = *table_.verticalScrollBar();
    connect(&scrollBar, &QScrollBar::actionTriggered, this, [this, &scrollBar] {
        personScrolls_ = scrollBar.sliderPosition() != scrollBar.value();
    });
    connect(&scrollBar, &QScrollBar::valueChanged, this, [this](int row) { scrolled(row); });
    subscriptions_ +=
        model_.gridChanging.subscribe([this](const GridChange& change) { cells_.begin(change); });
    subscriptions_ +=
        model_.gridChanged.subscribe([this](const GridChange& change) { applyChange(change); });
}

void GridView::setUpTable() {
    outlineFocus(table_);
    table_.setModel(&cells_);
    table_.setItemDelegate(new CellDelegate(&table_));
    // A press is the model's before it moves the focus: the cell is entered first, then an open
    // editor loses the focus.
    table_.setFocusPolicy(Qt::TabFocus);
    table_.setTabKeyNavigation(false);
    table_.setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_.setSelectionMode(QAbstractItemView::SingleSelection);
    table_.setSelectionBehavior(QAbstractItemView::SelectItems);
    table_.setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    table_.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    table_.setWordWrap(false);
    table_.setCornerButtonEnabled(false);
    table_.verticalHeader()->hide();
    table_.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table_.horizontalHeader()->setHighlightSections(false);
    table_.horizontalHeader()->setSectionsClickable(false);
    table_.horizontalHeader()->setMinimumSectionSize(1);
}

void GridView::addEditor(Control& editor, QWidget& widget) {
    editors_.add(editor, widget);
    widget.installEventFilter(this);
}

void GridView::show() {
    fitCells();
    showCurrentCell();
    editors_.place();
}

// Sizes follow the font as they did where they were designed: a larger one needs larger cells.
int GridView::pixels(int twips) const {
    return twips * table_.fontMetrics().height() / DesignedLineHeight;
}

// Left and right of a cell's text, the line between cells included.
int GridView::cellMargin() const {
    return 2 * (table_.style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1) + 2;
}

std::vector<int> GridView::sizes() const {
    std::vector<int> sizes = {model_.RowHeightMin()};
    for (int column = 0; column < model_.Cols(); ++column)
        sizes.push_back(model_.ColWidth(column));
    return sizes;
}

void GridView::fitCells() {
    fitted_ = sizes();
    QHeaderView& header = *table_.horizontalHeader();
    const QList<int> slackColumns = columnsOf(table_, "slackColumns");
    const int narrowest = table_.fontMetrics().horizontalAdvance("...") + cellMargin();
    for (int column = 0; column < model_.Cols(); ++column) {
        const bool titled =
            !cells_.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString().isEmpty();
        header.setSectionResizeMode(column, slackColumns.contains(column) ? QHeaderView::Stretch
                                            : titled                      ? QHeaderView::Interactive
                                                                          : QHeaderView::Fixed);
        header.resizeSection(column, std::max({pixels(model_.ColWidth(column)), narrowest,
                                               editors_.widthNeeded(column)}));
    }
    table_.verticalHeader()->setMinimumSectionSize(1);
    table_.verticalHeader()->setDefaultSectionSize(
        std::max({pixels(model_.RowHeightMin()), editors_.heightNeeded() + 1,
                  table_.fontMetrics().height() + 4}));
}

void GridView::applyChange(const GridChange& change) {
    cells_.apply(change);
    if (change.kind == GridChange::Kind::Geometry) {
        // Widths that a person has drawn last until the program sets others.
        if (sizes() != fitted_) fitCells();
    } else if (change.kind != GridChange::Kind::CellsChanged) {
        showCurrentCell();
    }
}

void GridView::showCurrentCell() {
    const QModelIndex cell = cells_.currentCell();
    if (cell.isValid()) {
        table_.selectionModel()->setCurrentIndex(cell, QItemSelectionModel::ClearAndSelect);
        table_.scrollTo(cell);
    } else {
        table_.selectionModel()->clear();
    }
}

// Not every movement of the scroll bar is a person's: rows appear, vanish and become current.
void GridView::scrolled(int firstRow) {
    const int topRow = firstRow + model_.FixedRows();
    if (std::exchange(personScrolls_, false)) {
        act([&] { model_.scroll(topRow); });
    } else {
        model_.shownFrom(topRow);
    }
}

bool GridView::eventFilter(QObject* watched, QEvent* event) {
    if (watched == table_.viewport()) return viewportEvent(*event);
    if (watched != &table_) {
        return event->type() == QEvent::KeyPress &&
               leaveEditor(static_cast<QWidget&>(*watched), static_cast<QKeyEvent&>(*event));
    }
    if (event->type() == QEvent::Move) editors_.place();
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) fitCells();
    return ControlView::eventFilter(watched, event);
}

// Returns true to keep the event from Qt: mouse events are for the models only.
bool GridView::viewportEvent(const QEvent& event) {
    switch (event.type()) {
        case QEvent::Resize:
            editors_.place();
            return false;
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick: {
            const auto& mouse = static_cast<const QMouseEvent&>(event);
            if (mouse.button() != Qt::LeftButton) return true;
            const QModelIndex cell = table_.indexAt(mouse.position().toPoint());
            if (event.type() == QEvent::MouseButtonPress) {
                pressCell(cell);
            } else if (cell.isValid()) {
                // The first press has clicked the cell.
                act([this] { model_.clickAgain(); });
            }
            return true;
        }
        case QEvent::ToolTip:
            return showCutOffText(static_cast<const QHelpEvent&>(event));
        case QEvent::MouseMove:
        case QEvent::MouseButtonRelease:
            return true;
        default:
            return false;
    }
}

// A text that its cell is too narrow for shows as a tool tip, before what else there is to say.
bool GridView::showCutOffText(const QHelpEvent& event) {
    const QModelIndex cell = table_.indexAt(event.pos());
    const QString text = cell.data().toString();
    const QString remark = cell.data(Qt::ToolTipRole).toString();
    const int icon = remark.isEmpty() ? 0 : table_.style()->pixelMetric(QStyle::PM_SmallIconSize);
    const int room = table_.visualRect(cell).width() - cellMargin() - icon;
    if (table_.fontMetrics().horizontalAdvance(text) <= room) return false;
    QToolTip::showText(event.globalPos(), remark.isEmpty() ? text : text + '\n' + remark,
                       table_.viewport());
    return true;
}

void GridView::pressCell(const QModelIndex& cell) {
    act([&] {
        if (cell.isValid()) {
            model_.clickCell(cells_.gridRow(cell), cell.column());
        } else {
            model_.focus();
        }
    });
    face_.focus.follow();
    if (auto* combo = qobject_cast<QComboBox*>(editors_.over(cell))) dropList(*combo);
}

// Enter and Escape lead from an editor back to its cell, Enter on to the next one that has an
// editor. First come the editor's own uses for them, but not the buttons of a dialog.
bool GridView::leaveEditor(QWidget& widget, const QKeyEvent& event) {
    const auto key = keyOf(event);
    if (!key || !isDialogKey(*key) || !widget.hasFocus()) return false;
    act([&] {
        Control& editor = editors_.controlOf(widget);
        if (auto* text = dynamic_cast<TextBox*>(&editor))
            text->keyDown(*key) && text->keyPress(*key);
        if (auto* combo = dynamic_cast<ComboBox*>(&editor)) combo->keyPress(*key);
        if (!model_.hasFocus()) model_.focus();
        if (key->kind == Key::Kind::Enter && editors_.widthNeeded(model_.Col() + 1) > 0)
            model_.press(Key::of(Key::Kind::Right));
    });
    return true;
}

bool GridView::keyPressed(const QKeyEvent& event) {
    QScrollBar& scrollBar = *table_.verticalScrollBar();
    if (event.key() == Qt::Key_PageUp || event.key() == Qt::Key_PageDown) {
        scrollBar.triggerAction(event.key() == Qt::Key_PageUp ? QScrollBar::SliderPageStepSub
                                                              : QScrollBar::SliderPageStepAdd);
        return true;
    }
    const auto key = keyOf(event);
    if (event.key() == Qt::Key_Home || event.key() == Qt::Key_End) {
        // As the arrow keys lead there, up to the marker; Qt would move its own current cell.
        const bool isHome = event.key() == Qt::Key_Home;
        for (int before = -1; before != model_.Col() && !(isHome && model_.Col() == 1);) {
            before = model_.Col();
            pressKey(Key::of(isHome ? Key::Kind::Left : Key::Kind::Right));
        }
        return true;
    }
    if (!key) return false;
    if (key->kind == Key::Kind::Tab) return false;
    pressKey(*key);
    return true;
}

void GridView::pressKey(const Key& key) {
    const bool clicks =
        key.kind == Key::Kind::Enter || (key.kind == Key::Kind::Character && key.character == U' ');
    act([&] {
        if (clicks && columnsOf(table_, "buttonColumns").contains(model_.Col())) {
            model_.clickCell(model_.Row(), model_.Col());
        } else {
            model_.press(key);
        }
    });
}

}  // namespace headerdtc::qt
