#include "host/catalogue_import/catalogue_list.h"

#include "host/files/file_error.h"
#include "host/translations/csv.h"
#include "platform/text.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <list>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace headerdtc {
namespace {

enum Column {
    ProviderColumn,
    FamilyColumn,
    GroupColumn,
    NumberColumn,
    FieldColumn,
    KeyColumn,
    Columns
};
constexpr const char* Heads[Columns] = {"provider", "family", "group", "number", "field", "key"};

class Reader {
  public:
    Reader(const std::string& file, std::string_view text)
        : file_(file), records_(readCsv(file, text)) {}

    Catalogue read() {
        findColumns();
        for (auto record = std::next(records_.begin()); record != records_.end(); ++record)
            take(*record);
        for (auto& [names, keys] : keys_) {
            std::stable_sort(keys.begin(), keys.end(), [](const auto& one, const auto& other) {
                return one.first < other.first;
            });
            for (const auto& [place, field] : keys) {
                if (std::find(names->begin(), names->end(), field) == names->end())
                    names->push_back(field);
            }
        }
        Catalogue catalogue;
        catalogue.providers.assign(providers_.begin(), providers_.end());
        return catalogue;
    }

  private:
    [[noreturn]] void fail(int line, const std::string& problem) const {
        throw FileError(file_, line, 0, problem);
    }

    void findColumns() {
        if (records_.empty()) fail(1, "there is no first line that names the columns");
        const auto& heads = records_.front().cells;
        for (int column = 0; column < Columns; ++column) {
            const auto head = std::find_if(heads.begin(), heads.end(), [&](const auto& cell) {
                return equalIgnoringCase(trimSpace(cell), Heads[column]);
            });
            at_[column] = static_cast<std::size_t>(head - heads.begin());
            const bool isNeeded =
                column == ProviderColumn || column == FamilyColumn || column == FieldColumn;
            if (isNeeded && head == heads.end())
                fail(records_.front().line, std::string("there is no column \"") + Heads[column] +
                                                "\"; the first line names the columns provider, "
                                                "family, group, number, field, key");
        }
    }

    std::string cell(const CsvRecord& record, Column column) const {
        const std::size_t at = at_[column];
        return at < record.cells.size() ? std::string(trimSpace(record.cells[at])) : std::string();
    }

    // A number from 1 on; what else stands there is `what` it should be.
    long long numberIn(const CsvRecord& record, Column column, const char* what) const {
        const std::string text = cell(record, column);
        long long number = 0;
        const auto end = text.data() + text.size();
        const auto [rest, error] = std::from_chars(text.data(), end, number);
        if (error != std::errc() || rest != end || number < 1)
            fail(record.line, "\"" + text + "\" is no " + what);
        return number;
    }

    Catalogue::Provider& providerOf(const CsvRecord& record) {
        const std::string name = cell(record, ProviderColumn);
        if (name.empty()) fail(record.line, "the provider is missing");
        const auto found = std::find_if(providers_.begin(), providers_.end(),
                                        [&](const auto& each) { return each.name == name; });
        if (found != providers_.end()) return *found;
        return providers_.emplace_back(Catalogue::Provider{name, std::nullopt, std::nullopt});
    }

    void take(const CsvRecord& record) {
        Catalogue::Provider& provider = providerOf(record);
        const std::string family = cell(record, FamilyColumn), field = cell(record, FieldColumn);
        if (field.empty()) fail(record.line, "the field is missing");
        std::vector<std::string>* keys = nullptr;
        if (equalIgnoringCase(family, "ZEKO")) {
            keys = take(record, provider.zeko ? *provider.zeko : provider.zeko.emplace(), field);
        } else if (equalIgnoringCase(family, "EAI")) {
            keys = take(record, provider.eai ? *provider.eai : provider.eai.emplace(), field);
        } else {
            fail(record.line, "\"" + family + "\" is no family; write ZEKO or EAI");
        }
        if (!cell(record, KeyColumn).empty())
            keys_[keys].emplace_back(
                numberIn(record, KeyColumn, "place among the key fields; write 1 for the first"),
                field);
    }

    std::vector<std::string>* take(const CsvRecord& record, Catalogue::Zeko& zeko,
                                   const std::string& field) {
        const long long number = numberIn(record, NumberColumn, "number of a ZEKO field");
        const bool isThere = std::any_of(zeko.fields.begin(), zeko.fields.end(),
                                         [&](const auto& each) { return each.number == number; });
        if (isThere)
            fail(record.line,
                 "the provider has another field with the number " + std::to_string(number));
        zeko.fields.push_back({number, field});
        return &zeko.keyFields;
    }

    std::vector<std::string>* take(const CsvRecord& record, Catalogue::Eai& eai,
                                   const std::string& field) {
        const std::string name = cell(record, GroupColumn);
        if (name.empty()) fail(record.line, "the record group of the EAI field is missing");
        auto group = std::find_if(eai.groups.begin(), eai.groups.end(),
                                  [&](const auto& each) { return each.name == name; });
        if (group == eai.groups.end()) group = eai.groups.insert(group, {name, {}});
        if (std::find(group->fields.begin(), group->fields.end(), field) != group->fields.end())
            fail(record.line, "the record group has the field \"" + field + "\" already");
        group->fields.push_back(field);
        return &eai.keyFields;
    }

    const std::string& file_;
    const std::vector<CsvRecord> records_;
    std::size_t at_[Columns] = {};
    std::list<Catalogue::Provider> providers_;  // which stay where they are
    // The key fields of a family, with their places.
    std::map<std::vector<std::string>*, std::vector<std::pair<long long, std::string>>> keys_;
};

}  // namespace

Catalogue readCatalogueList(const std::string& file, std::string_view text) {
    return Reader(file, text).read();
}

}  // namespace headerdtc
