#pragma once

#include "core/header_dtc.h"
#include "core/stored_keys.h"

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string_view>
#include <variant>

namespace headerdtc::stored {

// The file format of the control's state: every stored property, in the order in which they are
// written. Writing walks this table; reading, which has an order of its own, names its rows.

// How the names of a row's properties are formed from its key.
enum class Name {
    Alone,     // the key
    Numbered,  // key + number
    Cell,      // key + row + "_" + column
    Suffixed,  // dictionary key + key
};

// A list box or combo box of the control.
class AnyList {
  public:
    constexpr AnyList(FamilyControls HeaderDTC::*family, ListBox FamilyControls::*list)
        : family_(family), list_(list) {}
    constexpr AnyList(FamilyControls HeaderDTC::*family, ComboBox FamilyControls::*combo)
        : family_(family), combo_(combo) {}
    constexpr AnyList(ListBox HeaderDTC::*shared) : shared_(shared) {}

    // Calls use() with that control of a HeaderDTC.
    template <class Dtc, class Use>
    void in(Dtc& dtc, Use&& use) const {
        if (shared_) {
            use(dtc.*shared_);
        } else if (combo_) {
            use(dtc.*family_.*combo_);
        } else {
            use(dtc.*family_.*list_);
        }
    }

  private:
    FamilyControls HeaderDTC::*family_ = nullptr;
    ListBox FamilyControls::*list_ = nullptr;
    ComboBox FamilyControls::*combo_ = nullptr;
    ListBox HeaderDTC::*shared_ = nullptr;
};

struct FamilyList {
    FamilyControls HeaderDTC::*family;
    ListBox FamilyControls::*list;
};

struct FamilyGrid {
    FamilyControls HeaderDTC::*family;
    Grid FamilyControls::*grid;
};

// What a row stores.
struct ExtraFilters {};  // the check box; grey counts as on
struct Items {
    AnyList list;
};  // items, numbered from 0
struct ItemCount {
    AnyList list;
};
struct Selection {
    FamilyList of;
};  // selected items, renumbered from 0 without gaps
struct SelectionCount {
    FamilyList of;
};
struct Cells {
    FamilyGrid of;
};  // every cell but the header row and the marker column
struct LinkRows {
    FamilyGrid of;
};  // row by row: From under this key, To under the next
struct RowCount {
    FamilyGrid of;
};  // header row included
struct Provider {};
struct LinkedProvider {};
struct Stylesheet {};
struct ScriptCount {};
// Dictionaries, entry by entry and numbered from 1: the entry's name under this key, its value
// under the next row's.
struct Scripts {};
struct CriteriaTypes {
    FamilyControls HeaderDTC::*family;
};
struct WithRowAbove {};

using Content = std::variant<ExtraFilters, Items, ItemCount, Selection, SelectionCount, Cells,
                             LinkRows, RowCount, Provider, LinkedProvider, Stylesheet, ScriptCount,
                             Scripts, CriteriaTypes, WithRowAbove>;

// A default by which the host decides whether it keeps a property at all.
using Default = std::variant<bool, std::int16_t, std::string_view>;

struct Row {
    std::string_view key;
    Name name;
    StoredType type;
    Default fallback;
    Content content;
    StoredPart part;

