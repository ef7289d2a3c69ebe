#include "core/stored_key_table.h"
#include "host/inspection/finding.h"
#include "host/rename/rename.h"
#include "platform/text.h"

#include <map>
#include <stdexcept>
#include <string_view>
#include <tuple>
#include <utility>

namespace headerdtc {
namespace {

using NameOf = CatalogueName::What;

// The family of an entry, nothing for a field's name alone.
std::optional<Family> familyOfEntry(std::string_view text) {
    for (const Family family : BothFamilies) {
        if (text.find(traitsOf(family).separator) != std::string_view::npos) return family;
    }
    return std::nullopt;
}

// Where the name in an entry begins; nothing without a separator.
std::optional<std::size_t> nameStart(std::string_view entry, Family family) {
    const std::string_view separator = traitsOf(family).separator;
    const auto place = entry.find(separator);
    if (place == std::string_view::npos) return std::nullopt;
    return place + separator.size();
}

bool hasName(std::string_view entry, Family family, std::string_view name) {
    const auto start = nameStart(entry, family);
    return start && trimBlanks(entry.substr(*start)) == name;
}

std::string givenName(const std::string& text) {
    std::string name(trimBlanks(text));
    if (name.empty() || name.find_first_of(std::string_view("\r\n\t\0", 4)) != std::string::npos)
        throw std::invalid_argument(inQuotes(text) + " is no name of a data provider or field");
    return name;
}

std::string otherName(const std::string& text, const std::string& than) {
    std::string name = givenName(text);
    if (name == than) throw std::invalid_argument(inQuotes(than) + " would keep its name");
    return name;
}

// The name in an entry that somebody has given.
std::string nameOfEntry(std::string_view entry, Family family) {
    const auto start = *nameStart(entry, family);
    const auto number = trimBlanks(entry.substr(0, start - traitsOf(family).separator.size()));
    const bool isNumber = number.find_first_not_of("0123456789") == std::string_view::npos;
    if (start == entry.size() || (family == Family::ZEKO && !isNumber))
        throw std::invalid_argument(inQuotes(entry) + " is no field entry, like \"9 - CITY\"");
    return std::string(entry.substr(start));
}

// A property that names something of the catalogue.
struct Place {
    std::size_t index;
    StoredName name;
    CatalogueName names;
};

class StoredRename {
  public:
    StoredRename(const StoredProperties& properties, const Renaming& renaming)
        : renaming_(renaming) {
        result_.properties = properties;
        for (std::size_t i = 0; i < properties.size(); ++i) {
            const auto name = parseStoredName(properties[i].first);
            const auto names = name ? name->catalogueName() : std::nullopt;
            if (!names) continue;
            if (names->what == NameOf::Provider)
                (names->ofLinked ? isLinked_ : isOwn_) = properties[i].second == renaming.provider;
            places_.push_back({i, *name, *names});
        }
    }

    StoredRenaming rename() {
        if (!isOwn_ && !isLinked_) return std::move(result_);
        findNamesakes();
        for (const Place& place : places_) {
            auto& [property, text] = result_.properties[place.index];
            const bool isOfProvider = place.names.ofLinked ? isLinked_ : isOwn_;
            const auto renamed = isOfProvider ? newText(place, text) : std::nullopt;
            if (renamed && *renamed != text) {
                result_.texts.push_back({property, text, *renamed});
                text = *renamed;
            }
            note(place, text, renamed.has_value());
        }
        return std::move(result_);
    }

  private:
    // Whether another entry has the name of the one that is renamed.
    void findNamesakes() {
        if (renaming_.entry.empty()) return;
        for (const Place& place : places_) {
            const std::string& text = result_.properties[place.index].second;
            if (place.names.what == NameOf::Entry && place.name.row.family() == renaming_.family &&
                hasName(text, *renaming_.family, renaming_.field) &&
                trimBlanks(text) != renaming_.entry)
                (place.names.ofLinked ? hasLinkedNamesake_ : hasOwnNamesake_) = true;
        }
    }

