#pragma once

#include "host/translations/translation_table.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace headerdtc {

// A gap or fault of a translation database.
struct TranslationFault {
    std::string_view rule;  // identifier
    std::string label;
    std::string locale;  // empty: of no language in particular
    std::string text;    // what is wrong, a sentence without its full stop
};

// A rule for one text of a language beside its source.
struct TranslationRule {
    std::string_view id;
    std::string_view summary;  // one line
    // What is wrong, empty when nothing is. Both texts are there and not empty.
    std::string (*check)(std::string_view source, std::string_view target);
};

// All of them, in the order in which they are applied.
std::span<const TranslationRule> translationRules();

// Rules for what is missing or doubled, which looks at the tables as a whole.
inline constexpr struct {
    std::string_view id, summary;
} TranslationTableRules[] = {
    {"unknown-label", "a field is translated by a label that has no text at all"},
    {"empty-label", "a field is translated by an empty label"},
    {"missing-source", "a label has texts, but none to translate from (1033)"},
    {"repeated-text", "a label has several texts in one language"},
    {"missing", "a label has no text in a language"},
};

// Looks at the texts of these locales.
std::vector<TranslationFault> findTranslationFaults(const TranslationTable& table,
                                                    const std::vector<std::string>& locales);

}  // namespace headerdtc
