// What a person did, written down and done again by automation.

#include "host/automation/recording.h"

#include "controls/label.h"
#include "core/header_dtc.h"
#include "host/automation/automation.h"
#include "host/automation/automation_session.h"
#include "host/files/file_replacer.h"
#include "host/generation/page_generation.h"
#include "host/page/page_document.h"
#include "host/page/text_property_bag.h"
#include "support/prologue.h"
#include "support/temp_site.h"

namespace headerdtc::recording_test {

using Outcome = PageChange::Outcome;

// The notice that a stored property's change comes with; empty where it needs none: a count goes
// with its list, and looking a name up may add it to a dictionary.
std::string noticeOf(const std::string& stored) {
    const std::string name = stored.substr(0, stored.find_last_not_of("0123456789_") + 1);
    const std::string family = name.find("ZEKO") != std::string::npos ? "ZEKO" : "EAI";
    if (name.find("I18NField") != std::string::npos) return family + "ReturnFields";
    if (name.ends_with("CriteriaType") || name.find("UserDefinedScript") != std::string::npos)
        return {};
    const bool isOwn = name.ends_with("CriteriaCount") || name.starts_with("NrOfLinked");
    const bool isCount = name.starts_with("NrOf") || name.ends_with("Count");
    return isCount && !isOwn ? std::string() : name;
}

// A control of a page, recorded from its loading on, and the person at it.
class Recorded : private ModalLoop, private FileDialog {
  public:
    Recorded(Sites& sites, const std::filesystem::path& page)
        : site_(sites.forPage(page)),
          document_(page, site_->configuration->codePage),
          control_(site_, page, document_.markup().controls().front(),
                   {messages_, *this, messages_, *this}),
          recording(control_.dtc().desktop) {}

    HeaderDTC& dtc() { return control_.dtc(); }
    std::string saved() {
        return document_.bytesWith(0, control_, PageDocument::Guard::RefuseLosses);
    }

    // Stored properties that came to be others since the last call, and no notice said so. The
    // others are noted, with who did it.
    std::vector<std::string> changedInSilence(const std::string& by, std::set<std::string>& noted) {
        std::set<std::string> told;
        for (const auto& event : messages_.take()) {
            if (event.contains("changed")) told.insert(event["changed"].get<std::string>());
        }
        CollectingPropertyBag written;
        dtc().UserControl_WriteProperties(written);
        StoredProperties now = written.asStored();
        std::sort(now.begin(), now.end());
        StoredProperties changed;
        std::set_symmetric_difference(stored_.begin(), stored_.end(), now.begin(), now.end(),
                                      std::back_inserter(changed));
        stored_ = std::move(now);
        std::vector<std::string> silent;
        for (const auto& [name, value] : changed) {
            const std::string notice = noticeOf(name);
            if (notice.empty()) continue;
            if (!told.contains(notice)) silent.push_back(name);
            noted.insert(by + " changes " + notice);
        }
        return silent;
    }

    // What the person does in each dialog that opens, before dismissing it; answers the next file
    // dialog.
    std::function<void(Form&)> inDialog;
    std::string nextFile;

  private:
    void run(Form& form) override {
        if (inDialog) inDialog(form);
        if (form.Visible()) form.dismiss();
        if (form.Visible()) ADD_FAILURE() << form.name() << " does not close";
        form.Hide();
    }
    std::string open(const FileDialogRequest&) override {
        recording.fileChosen(nextFile);
        return nextFile;
    }

    std::shared_ptr<Site> site_;
    PageDocument document_;
    EventLog messages_;
    OpenControl control_;
    StoredProperties stored_;  // in alphabetical order

  public:
    Recording recording;
};

class RecordingTest : public Test {
  protected:
    RecordingTest() {
        site.write("page.asp", TempSite::page(TempSite::ordersParams()));
        site.write("c/Suite/Include/Dates.asp", "");
    }

