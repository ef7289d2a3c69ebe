// Draws every tab and dialog, filled with plausible data, into PNG files of a folder:
//     qt_preview FOLDER [dark] [WIDTHxHEIGHT]
// A look at them is part of changing a form; QT_SCALE_FACTOR=2 shows them at high resolution.

#include "core/handler_tools.h"
#include "core/header_dtc.h"
#include "qt/sample_dialogs.h"
#include "qt/surface/control_surface.h"
#include "qt/surface/form_dialog.h"
#include "support/fake_surroundings.h"

#include <QApplication>
#include <QDir>
#include <QPalette>
#include <QStyleFactory>
#include <QTimer>

namespace headerdtc::testing {
namespace {

QPalette darkPalette() {
    QPalette palette(QColor(53, 53, 53));
    palette.setColor(QPalette::Base, QColor(35, 35, 35));
    palette.setColor(QPalette::Text, Qt::white);
    palette.setColor(QPalette::WindowText, Qt::white);
    palette.setColor(QPalette::ButtonText, Qt::white);
    return palette;
}

void fill(HeaderDTC& dtc) {
    for (const char* provider : {"Orders", "Stock"}) {
        dtc.DataProvidersCombo.AddItem(provider);
        dtc.EAI.LinkedDataProvidersCombo.AddItem(provider);
        dtc.ZEKO.LinkedDataProvidersCombo.AddItem(provider);
    }
    dtc.UserControl_Initialize();
    dtc.DataProvidersCombo.ListIndex(0);
    dtc.IncludeASPList.AddItem("Include/Extra.asp");
    dtc.IncludeASPList.AddItem("Include/Totals.asp");
    dtc.I18NDataProviderText.Text("Orders");
    for (const Family which : BothFamilies) {
        FamilyControls& family = dtc.family(which);
        family.DataProviderText.Text("Orders");
        for (int i = 1; i <= 30; ++i) {
            const std::string number = std::to_string(i);
            family.FieldsList.AddItem(which == Family::EAI
                                          ? "ORDERS.FIELD" + number
                                          : (i < 10 ? " " : "") + number + " - FIELD" + number);
        }
        family.SelectedFieldsList.AddItem(which == Family::EAI ? "ORDERS.ORDNO" : "31 - ORDNO");
        family.SelectedFieldsList.AddItem(which == Family::EAI ? "ORDERS.CUSTNO" : "32 - CUSTNO");
        family.I18NFieldnamesList.AddItem("ORDERS.CUSTNO");
        family.I18NFieldValuesList.AddItem("ORDERS.CUSTNO");
        family.LinkedFieldsList.AddItem("STOCK.ARTICLE");
        family.KeyFieldsCombo.AddItem("ORDNO");
        family.KeyFieldsCombo.AddItem("CUSTNO");
        family.FromLinkFieldsCombo.AddItem("ORDERS.CUSTNO");
        family.ToLinkFieldsCombo.AddItem("ARTICLE");
        Grid& grid = family.CriteriaGrid;
        grid.Rows(4);
        const char* rows[][5] = {{"", "ORDNO", "==", "GetOrderNumber", "..."},
                                 {"", "CUSTNO", ">=", "1000", "..."},
                                 {"*", "CUSTNO", "<=", "9999", "..."}};
        for (int row = 1; row < 4; ++row) {
            for (int column = 0; column < 5; ++column)
                grid.TextMatrix(row, column, rows[row - 1][column]);
        }
        family.LinksGrid.TextMatrix(1, 0, "*");
        family.LinksGrid.TextMatrix(1, 1, "ORDERS.CUSTNO");
        family.LinksGrid.TextMatrix(1, 2, "ARTICLE");
    }
}

void settle() {
    for (int i = 0; i < 5; ++i)
        QApplication::processEvents();
}

void drawTabs(HeaderDTC& dtc, const QDir& folder, const QSize& size) {
    qt::ControlSurface surface(dtc);
    surface.resize(size.isValid() ? size : surface.sizeHint());
    surface.show();
    surface.activateWindow();
    settle();
    for (int page = 0; page < 6; ++page) {
        dtc.SSTab1.clickTab(page);
        settle();
        surface.grab().save(folder.filePath(QString("tab%1.png").arg(page)));
    }
    const auto draw = [&](const char* name) {
        settle();
        surface.grab().save(folder.filePath(name));
    };
    dtc.SSTab1.clickTab(1);
    dtc.EAI.CriteriaGrid.clickCell(2, 1);
    layOverCell(dtc.EAI.KeyFieldsCombo, dtc.EAI.CriteriaGrid);
    draw("editor_key.png");
    dtc.EAI.KeyFieldsCombo.Visible(false);
    dtc.EAI.CriteriaGrid.clickCell(2, 2);
    dtc.EAI.OperatorsCombo.ListIndex(2);
    layOverCell(dtc.EAI.OperatorsCombo, dtc.EAI.CriteriaGrid);
    draw("editor_operator.png");
    dtc.EAI.OperatorsCombo.Visible(false);
    dtc.EAI.CriteriaGrid.clickCell(3, 3);
    dtc.EAI.KeyFieldValueText.Text("9999");
    layOverCell(dtc.EAI.KeyFieldValueText, dtc.EAI.CriteriaGrid);
    dtc.EAI.KeyFieldValueText.SelLength(4);
    draw("editor_value.png");
}

void drawDialog(SampleDialog& sample, const QDir& folder) {
    QTimer::singleShot(0, [&] {
        settle();
        QApplication::activeModalWidget()->grab().save(
            folder.filePath(QString::fromStdString(sample.form.name()) + ".png"));
        sample.form.dismiss();
        QApplication::activeModalWidget()->close();
    });
    sample.form.ShowModal();
}

class DialogLoop : public ModalLoop {
  public:
    void run(Form& form) override { qt::FormDialog(form, nullptr).run(); }
};

void drawDialogs(const QDir& folder) {
    DialogLoop loop;
    Desktop desktop(loop);
    SampleCriteriumDialog criterium(desktop);
    criterium.NameText.Text("GetOrderNumber");
    criterium.ScriptBodyText.Text("GetOrderNumber = Session(\"ORDNO\")\r\n");
    criterium.ScriptText.Text(
        "Function GetOrderNumber()\r\n\r\nGetOrderNumber = Session(\"ORDNO\")\r\n\r\nEnd Function "
        "'GetOrderNumber()");
    criterium.LocalScriptOption.Value(true);
    drawDialog(criterium, folder);
    SampleQuestionDialog question(desktop);
    drawDialog(question, folder);
    SampleLabelDialog label(desktop);
    label.LabelNameText.Text("SLBDA2001");
    label.LabelValueText.Text("Customer number");
    drawDialog(label, folder);
    SampleFieldnameDialog fieldname(desktop);
    fieldname.FieldNameText.Text("CUSTNO");
    fieldname.FieldNameText.Enabled(false);
    fieldname.LabelsCombo.AddItem("SLBDA2001");
    fieldname.LabelsCombo.ListIndex(0);
    fieldname.TranslationText.Text("Customer number");
    drawDialog(fieldname, folder);
    SampleFieldValueDialog values(desktop);
    values.FieldNameText.Text("STATUS");
    Grid& grid = values.I18NFieldValuesGrid;
    grid.Rows(3);
    const char* rows[][4] = {{"*", "OPEN", "SLBDA2001", "Open order"},
                             {"", "CLOSED", "SLBDA2002", "<EMPTY>"}};
    for (int row = 1; row < 3; ++row) {
        for (int column = 0; column < 4; ++column)
            grid.TextMatrix(row, column, rows[row - 1][column]);
    }
    drawDialog(values, folder);
}

}  // namespace
}  // namespace headerdtc::testing

int main(int argc, char** argv) {
    using namespace headerdtc;
    using namespace headerdtc::testing;
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QStringList arguments = QApplication::arguments().mid(1);
    if (arguments.isEmpty()) {
        qCritical("usage: qt_preview FOLDER [dark] [WIDTHxHEIGHT]");
        return 2;
    }
    const QDir folder(arguments.takeFirst());
    folder.mkpath(".");
    QSize size;
    for (const QString& argument : arguments) {
        if (argument == "dark") {
            QApplication::setPalette(darkPalette());
        } else {
            const QStringList sides = argument.split('x');
            size = QSize(sides.value(0).toInt(), sides.value(1).toInt());
        }
    }
    FakeSurroundings outside;
    DialogLoop loop;
    HeaderDTC dtc(outside.all(), loop);
    testing::fill(dtc);
    drawTabs(dtc, folder, size);
    drawDialogs(folder);
    return 0;
}
