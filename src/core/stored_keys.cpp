#include "core/stored_keys.h"

#include "core/stored_key_table.h"

#include <charconv>
#include <cstdint>

namespace headerdtc {
namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

struct Numbered {
    std::string_view key;
    int number;
};

// A text with a trailing decimal number, when the number is one that the control writes.
std::optional<Numbered> takeNumber(std::string_view text) {
    std::size_t start = text.size();
    while (start > 0 && isDigit(text[start - 1]))
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
    const bool isOfList = std::holds_alternative<stored::Items>(row.content) ||
                          std::holds_alternative<stored::Selection>(row.content);
    return isOfList ? 0 : 1;
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

std::optional<StoredType> storedTypeOf(std::string_view name) {
    const auto parsed = parseStoredName(name);
    return parsed ? std::optional(parsed->row.type) : std::nullopt;
}

bool isScriptButton(std::string_view name) {
    const auto parsed = parseStoredName(name);
    return parsed && parsed->column == criteria_column::Script;
}

}  // namespace headerdtc
