#pragma once

#include "host/translations/translation_rows.h"

#include <map>
#include <string>
#include <vector>

namespace headerdtc {

// The texts of a translation database by label, with the places that use them.
struct TranslationTable {
    struct Entry {
        std::map<std::string, std::string> texts;  // by locale; of several rows the first
        std::vector<std::string> repeated;         // locales that have several rows
        std::vector<std::string> places;           // "Orders zeko STATUS", "... STATUS = 10"

        // The text of a locale, nullptr where there is none. An empty one counts as none.
        const std::string* text(const std::string& locale) const;
    };

    std::map<std::string, Entry> entries;  // by label; also of labels that only a field names
    std::vector<std::string> unlabelled;   // places whose label is empty
    std::vector<std::string> locales;      // that have a text, by number, the source's left out

    static TranslationTable gather(const std::vector<TextRow>& texts,
                                   const std::vector<FieldNameRow>& names,
                                   const std::vector<FieldValueRow>& values);
    // Of a whole database. Raises what the database raises.
    static TranslationTable read(OdbcConnection& connection);
};

// Locales sort as numbers.
bool localeLess(const std::string& a, const std::string& b);

}  // namespace headerdtc
