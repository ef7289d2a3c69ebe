#include "host/translations/translation_file.h"

#include "host/files/file_error.h"
#include "host/translations/csv.h"
#include "host/translations/translation_import.h"
#include "support/prologue.h"

namespace headerdtc::translation_file_test {

using Action = ImportStep::Action;

TranslationTable harbourTexts() {
    return TranslationTable::gather({{"H1", "Ship", "1033"},
                                     {"H1", "Schiff", "1031"},
                                     {"H2", "Berth, \"free\"", "1033"},
                                     {"H3", "", "1033"},
                                     {"H3", "Lotse", "1031"},
                                     {"H4", "Tug", "1033"},
                                     {"H4", "Schlepper", "1031"},
                                     {"H4", "Bugsierer", "1031"}},
                                    {{"Ships", "zeko", "IMO", "H1"}, {"Ships", "eai", "IMO", "H1"}},
                                    {{"Ships", "zeko", "KIND", "T", "H4"}});
}

// "line label locale action reason-or-text" of every cell that is not as it was.
std::vector<std::string> planned(const std::string& csv, const TranslationTable& table,
                                 long longest = 0) {
    std::vector<std::string> plan;
    const char* const words[] = {"none", "add", "change", "refuse"};
    for (const ImportStep& step :
         planImport(TranslationFile::parse("file.csv", csv), table, longest)) {
        if (step.action == Action::None) continue;
        plan.push_back(std::to_string(step.line) + " " + step.label + " " + step.locale + " " +
                       words[static_cast<int>(step.action)] + " " +
                       (step.action == Action::Refuse ? step.reason : step.after));
    }
    return plan;
}

TEST(TranslationFile, HasARowForEachLabelThatCanBeTranslated) {
    const std::string text = exportTranslations(harbourTexts(), {.locales = {"1031", "1036"}});
    const auto file = TranslationFile::parse("file.csv", text);
    EXPECT_THAT(file.locales, ElementsAre("1031", "1036"));
    ASSERT_EQ(file.rows.size(), 3U);
    EXPECT_EQ(file.rows[1].label, "H2");
    EXPECT_EQ(file.rows[1].source, "Berth, \"free\"");
    EXPECT_EQ(file.rows[1].texts.at("1031"), "");
    EXPECT_EQ(file.rows[0].texts.at("1031"), "Schiff");
    EXPECT_THAT(text, HasSubstr("Ships zeko IMO; Ships eai IMO"));
    EXPECT_THAT(text, HasSubstr("Ships zeko KIND = T"));

    const auto gaps = exportTranslations(harbourTexts(), {.locales = {"1031"}, .onlyGaps = true});
    EXPECT_EQ(TranslationFile::parse("file.csv", gaps).rows.size(), 1U);
}

TEST(TranslationFile, TakesForAnEditNothingThatASpreadsheetDoes) {
    const auto texts = TranslationTable::gather(
        {{"L", "Two\r\nlines", "1033"}, {"L", "Zwei\r\nZeilen", "1031"}}, {}, {});
    const std::string text = exportTranslations(texts, {.locales = {"1031"}});
    EXPECT_THAT(planned(replaceAll(text, "\r\n", "\n") + ",,,,\n  ,,,,\n", texts), IsEmpty());
    EXPECT_THAT(planned("key,1031\nL,\"Drei\nZeilen\"\n", texts),
                ElementsAre("2 L 1031 change Drei\r\nZeilen"));
    EXPECT_THAT(planned("key,01031\nL,  \n", texts), IsEmpty()) << "what was emptied is kept";
    EXPECT_THAT(planned("key,01031\nL,Neu\n", texts), ElementsAre("2 L 1031 change Neu"));
}

TEST(TranslationFile, KeepsWhatASpreadsheetWouldTakeForSomethingElse) {
    const std::vector<std::string> taken = {
        "=1+1",  "+49 30", "-5",     "@x",    "007",        "1E5",      "1,000.50",
        " 5",    "\t=A1",  "50%",    "12:30", "5 PM",       "1/2/2024", "2024-01-02T10:00Z",
        "3 May", "Mai 24", "März 5", "€5",    "2. janvier", "5 €",      "1月2日",
        "TRUE",  "falsch", "'=1+1",  "''007"};
    const std::vector<std::string> plain = {"'",       "'s morgens", "'90s", "O'Neill", "Dock 7",
                                            "7 docks", "H1",         "Mark", " two ",   ""};
    for (const auto* texts : {&taken, &plain}) {
        for (const std::string& text : *texts) {
            const std::string cell = (texts == &taken ? "'" : "") + text;
            EXPECT_EQ(cellOfText(text), cell);
            EXPECT_EQ(textOfCell(cell), text);
            const std::string label = text.empty() ? "L" : text;
            const auto table = TranslationTable::gather(
                {{label, text + "?", "1033"}, {label, text, "1031"}}, {}, {});
            const std::string csv = exportTranslations(table, {.locales = {"1031"}});
            EXPECT_THAT(planned(csv, table), IsEmpty()) << csv;
            // As the version before wrote it.
            const std::string state =
                csv.substr(csv.rfind(',') + 1, csv.size() - csv.rfind(',') - 3);
            const std::string older = csvRecord({"key", "source (1033)", "1031", "state"}) +
                                      csvRecord({label, text + "?", text, state});
            EXPECT_THAT(planned(older, table), IsEmpty()) << older;
        }
    }
}

TEST(TranslationFile, RefusesWhatCouldLoseSomething) {
    for (const auto& [csv, said] : casesOf("host/cases/translation_import.txt")) {
        std::string all;
        const std::string failure = errorOf<FileError>([&, csv = csv] {
            for (const auto& cell : planned(csv, harbourTexts(), 9))
                all += (all.empty() ? "" : "; ") + cell;
        });
        EXPECT_THAT(all + failure, HasSubstr(said)) << csv;
    }
}

TEST(TranslationFile, SeesWhatWasChangedMeanwhile) {
    const std::string unedited = exportTranslations(harbourTexts(), {.locales = {"1031", "1036"}});
    const std::string text = replaceAll(unedited, "H1,Ship,Schiff,", "H1,Ship,Boot,");
    const auto now = [](const std::string& locale, const std::string& changed) {
        auto table = harbourTexts();
        table.entries["H1"].texts[locale] = changed;
        return table;
    };
    EXPECT_THAT(planned(text, now("1031", "Kahn")),
                ElementsAre("2 H1 1031 refuse it was changed in the database since the export"));
    EXPECT_THAT(planned(text, now("1031", "Boot")), IsEmpty()) << "to the same";
    EXPECT_THAT(planned(text, now("1036", "Navire")), ElementsAre("2 H1 1031 change Boot"));
    EXPECT_THAT(planned(text, now("1033", "Vessel")),
                ElementsAre("2 H1 1031 refuse its source was changed in the database since the "
                            "export"));
    for (const char* locale : {"1031", "1033", "1036"})
        EXPECT_THAT(planned(unedited, now(locale, "Other")), IsEmpty()) << "nothing is edited";
    EXPECT_THAT(planned(replaceAll(unedited, "H1,Ship", "H1,Sloop"), now("1033", "Vessel")),
                ElementsAre(HasSubstr("2 H1 1033 refuse its source was edited")));

    // A state that was emptied, cut off or taken for something else.
    const auto begin = text.find("1033:"), end = text.find("\r\n", begin);
    const std::string state = text.substr(begin, end - begin);
    for (const std::string& damaged : {std::string(), std::string("x"), state.substr(0, 8),
                                       state.substr(0, 20), state.substr(14), state + " 7"}) {
        EXPECT_THAT(planned(replaceAll(text, state, damaged), now("1031", "Kahn")),
                    ElementsAre(HasSubstr("2 H1 1031 refuse its state is empty or damaged")))
            << damaged;
        EXPECT_THAT(planned(replaceAll(unedited, state, damaged), harbourTexts()), IsEmpty());
    }
    EXPECT_THAT(planned(replaceAll(text, state, state.substr(0, 13)), harbourTexts()),
                ElementsAre(HasSubstr("2 H1 1031 refuse the database has a text there")));
}

// Blanks at the ends belong to a label; exports of former versions lack them.
TEST(TranslationFile, FindsLabelsWithBlanksAtTheirEnds) {
    const auto texts = TranslationTable::gather({{" A ", "One", "1033"},
                                                 {"B", "Two", "1033"},
                                                 {"B ", "Three", "1033"},
                                                 {"  ", "Four", "1033"}},
                                                {}, {});
    const std::string text = exportTranslations(texts, {.locales = {"1031"}});
    EXPECT_THAT(
        planned(replaceAll(replaceAll(text, "One,", "One,Eins"), "Four,", "Four,Vier"), texts),
        ElementsAre("2    1031 add Vier", "3  A  1031 add Eins"));
    EXPECT_THAT(planned("key,1031\nA,Eins\nB,Zwei\nB  ,Drei\n", texts),
                ElementsAre("2  A  1031 add Eins", "3 B 1031 add Zwei",
                            "4 B    refuse the database has no such label"));
}

TEST(TranslationFile, HasItsColumnsInAnyOrder) {
    // With columns of a spreadsheet's own, the source headed by its locale.
    const auto file = TranslationFile::parse("f", "notes,1033,1031,KEY\nx,Ship,Boot,H1\n");
    EXPECT_EQ(file.rows.at(0).source, "Ship");
    EXPECT_THAT(file.passedOver, ElementsAre("notes"));
    EXPECT_THAT(file.locales, ElementsAre("1031"));
}

}  // namespace headerdtc::translation_file_test
