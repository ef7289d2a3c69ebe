#include "i18n/translation_dialogs.h"
#include "i18n/translation_store.h"
#include "qt/surface/form_binder.h"
#include "qt/surface/form_dialog.h"
#include "qt/surface_fixture.h"

namespace headerdtc::binding_test {

TEST_F(SurfaceTest, EveryControlHasItsWidgetAndNoWidgetIsWithoutControl) {
    for (const Control* control : dtc.surface.controls()) {
        const QWidget* found = surface.findChild<QWidget*>(qt::toQt(control->name()));
        ASSERT_TRUE(found) << control->name();
        EXPECT_EQ(qt::fromQt(found->toolTip()), control->toolTip());
        EXPECT_THAT(qt::fromQt(found->accessibleName()), Not(IsEmpty())) << control->name();
    }
    for (const QWidget* child : surface.findChildren<QWidget*>()) {
        const bool partOfOther = child->window() != &surface ||
                                 child->objectName().startsWith("qt_") ||
                                 qobject_cast<QTabBar*>(child->parentWidget());
        if (!(child->focusPolicy() & Qt::TabFocus) || partOfOther) continue;
        EXPECT_TRUE(dtc.surface.find(qt::fromQt(child->objectName())))
            << qt::fromQt(child->objectName());
    }
}

TEST_F(SurfaceTest, WidgetsAreCalledByWordsEachByItsOwn) {
    dtc.ZEKO.SelectedFieldsList.AddItem("1 - A");
    settle();
    const std::tuple<const Control&, const char*, const char*> cases[] = {
        {dtc.IncludeASPText, "Include ASP", "Include ASP"},
        {dtc.ZEKO.MoveUpCommand, "Move ZEKO field up", "Move up"},
        {dtc.ZEKO.MoveDownLinkedField, "Move linked ZEKO field down", "Move down"},
        {dtc.EAI.FieldsList, "Available EAI fields, 5 items", "Available fields"},
        {dtc.ZEKO.SelectedFieldsList, "Selected ZEKO fields, 1 item", "Selected fields"},
        {dtc.EnableExtraFiltersCheck, "Enable end user to filter on available filters",
         "Enable end user to filter on available filters"},
    };
    for (const auto& [control, name, description] : cases) {
        EXPECT_EQ(qt::fromQt(widget(control).accessibleName()), name) << control.name();
        EXPECT_EQ(qt::fromQt(widget(control).accessibleDescription()), description);
    }
    std::set<std::pair<int, QString>> names;
    for (const Control* control : dtc.surface.controls()) {
        const QString name = widget(*control).accessibleName();
        EXPECT_NE(qt::fromQt(name), control->name());
        EXPECT_TRUE(names.emplace(control->tabPage(), name).second) << qt::fromQt(name);
    }
}

// What is written on a page's widgets, in the order of the form, with the letters that lead to it.
TEST_F(SurfaceTest, EveryPageShowsItsWordsAndItsLetters) {
    std::vector<std::string> pages;
    for (int page = 0; page < 6; ++page) {
        openTab(page);
        QStringList words;
        for (const QWidget* each : surface.findChildren<QWidget*>()) {
            const QVariant text = each->property("text");
            const bool isWritten =
                qobject_cast<const QLabel*>(each) || qobject_cast<const QAbstractButton*>(each);
            if (isWritten && each->isVisible() && !text.toString().isEmpty())
                words += text.toString();
        }
        pages.push_back(words.join('|').toStdString());
    }
    const std::string link =
        "Linked data&provider:|Delete link|Availa&ble:|&Add|De&lete|Selected:|"
        "Order|/\\|\\/|A&dd|Dele&te";
    EXPECT_THAT(
        pages,
        ElementsAre("Da&taProvider:|S&ave|Incl&ude ASP:|...|A&dd|De&lete|...|Ena&ble end user to "
                    "filter on available filters",
                    "Data&Provider:|Availa&ble:|&Add|De&lete|Selected:|Order|/\\|\\/|A&dd|Dele&te",
                    "Data&Provider:|Availa&ble fields:|&Add|De&lete|Order|/\\|\\/|A&dd|Dele&te",
                    "&DataProvider:|&Translate fieldnames:|Tr&anslate fieldvalues:|T&ranslate "
                    "fieldnames:|Trans&late fieldvalues:",
                    link, link));
}

// As the models' own Tab key goes: both ways, and past what is disabled or hidden.
TEST_F(SurfaceTest, TabGoesThroughAPageAsTheModelsDo) {
    for (int page = 0; page < 6; ++page) {
        openTab(page);
        plain.dtc.SSTab1.clickTab(page);
        for (HeaderDTC* each : {&dtc, &plain.dtc})
            each->EAI.RemoveField.Enabled(false);
        for (int step = 0; step < 14; ++step) {
            press(Qt::Key_Tab);
            plain.dtc.surface.ActiveControl()->press(Key::of(Key::Kind::Tab));
            EXPECT_EQ(focused(), plain.dtc.surface.ActiveControl()->name());
            EXPECT_EQ(qtFocused(), focused());
        }
        press(Qt::Key_Backtab, Qt::ShiftModifier);
        plain.dtc.surface.ActiveControl()->press({Key::Kind::Tab, 0, true});
        EXPECT_EQ(focused(), plain.dtc.surface.ActiveControl()->name());
    }
}

TEST(FormBinder, NamesEveryWidgetThatIsMissingOrOfAnotherKind) {
    FakeSurroundings outside;
    const Surroundings surroundings = outside.all();
    TranslationStore store(surroundings);
    Desktop desktop(outside.modalLoop);
    AddLabelDialog models(desktop, surroundings, store);
    QWidget form;
    auto* layout = new QVBoxLayout(&form);
    for (const char* name : {"LabelNameText", "OKButton"}) {
        auto* label = new QLabel;
        label->setObjectName(name);
        layout->addWidget(label);
    }
    EXPECT_THAT(
        [&] { const qt::FormBinder binder(models.form, form); },
        ThrowsMessage<qt::BindingError>(AllOf(
            HasSubstr("AddLabelDialog"), HasSubstr("LabelNameText is a QLabel, not a QLineEdit"),
            HasSubstr("CancelButton is missing"))));
}

}  // namespace headerdtc::binding_test
