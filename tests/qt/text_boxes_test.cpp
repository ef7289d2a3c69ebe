#include "qt/surface/edited_text.h"
#include "qt/surface_fixture.h"

namespace headerdtc::text_boxes_test {

TEST_F(SurfaceTest, PositionsCountCharactersNotUnits) {
    auto& edit = widget<QLineEdit>(dtc.XSLFilenameText);
    click(edit);
    dtc.XSLFilenameText.Text(
        "\xF0\x9D\x84\x9E"
        "ab");  // a character of two units first
    dtc.XSLFilenameText.SelStart(1);
    dtc.XSLFilenameText.SelLength(1);
    EXPECT_EQ(edit.selectedText(), "a");
    edit.setSelection(0, 3);
    EXPECT_EQ(dtc.XSLFilenameText.SelStart(), 0);
    EXPECT_EQ(dtc.XSLFilenameText.SelLength(), 2);
    press(Qt::Key_Delete);
    EXPECT_EQ(dtc.XSLFilenameText.Text(), "b");
}

TEST_F(SurfaceTest, AHandlerCanSwallowAKeyAndChangeTheTextUnderIt) {
    Subscriptions subscriptions;
    subscriptions += dtc.XSLFilenameText.KeyPress.subscribe([](int& code) {
        if (code == 'q') code = 0;
    });
    subscriptions += dtc.XSLFilenameText.Change.subscribe([this] {
        if (dtc.XSLFilenameText.Text() == "reset") dtc.XSLFilenameText.Text("");
    });
    dtc.XSLFilenameText.Text("");
    click(widget(dtc.XSLFilenameText));
    type(surface, "rqeset");
    EXPECT_EQ(dtc.XSLFilenameText.Text(), "");
    EXPECT_EQ(widget<QLineEdit>(dtc.XSLFilenameText).text(), "");
}

TEST_F(SurfaceTest, PasteUndoAndLockedBoxes) {
    auto& edit = widget<QLineEdit>(dtc.XSLFilenameText);
    click(edit);
    edit.selectAll();
    edit.insert("pasted");
    EXPECT_EQ(dtc.XSLFilenameText.Text(), "pasted");
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(dtc.XSLFilenameText.Text(), "xsl/Generic.xsl");
    dtc.XSLFilenameText.Text(std::string(40'000, 'x'));
    EXPECT_EQ(edit.text().size(), 40'000);

    openTab(1);
    dtc.EAI.DataProviderText.Text("Orders");
    click(widget(dtc.EAI.DataProviderText));
    type(surface, "x");
    EXPECT_EQ(dtc.EAI.DataProviderText.Text(), "Orders");
    EXPECT_EQ(widget<QLineEdit>(dtc.EAI.DataProviderText).text(), "Orders");
}

TEST_F(SurfaceTest, WhatIsOnlyToBeReadLiesOnTheGroundOfWhateverTheme) {
    const auto ground = [this](const Control& box) {
        return widget(box).palette().color(QPalette::Base);
    };
    for (const QColor& window : {QColor(240, 240, 240), QColor(50, 50, 50)}) {
        surface.setPalette(QPalette(window));
        EXPECT_EQ(ground(dtc.EAI.DataProviderText), window);
        EXPECT_NE(ground(dtc.XSLFilenameText), window);
    }
}

TEST_F(SurfaceTest, ADropDownListIsChosenFromByKeysAndWheelOnlyWithTheFocus) {
    auto& combo = widget<QComboBox>(dtc.DataProvidersCombo);
    EXPECT_EQ(combo.currentIndex(), -1) << "nothing is chosen until somebody chooses";
    QWheelEvent wheel(combo.rect().center(), combo.mapToGlobal(combo.rect().center()), {},
                      {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&combo, &wheel);
    EXPECT_EQ(dtc.DataProvidersCombo.ListIndex(), -1);
    dtc.DataProvidersCombo.focus();
    events.take();
    press(Qt::Key_Down);
    EXPECT_EQ(dtc.DataProvidersCombo.Text(), "Orders");
    type(surface, "s");
    EXPECT_EQ(dtc.DataProvidersCombo.Text(), "Stock");
    EXPECT_EQ(
        events.take(),
        "DataProvidersCombo.Click, DataProvidersCombo.KeyPress 115, DataProvidersCombo.Click");
    dtc.DataProvidersCombo.RemoveItem(1);
    EXPECT_EQ(combo.currentIndex(), -1);
    EXPECT_EQ(dtc.DataProvidersCombo.Text(), "");
}

TEST(DocumentText, KeepsEachKindOfLineEndAndCountsAsTheModelsDo) {
    const std::string text = "a\r\nb\nc\r\n";
    const QString document = qt::toDocument(text);
    EXPECT_EQ(document.size(), 6);
    EXPECT_EQ(qt::fromDocument(document), text);
    // Before "b": CR and LF are two characters of the model, one place in the document.
    EXPECT_EQ(qt::characterPosition(document, 2), 3);
    EXPECT_EQ(qt::documentPosition(document, 3), 2);
    EXPECT_EQ(qt::documentPosition(document, 8), 6);
}

}  // namespace headerdtc::text_boxes_test