    std::optional<std::string> newText(const Place& place, const std::string& text) const {
        const bool isProvider = place.names.what == NameOf::Provider;
        if (isProvider == renaming_.isOfField()) return std::nullopt;
        if (isProvider) return renaming_.newProvider;
        const Family family = *place.name.row.family();
        if (renaming_.family && renaming_.family != family) return std::nullopt;
        if (place.names.what == NameOf::KeyField && trimBlanks(text) == renaming_.field) {
            const bool isShared = place.names.ofLinked ? hasLinkedNamesake_ : hasOwnNamesake_;
            return isShared ? std::nullopt : std::optional(renaming_.newField);
        }
        return newEntry(family, text);
    }

    std::optional<std::string> newEntry(Family family, const std::string& text) const {
        if (renaming_.entry.empty()) {
            if (!hasName(text, family, renaming_.field)) return std::nullopt;
            return text.substr(0, *nameStart(text, family)) + renaming_.newField;
        }
        if (trimBlanks(text) != renaming_.entry) return std::nullopt;
        // The padding is adjusted so that the numbers stay aligned.
        const auto before = *nameStart(text, family), now = *nameStart(renaming_.newEntry, family);
        const bool isPadded = family == Family::ZEKO && before > now;
        return std::string(isPadded ? before - now : 0, ' ') + renaming_.newEntry;
    }

    // What is offered or chosen by its new name must not be there under that name already: with its
    // record group, or with whatever number.
    void note(const Place& place, const std::string& text, bool isRenamed) {
        if (!place.name.row.holds<stored::Items>()) return;
        const auto family = place.name.row.family();
        const bool isNumbered = family == Family::ZEKO && renaming_.field != renaming_.newField;
        const auto start = isNumbered ? nameStart(text, *family) : std::nullopt;
        const std::string entry(trimBlanks(std::string_view(text).substr(start.value_or(0))));
        Seen& seen = seen_[{place.names.what, place.names.ofLinked, family, entry}];
        (isRenamed ? seen.renamed : seen.asItWas) = true;
        if (seen.renamed && seen.asItWas)
            result_.conflict =
                inQuotes(entry) + " is there already, beside the field to be renamed";
    }

    struct Seen {
        bool renamed = false, asItWas = false;
    };

    const Renaming& renaming_;
    StoredRenaming result_;
    std::vector<Place> places_;
    bool isOwn_ = false, isLinked_ = false;
    bool hasOwnNamesake_ = false, hasLinkedNamesake_ = false;
    std::map<std::tuple<NameOf, bool, std::optional<Family>, std::string>, Seen> seen_;
};

}  // namespace

Renaming Renaming::ofProvider(const std::string& from, const std::string& to) {
    Renaming renaming;
    renaming.provider = givenName(from);
    renaming.newProvider = otherName(to, renaming.provider);
    return renaming;
}

Renaming Renaming::ofField(const std::string& provider, const std::string& from,
                           const std::string& to) {
    Renaming renaming;
    renaming.provider = renaming.newProvider = givenName(provider);
    renaming.field = givenName(from);
    renaming.newField = otherName(to, renaming.field);
    renaming.family = familyOfEntry(renaming.field);
    if (renaming.family != familyOfEntry(renaming.newField))
        throw std::invalid_argument(
            inQuotes(from) + " and " + inQuotes(to) +
            " are not of one kind; give two names (CITY TOWN), or two whole entries "
            "(\"9 - CITY\" \"9 - TOWN\", ADDRESS.CITY ADDRESS.TOWN)");
    if (!renaming.family) return renaming;
    renaming.entry = std::exchange(renaming.field, nameOfEntry(renaming.field, *renaming.family));
    renaming.newEntry =
        std::exchange(renaming.newField, nameOfEntry(renaming.newField, *renaming.family));
    return renaming;
}

StoredRenaming renameStored(const StoredProperties& properties, const Renaming& renaming) {
    return StoredRename(properties, renaming).rename();
}

}  // namespace headerdtc
