#include "core/stored_keys.h"

#include "core/stored_key_table.h"
#include "core/stored_values.h"

namespace headerdtc {
namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// A text without its trailing decimal number, when the number is one that the control writes.
std::optional<std::string_view> withoutNumber(std::string_view text) {
    std::size_t start = text.size();
    while (start > 0 && isDigit(text[start - 1]))
        --start;
    const std::string_view number = text.substr(start);
    if (number.empty() || (number.size() > 1 && number.front() == '0')) return std::nullopt;
    return text.substr(0, start);
}

// The same for a trailing row, "_" and column.
std::optional<std::string_view> withoutCell(std::string_view text) {
    const auto row = withoutNumber(text);
    if (!row || !row->ends_with('_')) return std::nullopt;
    return withoutNumber(row->substr(0, row->size() - 1));
}

const stored::Row* rowFor(std::string_view name) {
    const auto numbered = withoutNumber(name);
    const auto cell = withoutCell(name);
    for (const stored::Row& row : stored::Table) {
        bool matches = false;
        switch (row.name) {
            case stored::Name::Alone:
                matches = name == row.key;
                break;
            case stored::Name::Numbered:
                matches = numbered == row.key;
                break;
            case stored::Name::Cell:
                matches = cell == row.key;
                break;
            case stored::Name::Suffixed:
                matches = name.ends_with(row.key);
                break;
        }
        if (matches) return &row;
    }
    return nullptr;
}

PropertyValue defaultInType(const stored::Row& row) {
    PropertyValue fallback = stored::readingDefault(row);
    return row.type == StoredType::Integer ? PropertyValue(toInteger(fallback)) : fallback;
}

}  // namespace

std::optional<StoredType> storedTypeOf(std::string_view name) {
    const stored::Row* row = rowFor(name);
    return row ? std::optional(row->type) : std::nullopt;
}

std::optional<StoredKind> storedKindOf(std::string_view name) {
    const stored::Row* row = rowFor(name);
    if (!row) return std::nullopt;
    const bool isUnordered = std::holds_alternative<stored::Scripts>(row->content) ||
                             std::holds_alternative<stored::CriteriaTypes>(row->content) ||
                             std::holds_alternative<stored::Selection>(row->content);
    return StoredKind{row->type, defaultInType(*row), isUnordered ? row->key : std::string_view()};
}

}  // namespace headerdtc
