#include "host/translations/translation_table.h"

#include "platform/text.h"

#include <algorithm>
#include <set>

namespace headerdtc {
namespace {

template <class Row>
std::string placeOf(const Row& row) {
    return row.provider + " " + row.family + " " + row.field;
}

}  // namespace

bool localeLess(const std::string& a, const std::string& b) {
    return a.size() != b.size() ? a.size() < b.size() : a < b;
}

const std::string* TranslationTable::Entry::text(const std::string& locale) const {
    const auto found = texts.find(locale);
    return found == texts.end() || found->second.empty() ? nullptr : &found->second;
}

TranslationTable TranslationTable::gather(const std::vector<TextRow>& texts,
                                          const std::vector<FieldNameRow>& names,
                                          const std::vector<FieldValueRow>& values) {
    TranslationTable table;
    std::set<std::string> locales;
    for (const TextRow& row : texts) {
        Entry& entry = table.entries[row.label];
        if (!entry.texts.emplace(row.locale, row.text).second) entry.repeated.push_back(row.locale);
        if (row.locale != SourceLocale && !row.text.empty()) locales.insert(row.locale);
    }
    const auto addPlace = [&](const std::string& label, const std::string& place) {
        const bool isEmpty = trimBlanks(label).empty();
        (isEmpty ? table.unlabelled : table.entries[label].places).push_back(place);
    };
    for (const FieldNameRow& row : names)
        addPlace(row.label, placeOf(row));
    for (const FieldValueRow& row : values)
        addPlace(row.label, placeOf(row) + " = " + row.value);
    table.locales.assign(locales.begin(), locales.end());
    std::sort(table.locales.begin(), table.locales.end(), localeLess);
    return table;
}

TranslationTable TranslationTable::read(OdbcConnection& connection) {
    return gather(readTextRows(connection), readFieldNameRows(connection),
                  readFieldValueRows(connection));
}

}  // namespace headerdtc