    TempSite site;
    Sites sites;
};

TEST_F(RecordingTest, WritesTheCommandsThatDoTheSame) {
    Recorded person(sites, site / "page.asp");
    HeaderDTC& dtc = person.dtc();
    dtc.XSLFilenameText.focus();
    dtc.XSLFilenameText.edited("x", 1, 0);
    dtc.XSLFilenameText.edited("xy", 2, 0);
    person.nextFile = "C:\\Suite\\Include\\Dates.asp";
    dtc.BrowseForIncludeASPCommand.press();
    dtc.SSTab1.clickTab(2);
    dtc.ZEKO.CriteriaGrid.clickCell(1, criteria_column::Key);
    dtc.ZEKO.KeyFieldsCombo.focus();
    EXPECT_THROW(dtc.ZEKO.OperatorsCombo.focus(), ActionRefused);
    dtc.ZEKO.CriteriaGrid.clickCell(1, criteria_column::Value);
    dtc.ZEKO.CriteriaGrid.clickAgain();
    dtc.ZEKO.KeyFieldValueText.keyDown(Key::of(U'7'));
    dtc.ZEKO.KeyFieldValueText.keyPress(Key::of(U'7'));
    dtc.ZEKO.KeyFieldValueText.edited("7", 1, 0);
    dtc.ZEKO.KeyFieldValueText.keyDown(Key::of(Key::Kind::Delete));
    dtc.ZEKO.KeyFieldValueText.press(Key::of(Key::Kind::Up));
    person.inDialog = [](Form& form) {
        dynamic_cast<TextBox&>(*form.find("NameText")).type("First");
    };
    dtc.ZEKO.CriteriaGrid.clickCell(1, criteria_column::Script);
    EXPECT_THAT(
        person.recording.lines(),
        ElementsAre(R"({"do":"type","control":"XSLFilenameText","text":"xy"})",
                    R"({"do":"pick","file":"C:\\Suite\\Include\\Dates.asp"})",
                    R"({"do":"click","control":"BrowseForIncludeASPCommand"})",
                    R"({"do":"tab","index":2})",
                    R"({"do":"cell","control":"ZEKOCriteriaGrid","row":1,"column":1})",
                    R"({"do":"focus","control":"ZEKOKeyFieldsCombo"})",
                    R"({"do":"dblcell","control":"ZEKOCriteriaGrid","row":1,"column":3})",
                    R"({"do":"type","control":"ZEKOKeyFieldValueText","text":"7"})",
                    R"({"do":"key","control":"ZEKOKeyFieldValueText","key":"Delete"})",
                    R"({"do":"key","control":"ZEKOKeyFieldValueText","key":"Up"})",
                    R"({"do":"cell","control":"ZEKOCriteriaGrid","row":1,"column":4})",
                    R"({"do":"type","control":"SpecifyCriteriumDialog.NameText","text":"First"})",
                    R"({"do":"click","control":"SpecifyCriteriumDialog.CancelButton"})"));
    EXPECT_THAT(person.recording.script(), HasSubstr("}\n{\"do\":\"save\"}\n"));
    // Also where a double click is all that was done.
    Recorded second(sites, site / "page.asp");
    second.dtc().SSTab1.Tab(2);
    second.dtc().ZEKO.CriteriaGrid.clickCell(1, criteria_column::Value);
    second.dtc().ZEKO.CriteriaGrid.clickAgain();
    EXPECT_THAT(second.recording.lines(), ElementsAre(HasSubstr("dblcell")));
}

// Another page has the items at other places. Only where texts would name others, places are told.
TEST_F(RecordingTest, ItemsAreWrittenByTheirTexts) {
    Recorded person(sites, site / "page.asp");
    HeaderDTC& dtc = person.dtc();
    ListBox& list = dtc.ZEKO.FieldsList;
    for (const char* text : {"A", "B", "A", "C"})
        list.AddItem(text);
    dtc.SSTab1.clickTab(2);
    list.select({1, 3}, 1);
    list.select({0, 2}, 2);
    list.select({2}, 2);
    list.select({3}, 1);
    list.press(Key::of(U'c'));
    list.press(Key::of(Key::Kind::Up));
    list.press(Key::of(U' '));
    list.doubleClick(1);
    list.doubleClick(1);
    EXPECT_THAT(
        person.recording.lines(),
        ElementsAre(R"({"do":"tab","index":2})",
                    R"({"do":"select","control":"ZEKOFieldsList","texts":["C","B"]})",
                    R"({"do":"select","control":"ZEKOFieldsList","texts":["A","A"]})",
                    R"({"do":"select","control":"ZEKOFieldsList","items":[2]})",
                    R"({"do":"select","control":"ZEKOFieldsList","texts":["C"],"focus":"B"})",
                    R"({"do":"select","control":"ZEKOFieldsList","texts":["C"]})",
                    R"({"do":"select","control":"ZEKOFieldsList","items":[2]})",
                    R"({"do":"select","control":"ZEKOFieldsList","texts":[],"focus":2})",
                    R"({"do":"dblclick","control":"ZEKOFieldsList","text":"B"})",
                    R"({"do":"dblclick","control":"ZEKOFieldsList","item":1})"));
}

// Somebody who tries everything, the way that windows do it: boxes are edited step by step, a cell
// is pressed twice, rows are scrolled.
class Anybody : private ControlVisitor {
  public:
    explicit Anybody(unsigned seed) : random_(seed) {}

