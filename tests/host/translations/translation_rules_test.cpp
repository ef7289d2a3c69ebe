#include "host/translations/translation_rules.h"

#include "support/prologue.h"

namespace headerdtc::translation_rules_test {

// The rules that a pair of texts breaks.
std::vector<std::string> broken(const char* source, const char* target) {
    std::vector<std::string> rules;
    for (const TranslationRule& rule : translationRules()) {
        if (rule.check && !rule.check(source, target).empty()) rules.emplace_back(rule.id);
    }
    return rules;
}

TEST(TranslationRules, FindWhatATranslatorSlippedOn) {
    EXPECT_THAT(broken("Turnover this year", "Turnover this year"), ElementsAre("unchanged"));
    EXPECT_THAT(broken("Name: ", "Name:"), ElementsAre("blanks"));
    EXPECT_THAT(broken("Name", " Name"), ElementsAre("blanks"));
    EXPECT_THAT(broken("Ready.", "Fertig"), ElementsAre("end-punctuation"));
    EXPECT_THAT(broken("Ready", "Fertig!"), ElementsAre("end-punctuation"));
    EXPECT_THAT(broken("Wait...", "Warten."), ElementsAre("end-punctuation"));
    EXPECT_THAT(broken("%1 of {total}", "%1 von {summe}"), ElementsAre("place-marks"));
    EXPECT_THAT(broken("%s and %s", "%s und"), ElementsAre("place-marks"));
    EXPECT_THAT(broken("for the page", "f\xC3\xBCr die die Seite"), ElementsAre("doubled-word"));
    EXPECT_THAT(broken("one\r\ntwo", "eins zwei"), ElementsAre("line-ends"));
}

TEST(TranslationRules, AreSilentWhereNothingIsWrong) {
    EXPECT_THAT(broken("Status", "Status"), IsEmpty());
    EXPECT_THAT(broken("Ready?", "\xE5\x87\x86\xE5\xA4\x87\xEF\xBC\x9F"), IsEmpty());  // full width
    EXPECT_THAT(broken("More...", "Mehr\xE2\x80\xA6"), IsEmpty());
    EXPECT_THAT(broken("50 % of %1", "%1: 50 %"), IsEmpty());
    EXPECT_THAT(broken("50 % of it", "die H\xC3\xA4lfte"), IsEmpty());
    EXPECT_THAT(broken("{0}: {1}", "{1}, {0}:"), ElementsAre("end-punctuation"));
    EXPECT_THAT(broken("bye bye now", "tsch\xC3\xBC tsch\xC3\xBC jetzt"), IsEmpty());
    EXPECT_THAT(broken("10 10", "20 20 Uhr"), IsEmpty());
}

TEST(TranslationRules, FindGapsAndRowsThatDoNotFit) {
    const auto table =
        TranslationTable::gather({{"A", "One", "1033"},
                                  {"A", "Eins", "1031"},
                                  {"A", "Ein", "1031"},
                                  {"B", "Two", "1033"},
                                  {"B", "", "1031"},
                                  {"C", "Drei", "1031"}},
                                 {{"Ships", "zeko", "IMO", "D"}, {"Ships", "eai", "IMO", ""}},
                                 {{"Ships", "eai", "KIND", "T", " "}});
    EXPECT_THAT(table.locales, ElementsAre("1031"));
    std::vector<std::string> faults;
    for (const auto& fault : findTranslationFaults(table, {"1031", "1036"}))
        faults.push_back(fault.label + " " + fault.locale + " " + std::string(fault.rule));
    EXPECT_THAT(faults, ElementsAre("A 1031 repeated-text", "A 1036 missing", "B 1031 missing",
                                    "B 1036 missing", "C 1033 missing-source", "D  unknown-label",
                                    "  empty-label", "  empty-label"));
}

}  // namespace headerdtc::translation_rules_test
