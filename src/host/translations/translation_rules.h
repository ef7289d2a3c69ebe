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

struct TranslationRule {
    std::string_view id;
    std::string_view summary;      // one line
    std::string_view explanation;  // why that is a fault, and what to do
    // For one text of a language beside its source: what is wrong, empty when nothing is. Both
    // texts are there and not empty. nullptr: it looks at the tables as a whole.
    std::string (*check)(std::string_view source, std::string_view target);
};

// All of them, those for texts first, in the order in which they are applied.
std::span<const TranslationRule> translationRules();

// Looks at the texts of these locales.
std::vector<TranslationFault> findTranslationFaults(const TranslationTable& table,
                                                    const std::vector<std::string>& locales);

}  // namespace headerdtc