    // Tells at which control.
    std::string act(Form& form) {
        Control& control = *form.controls()[roll(form.controls().size())];
        // It would write another file than the page.
        if (control.name() == "SaveCommand") return {};
        try {
            if (roll(20) == 0) {
                form.press(key());
            } else if (roll(10) == 0) {
                control.focus();
            } else if (roll(6) == 0) {
                control.press(key());
            } else {
                control.accept(*this);
            }
        } catch (const ActionRefused&) {
        } catch (const RuntimeError&) {
            // Out of a dialog a failure reaches the handler that opened it.
            if (form.kind() == Form::Kind::Dialog) throw;
        }
        return control.name();
    }
    std::size_t roll(std::size_t below) {
        return std::uniform_int_distribution<std::size_t>(0, below - 1)(random_);
    }

  private:
    int any(int count) {
        return count > 0 ? static_cast<int>(roll(static_cast<std::size_t>(count))) : 0;
    }
    Key key() {
        constexpr Key::Kind Kinds[] = {
            Key::Kind::Character, Key::Kind::Enter, Key::Kind::Up,
            Key::Kind::Down,      Key::Kind::Left,  Key::Kind::Right,
            Key::Kind::Delete,    Key::Kind::Tab,   Key::Kind::Backspace};
        Key key = Key::of(Kinds[roll(std::size(Kinds))]);
        key.character = key.kind == Key::Kind::Character ? (roll(2) == 0 ? U'1' : U' ') : 0;
        key.shift = key.kind == Key::Kind::Tab && roll(2) == 0;
        return key;
    }
    std::string text() {
        const char* const texts[] = {"1", "100200", "First", "a\"b", "O & K", "\xC3\xA4"};
        return texts[roll(std::size(texts))];
    }

    void visit(Button& button) override { button.press(); }
    void visit(CheckBox& box) override { box.toggle(); }
    void visit(OptionButton& option) override { option.pick(); }
    void visit(Label&) override {}
    void visit(ComboBox& combo) override {
        if (combo.isEditable() && roll(2) == 0) return combo.type(text());
        combo.keyPress(Key::of(U'x'));
        combo.choose(any(combo.ListCount()));
    }
    void visit(ListBox& list) override {
        std::vector<int> items;
        for (int i = 0; i < list.ListCount(); ++i) {
            if (roll(2) == 0) items.push_back(i);
        }
        if (!list.isMultiSelect()) items = {any(list.ListCount())};
        const int focus = list.isMultiSelect() ? any(list.ListCount() + 1) - 1 : items.front();
        if (roll(4) == 0) return list.doubleClick(any(list.ListCount()));
        list.select(items, focus);
        if (roll(4) == 0) list.doubleClickEmptyArea();
    }
    void visit(TextBox& box) override {
        if (box.Locked()) return;
        box.focus();
        for (const char c : text()) {
            const Key pressed =
                roll(4) == 0
                    ? Key::of(Key::Kind::Delete)
                    : Key::of(static_cast<char32_t>(static_cast<unsigned char>(c) & 0x7FU));
            if (!box.keyDown(pressed) || !box.keyPress(pressed) || !box.hasFocus()) return;
            const std::string now = box.Text().empty() || roll(3) > 0 ? box.Text() + "q" : "";
            box.edited(now, static_cast<int>(roll(2)), 0);
        }
        if (roll(2) == 0) box.press(Key::of(roll(2) == 0 ? Key::Kind::Enter : Key::Kind::Escape));
    }
    void visit(Grid& grid) override {
        const int row = 1 + any(grid.Rows() - 1);
        const int column = any(grid.Cols());
        if (roll(6) == 0) return grid.scroll(row);
        if (roll(6) == 0) return grid.doubleClickCell(row, column);
        grid.clickCell(row, column);
        if (roll(3) == 0) grid.clickAgain();
    }
    // Most of what there is to do begins with a tab.
    void visit(TabStrip& strip) override {
        const auto count = static_cast<int>(strip.captions().size());
        strip.clickTab(any(count));
    }

