#include "core/stored_keys.h"

#include "core/stored_key_table.h"
#include "platform/ascii.h"

#include <charconv>
#include <cstdint>
#include <utility>

namespace headerdtc {
namespace {

struct Numbered {
    std::string_view key;
    int number;
};

// A text with a trailing decimal number, when the number is one that the control writes.
std::optional<Numbered> takeNumber(std::string_view text) {
    std::size_t start = text.size();
    while (start > 0 && ascii::isDigit(text[start - 1]))
        --start;
    const std::string_view digits = text.substr(start);
    if (digits.empty() || (digits.size() > 1 && digits.front() == '0')) return std::nullopt;
    std::int16_t number = 0;
    const auto [stop, failure] =
        std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (failure != std::errc()) return std::nullopt;
    return Numbered{text.substr(0, start), number};
}

int firstNumber(const stored::Row& row) {
    return row.holds<stored::Items, stored::Selection>() ? 0 : 1;
}

// Where a part is edited.
enum class Tab { General, Family, Translations, Link };

using Named = CatalogueName::What;
constexpr CatalogueName OwnProvider = {Named::Provider, false};
constexpr CatalogueName OtherProvider = {Named::Provider, true};
constexpr CatalogueName OwnEntry = {Named::Entry, false}, OtherEntry = {Named::Entry, true};
constexpr CatalogueName OwnKey = {Named::KeyField, false}, OtherKey = {Named::KeyField, true};

struct PartTraits {
    std::string_view caption;  // "@" stands for the family's prefix
    StoredPart part;
    Tab tab;
    std::optional<CatalogueName> names = {};  // what its texts name
};
// In the order of StoredPart.
constexpr PartTraits PartTable[] = {
    {"linked data provider", StoredPart::LinkedDataProvider, Tab::Link, OtherProvider},
    {"data provider", StoredPart::DataProvider, Tab::General, OwnProvider},
    {"extra filters", StoredPart::ExtraFilters, Tab::General},
    {"include files", StoredPart::Includes, Tab::General},
    {"stylesheet", StoredPart::Stylesheet, Tab::General},
    {"scripts", StoredPart::Scripts, Tab::Family},
    {"@ return fields", StoredPart::ReturnFields, Tab::Family, OwnEntry},
    {"@ linked fields", StoredPart::LinkedFields, Tab::Link, OtherEntry},
    {"@ translated names", StoredPart::TranslatedNames, Tab::Translations, OwnEntry},
    {"@ translated values", StoredPart::TranslatedValues, Tab::Translations, OwnEntry},
    {"@ criteria", StoredPart::Criteria, Tab::Family, OwnKey},
    {"@ links", StoredPart::Links, Tab::Link, OwnEntry},
    {"@ key fields", StoredPart::KeyFields, Tab::Family, OwnKey},
    {"linked provider's @ fields", StoredPart::LinkedAvailableFields, Tab::Link, OtherEntry},
    {"@ available fields", StoredPart::AvailableFields, Tab::Family, OwnEntry},
    {"linked provider's @ key fields", StoredPart::LinkedKeyFields, Tab::Link, OtherKey},
};

const PartTraits& traitsOf(StoredPart part) {
    return PartTable[static_cast<std::size_t>(part)];
}

bool isColumn(int column) {
    return column >= criteria_column::Key && column <= criteria_column::Script;
}

}  // namespace

std::optional<StoredName> parseStoredName(std::string_view name) {
    const auto numbered = takeNumber(name);
    const bool isCell = numbered && numbered->key.ends_with('_') && isColumn(numbered->number);
    const auto cell = isCell ? takeNumber(numbered->key.substr(0, numbered->key.size() - 1))
                             : std::optional<Numbered>();
    for (const stored::Row& row : stored::Table) {
        switch (row.name) {
            case stored::Name::Alone:
                if (name == row.key) return StoredName{row};
                break;
            case stored::Name::Numbered:
                if (numbered && numbered->key == row.key && numbered->number >= firstNumber(row))
                    return StoredName{row, numbered->number};
                break;
            case stored::Name::Cell:
                if (cell && cell->key == row.key && cell->number >= firstNumber(row))
                    return StoredName{row, cell->number, numbered->number};
                break;
            case stored::Name::Suffixed:
                if (name.ends_with(row.key))
                    return StoredName{row, -1, -1, name.substr(0, name.size() - row.key.size())};
                break;
        }
    }
    return std::nullopt;
}

std::optional<CatalogueName> StoredName::catalogueName() const {
    using namespace stored;
    const auto& names = traitsOf(row.part).names;
    if (row.holds<ItemCount, SelectionCount, RowCount, CriteriaTypes>()) return std::nullopt;
    switch (row.part) {
        case StoredPart::Criteria:
            return column == criteria_column::Key ? names : std::nullopt;
        case StoredPart::Links:
            return row.holds<LinkRows>() ? names : OtherKey;
        default:
            return names;
    }
}

std::string ControlPart::caption() const {
    std::string text(traitsOf(part).caption);
    if (const auto place = text.find('@'); place != std::string::npos)
        text.replace(place, 1, headerdtc::traitsOf(*family).prefix);
    return text;
}

// A link part that both families share is edited on the ZEKO tab.
int ControlPart::tabPage() const {
    const FamilyTraits& own = headerdtc::traitsOf(family.value_or(Family::ZEKO));
    switch (traitsOf(part).tab) {
        case Tab::Family:
            return own.tabPage;
        case Tab::Translations:
            return I18NTabPage;
        case Tab::Link:
            return own.linkTabPage;
        case Tab::General:
            break;
    }
    return GeneralTabPage;
}

bool ControlPart::operator<(const ControlPart& other) const {
    return std::pair(part, family == Family::EAI) <
           std::pair(other.part, other.family == Family::EAI);
}

std::optional<ControlPart> partOf(std::string_view name) {
    const auto parsed = parseStoredName(name);
    if (!parsed) return std::nullopt;
    return ControlPart{parsed->row.part, parsed->row.family()};
}

std::optional<StoredType> storedTypeOf(std::string_view name) {
    const auto parsed = parseStoredName(name);
    return parsed ? std::optional(parsed->row.type) : std::nullopt;
}

bool isScriptButton(std::string_view name) {
    const auto parsed = parseStoredName(name);
    return parsed && parsed->column == criteria_column::Script;
}

}  // namespace headerdtc
