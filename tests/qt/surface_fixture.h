#pragma once

#include "core/control_fixture.h"
#include "editor/editor.h"
#include "qt/surface/control_surface.h"
#include "qt/surface/selection_list.h"
#include "qt/surface/text.h"
#include "support/event_recorder.h"
#include "support/prologue.h"

#include <QTest>
#include <QtWidgets>

namespace headerdtc {

// The person at a window: mouse and keys go in where the desktop delivers them.
struct Person {
    static constexpr int Patience = 60'000;  // milliseconds: a machine may have other things to do

    static void settle() {
        for (int i = 0; i < 3; ++i)
            QApplication::processEvents();
    }
    static void click(QWidget& widget, QPoint at, Qt::KeyboardModifiers held = {}) {
        QTest::mouseClick(windowOf(widget), Qt::LeftButton, held,
                          widget.mapTo(widget.window(), at));
        settle();
    }
    static void click(QWidget& widget) { click(widget, widget.rect().center()); }
    static void doubleClick(QWidget& widget, QPoint at) {
        QTest::mouseDClick(windowOf(widget), Qt::LeftButton, {}, widget.mapTo(widget.window(), at));
        settle();
    }
    static void press(QWidget& window, Qt::Key key, Qt::KeyboardModifiers held = {}) {
        QTest::keyClick(windowOf(window), key, held);
        settle();
    }
    static void type(QWidget& window, const char* text) {
        for (const char* c = text; *c; ++c)
            QTest::keyClick(windowOf(window), *c);
        settle();
    }
    static QWindow* windowOf(QWidget& widget) { return widget.window()->windowHandle(); }
};

// A control as the editor makes it, with some fields and criteria. To one that no window shows
// everything is done through the models, as automation does.
struct FilledControl {
    FilledControl() {
        outside.dataSources.providers = {{.name = "Orders"}, {.name = "Stock"}};
        dtc.UserControl_Initialize();
        for (const Family which : BothFamilies) {
            FamilyControls& family = dtc.family(which);
            fill(family.FieldsList, {"A", "B", "C", "D", "E"});
            fill(family.KeyFieldsCombo, {"ORDNO", "CUSTNO"});
            family.CriteriaGrid.Rows(4);
        }
    }

    testing::FakeSurroundings outside;
    HeaderDTC dtc{outside.all(), outside.modalLoop};
    Editor editor{dtc};
    testing::EventRecorder events{dtc.surface};
};

class SurfaceTest : public ::testing::Test, protected FilledControl, protected Person {
  protected:
    SurfaceTest() {
        surface.resize(620, 640);
        surface.show();
        surface.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&surface, Patience));
        settle();
        events.take();
    }

    void openTab(int page) {
        dtc.SSTab1.clickTab(page);
        settle();
        events.take();
    }
    template <class Widget = QWidget>
    Widget& widget(const Control& control) {
        return *surface.findChild<Widget*>(qt::toQt(control.name()));
    }
    QPoint itemAt(const ListBox& list, int item) {
        auto& view = widget<qt::SelectionList>(list);
        return view.visualRect(view.model()->index(item, 0)).center();
    }
    void clickItem(const ListBox& list, int item, Qt::KeyboardModifiers held = {}) {
        click(*widget<qt::SelectionList>(list).viewport(), itemAt(list, item), held);
    }
    QRect cellRect(const Grid& grid, int row, int column) {
        auto& table = widget<QTableView>(grid);
        return table.visualRect(table.model()->index(row - grid.FixedRows(), column));
    }
    // Tells whether the click dropped a list, which is closed again.
    bool clickCell(const Grid& grid, int row, int column) {
        click(*widget<QTableView>(grid).viewport(), cellRect(grid, row, column).center());
        QWidget* list = QApplication::activePopupWidget();
        if (list) list->close();
        settle();
        return list != nullptr;
    }
    using Person::press;
    void press(Qt::Key key, Qt::KeyboardModifiers held = {}) { press(surface, key, held); }
    std::string focused() const {
        const Control* active = dtc.surface.ActiveControl();
        return active ? active->name() : std::string();
    }
    // The name of the widget with Qt's focus.
    std::string qtFocused() const {
        const QWidget* widget = QApplication::focusWidget();
        if (widget && widget->objectName() == "qt_tabwidget_tabbar")
            widget = widget->parentWidget();
        return widget ? qt::fromQt(widget->objectName()) : std::string();
    }

    qt::ControlSurface surface{dtc};
    // Done by models alone.
    FilledControl plain;
};

}  // namespace headerdtc