    std::mt19937 random_;
};

void doAnythingAndReplay(Sites& sites, const std::filesystem::path& page, unsigned seed,
                         std::set<std::string>& noted) {
    Anybody anybody(seed);
    Recorded person(sites, page);
    HeaderDTC& dtc = person.dtc();
    person.inDialog = [&](Form& form) {
        for (int step = 0; form.Visible() && step < 12; ++step)
            anybody.act(form);
    };
    // Nobody would often come to delete a return field that a linked provider has too.
    for (const char* provider : {"Stock", "Orders"}) {
        dtc.SSTab1.clickTab(0);
        dtc.DataProvidersCombo.choose(provider);
        dtc.SSTab1.clickTab(1);
    }
    dtc.EAI.FieldsList.doubleClick(0);
    dtc.SSTab1.clickTab(4);
    dtc.EAI.LinkedDataProvidersCombo.choose("Orders");
    person.changedInSilence({}, noted);
    for (int tab = 0; tab < 6; ++tab) {
        try {
            dtc.SSTab1.clickTab(tab < 2 ? 2 - tab : static_cast<int>(anybody.roll(6)));
        } catch (const RuntimeError&) {
        }
        for (int step = 0; step < 60; ++step) {
            person.nextFile = anybody.roll(2) == 0 ? "C:\\Suite\\Include\\Dates.asp" : "";
            const std::string by = anybody.act(dtc.surface);
            ASSERT_THAT(person.changedInSilence(by, noted), IsEmpty()) << person.recording.script();
        }
    }
    const std::string script = person.recording.script();
    dtc.surface.finishEditing();
    const std::string saved = person.saved();
    const PageChange replayed = replayOnPage(sites, page, "", script);
    ASSERT_THAT(replayed.failures, IsEmpty()) << script;
    EXPECT_EQ(saved, replayed.outcome == Outcome::Changed ? replayed.after : replayed.before)
        << script;

    // What is saved is opened to the same, and looking at it changes nothing.
    replaceWholeFile(page, saved, FileStamp::of(page));
    const GeneratedPage generated = generatePage(page, sites, LossGuard::RefuseLosses);
    ASSERT_EQ(generated.verdict, GeneratedPage::Verdict::UpToDate)
        << PrintToString(generated.messages) << script;
    Recorded again(sites, page);
    for (const Family family : BothFamilies) {
        again.dtc().SSTab1.clickTab(traitsOf(family).tabPage);
        again.dtc().family(family).CriteriaGrid.clickCell(1, criteria_column::Script);
    }
    EXPECT_EQ(again.saved(), saved) << script;
}

// A longer run by hand: HEADERDTC_RANDOM_RUNS=10000.
TEST_F(RecordingTest, WhateverIsDoneIsToldReplaysToTheSamePageAndComesBack) {
    const std::string fresh = readWholeFile(site / "page.asp").bytes;
    const char* const runs = std::getenv("HEADERDTC_RANDOM_RUNS");
    const unsigned count = runs ? static_cast<unsigned>(std::stoul(runs)) : 200;
    std::set<std::string> noted;
    for (unsigned seed = 1; seed <= count && !HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        site.write("page.asp", fresh);
        doAnythingAndReplay(sites, site / "page.asp", seed, noted);
    }
    EXPECT_THAT(noted, IsSupersetOf({"EAIRemoveField changes EAIAvailableFieldsLinked",
                                     "ZEKORemoveField changes ZEKOAvailableFieldsLinked"}));
}

}  // namespace headerdtc::recording_test