    // The family of a row that exists once for each family: its key begins with the family's
    // prefix.
    constexpr std::optional<Family> family() const {
        for (const FamilyTraits& traits : FamilyTable) {
            if (key.find(traits.prefix) != std::string_view::npos) return traits.family;
        }
        return std::nullopt;
    }
    template <class... Kinds>
    constexpr bool holds() const {
        return (std::holds_alternative<Kinds>(content) || ...);
    }
};

namespace table_words {
using enum Name;
using enum StoredType;
using F = FamilyControls;
inline constexpr auto ZEKO = &HeaderDTC::ZEKO;
inline constexpr auto EAI = &HeaderDTC::EAI;
inline constexpr Default False = false;
inline constexpr Default Zero = std::int16_t{0};
inline constexpr Default Two = std::int16_t{2};
inline constexpr Default Empty = std::string_view();
// The counts of later releases carry a text as their default, which no integer equals: the host
// keeps them even when they are 0.
inline constexpr Default ZeroText = std::string_view("0");

// clang-format off
inline constexpr Row Table[] = {
    /*  1 */ {"EnableExtraFilters",            Alone,    Boolean, False,    ExtraFilters{},                                  StoredPart::ExtraFilters},
    /*  2 */ {"ZEKOReturnFields",              Numbered, String,  Empty,    Items{{ZEKO, &F::SelectedFieldsList}},           StoredPart::ReturnFields},
    /*  3 */ {"EAIReturnFields",               Numbered, String,  Empty,    Items{{EAI, &F::SelectedFieldsList}},            StoredPart::ReturnFields},
    /*  4 */ {"ZEKOCriteria",                  Cell,     String,  Empty,    Cells{{ZEKO, &F::CriteriaGrid}},                 StoredPart::Criteria},
    /*  5 */ {"EAICriteria",                   Cell,     String,  Empty,    Cells{{EAI, &F::CriteriaGrid}},                  StoredPart::Criteria},
    /*  6 */ {"ZEKOCriteriaCount",             Alone,    Integer, Zero,     RowCount{{ZEKO, &F::CriteriaGrid}},              StoredPart::Criteria},
    /*  7 */ {"EAICriteriaCount",              Alone,    Integer, Zero,     RowCount{{EAI, &F::CriteriaGrid}},               StoredPart::Criteria},
    /*  8 */ {"ZEKOReturnFieldCount",          Alone,    Integer, Zero,     ItemCount{{ZEKO, &F::SelectedFieldsList}},       StoredPart::ReturnFields},
    /*  9 */ {"EAIReturnFieldCount",           Alone,    Integer, Zero,     ItemCount{{EAI, &F::SelectedFieldsList}},        StoredPart::ReturnFields},
    /* 10 */ {"DataProvider",                  Alone,    String,  Empty,    Provider{},                                      StoredPart::DataProvider},
    /* 11 */ {"ZEKOAvailableFieldsCount",      Alone,    Integer, Zero,     ItemCount{{ZEKO, &F::FieldsList}},               StoredPart::AvailableFields},
    /* 12 */ {"EAIAvailableFieldsCount",       Alone,    Integer, Zero,     ItemCount{{EAI, &F::FieldsList}},                StoredPart::AvailableFields},
    /* 13 */ {"ZEKOAvailableFields",           Numbered, String,  Empty,    Items{{ZEKO, &F::FieldsList}},                   StoredPart::AvailableFields},
    /* 14 */ {"EAIAvailableFields",            Numbered, String,  Empty,    Items{{EAI, &F::FieldsList}},                    StoredPart::AvailableFields},
    /* 15 */ {"ZEKOKeyFieldsCount",            Alone,    Integer, Zero,     ItemCount{{ZEKO, &F::KeyFieldsCombo}},           StoredPart::KeyFields},
    /* 16 */ {"EAIKeyFieldsCount",             Alone,    Integer, Zero,     ItemCount{{EAI, &F::KeyFieldsCombo}},            StoredPart::KeyFields},
    /* 17 */ {"ZEKOKeyFieldnames",             Numbered, String,  Empty,    Items{{ZEKO, &F::KeyFieldsCombo}},               StoredPart::KeyFields},
    /* 18 */ {"EAIKeyFieldnames",              Numbered, String,  Empty,    Items{{EAI, &F::KeyFieldsCombo}},                StoredPart::KeyFields},
    /* 19 */ {"NrOfUserDefinedScripts",        Alone,    Integer, Zero,     ScriptCount{},                                   StoredPart::Scripts},
    /* 20 */ {"NrOfExtraIncludes",             Alone,    Integer, Zero,     ItemCount{&HeaderDTC::IncludeASPList},           StoredPart::Includes},
    /* 21 */ {"UserDefinedScript",             Numbered, String,  Empty,    Scripts{},                                       StoredPart::Scripts},
    /* 22 */ {"UserDefinedScript",             Suffixed, String,  Empty,    WithRowAbove{},                                  StoredPart::Scripts},
    /* 23 */ {"ZEKOCriteriaType",              Numbered, String,  Empty,    CriteriaTypes{ZEKO},                             StoredPart::Criteria},
    /* 24 */ {"ZEKOCriteriaType",              Suffixed, Integer, Zero,     WithRowAbove{},                                  StoredPart::Criteria},
    /* 25 */ {"EAICriteriaType",               Numbered, String,  Empty,    CriteriaTypes{EAI},                              StoredPart::Criteria},
    /*  " */ {"EAICriteriaType",               Suffixed, Integer, Zero,     WithRowAbove{},                                  StoredPart::Criteria},
    /* 26 */ {"ExtraIncludes",                 Numbered, String,  Empty,    Items{&HeaderDTC::IncludeASPList},               StoredPart::Includes},
    /* 27 */ {"XSLFilename",                   Alone,    String,  Empty,    Stylesheet{},                                    StoredPart::Stylesheet},
    /* 28 */ {"NrOfZEKOI18NFieldnames",        Alone,    Integer, ZeroText, SelectionCount{{ZEKO, &F::I18NFieldnamesList}},  StoredPart::TranslatedNames},
    /* 29 */ {"NrOfEAII18NFieldnames",         Alone,    Integer, ZeroText, SelectionCount{{EAI, &F::I18NFieldnamesList}},   StoredPart::TranslatedNames},
    /* 30 */ {"ZEKOI18NFieldnames",            Numbered, String,  Empty,    Selection{{ZEKO, &F::I18NFieldnamesList}},       StoredPart::TranslatedNames},
    /* 31 */ {"EAII18NFieldnames",             Numbered, String,  Empty,    Selection{{EAI, &F::I18NFieldnamesList}},        StoredPart::TranslatedNames},
    /* 32 */ {"NrOfZEKOI18NFieldValues",       Alone,    Integer, ZeroText, SelectionCount{{ZEKO, &F::I18NFieldValuesList}}, StoredPart::TranslatedValues},
    /* 33 */ {"NrOfEAII18NFieldValues",        Alone,    Integer, ZeroText, SelectionCount{{EAI, &F::I18NFieldValuesList}},  StoredPart::TranslatedValues},
    /* 34 */ {"ZEKOI18NFieldValues",           Numbered, String,  Empty,    Selection{{ZEKO, &F::I18NFieldValuesList}},      StoredPart::TranslatedValues},
    /* 35 */ {"EAII18NFieldValues",            Numbered, String,  Empty,    Selection{{EAI, &F::I18NFieldValuesList}},       StoredPart::TranslatedValues},
    /* 36 */ {"LinkedDataProvider",            Alone,    String,  Empty,    LinkedProvider{},                                StoredPart::LinkedDataProvider},
    /* 37 */ {"NrOfZEKOAvailableFieldsLinked", Alone,    Integer, ZeroText, ItemCount{{ZEKO, &F::LinkedFieldsList}},         StoredPart::LinkedAvailableFields},
    /* 38 */ {"NrOfEAIAvailableFieldsLinked",  Alone,    Integer, ZeroText, ItemCount{{EAI, &F::LinkedFieldsList}},          StoredPart::LinkedAvailableFields},
    /* 39 */ {"ZEKOAvailableFieldsLinked",     Numbered, String,  Empty,    Items{{ZEKO, &F::LinkedFieldsList}},             StoredPart::LinkedAvailableFields},
    /* 40 */ {"EAIAvailableFieldsLinked",      Numbered, String,  Empty,    Items{{EAI, &F::LinkedFieldsList}},              StoredPart::LinkedAvailableFields},
    /* 41 */ {"NrOfSelectedZEKOLinkedFields",  Alone,    Integer, ZeroText, ItemCount{{ZEKO, &F::SelectedLinkedFieldsList}}, StoredPart::LinkedFields},
    /* 42 */ {"NrOfSelectedEAILinkedFields",   Alone,    Integer, ZeroText, ItemCount{{EAI, &F::SelectedLinkedFieldsList}},  StoredPart::LinkedFields},
    /* 43 */ {"EAISelectedLinkedFields",       Numbered, String,  Empty,    Items{{EAI, &F::SelectedLinkedFieldsList}},      StoredPart::LinkedFields},
    /* 44 */ {"ZEKOSelectedLinkedFields",      Numbered, String,  Empty,    Items{{ZEKO, &F::SelectedLinkedFieldsList}},     StoredPart::LinkedFields},
    /* 45 */ {"NrOfZEKOToLinkKeyFields",       Alone,    Integer, ZeroText, ItemCount{{ZEKO, &F::ToLinkFieldsCombo}},        StoredPart::LinkedKeyFields},
    /* 46 */ {"NrOfEAIToLinkKeyFields",        Alone,    Integer, ZeroText, ItemCount{{EAI, &F::ToLinkFieldsCombo}},         StoredPart::LinkedKeyFields},
    /* 47 */ {"ZEKOToLinkKeyFields",           Numbered, String,  Empty,    Items{{ZEKO, &F::ToLinkFieldsCombo}},            StoredPart::LinkedKeyFields},
    /* 48 */ {"EAIToLinkKeyFields",            Numbered, String,  Empty,    Items{{EAI, &F::ToLinkFieldsCombo}},             StoredPart::LinkedKeyFields},
    /* 49 */ {"NrOfLinkedZEKOFields",          Alone,    Integer, Two,      RowCount{{ZEKO, &F::LinksGrid}},                 StoredPart::Links},
    /* 50 */ {"ZEKOLinkFromFields",            Numbered, String,  Empty,    LinkRows{{ZEKO, &F::LinksGrid}},                 StoredPart::Links},
    /* 51 */ {"ZEKOLinkToFields",              Numbered, String,  Empty,    WithRowAbove{},                                  StoredPart::Links},
    /* 52 */ {"NrOfLinkedEAIFields",           Alone,    Integer, Two,      RowCount{{EAI, &F::LinksGrid}},                  StoredPart::Links},
    /* 53 */ {"EAILinkFromFields",             Numbered, String,  Empty,    LinkRows{{EAI, &F::LinksGrid}},                  StoredPart::Links},
    /* 54 */ {"EAILinkToFields",               Numbered, String,  Empty,    WithRowAbove{},                                  StoredPart::Links},
};
// clang-format on
}  // namespace table_words

using table_words::Table;

// The linked data provider's default in reading. It was meant to be empty; but a page without a
// linked provider has always been read like this, and pages written since carry the name.
inline constexpr std::string_view LinkedProviderNotStored = "ZEKOLinkedDataProvidersCombo";

// The row of a part that holds one of these kinds, for a family that has its own.
template <class... Kinds>
constexpr const Row& rowOf(StoredPart part, std::optional<Family> family = std::nullopt) {
    const Row* found = nullptr;
    for (const Row& row : Table) {
        if (!found && row.part == part && row.family() == family && row.holds<Kinds...>())
            found = &row;
    }
    return *found;
}

// A default as the host's bag takes it.
inline PropertyValue asPropertyValue(const Default& fallback) {
    if (const auto* flag = std::get_if<bool>(&fallback)) return *flag;
    if (const auto* number = std::get_if<std::int16_t>(&fallback)) return *number;
    return std::string(std::get<std::string_view>(fallback));
}

// The default with which a row is read.
inline PropertyValue readingDefault(const Row& row) {
    if (std::holds_alternative<LinkedProvider>(row.content))
        return std::string(LinkedProviderNotStored);
    return asPropertyValue(row.fallback);
}

// A row of the table, named by its key: a key that the table does not have does not compile. The
// first of two rows of one key, the second stands below it.
class RowOf {
  public:
    consteval RowOf(const char* key) : row_(find(key)) {}
    constexpr const Row& operator*() const { return *row_; }
    constexpr const Row* operator->() const { return row_; }
    // The row below it, under whose key the values of its entries stand.
    constexpr const Row& below() const { return row_[1]; }

  private:
    static consteval const Row* find(std::string_view key) {
        for (const Row& row : Table) {
            if (row.key == key) return &row;
        }
        throw "no such stored key";
    }

    const Row* row_;
};

}  // namespace headerdtc::stored
