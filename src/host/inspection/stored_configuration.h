#pragma once

#include "core/family.h"
#include "host/page/page_markup.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace headerdtc {

// One stored text of a configuration, and where it stands.
struct StoredItem {
    std::string text;
    // In a grid its row; in a list its position, from 1; 0 for what there is only one of.
    int row = 0;
    std::string property;  // the name under which the page stores it
};

// What a stored text is.
enum class StoredRole {
    DataProvider,
    LinkedDataProvider,
    ReturnField,
    KeyField,
    CriterionKey,
    CriterionOperator,
    CriterionValue,
    TranslatedName,   // of a field whose name is translated
    TranslatedValue,  // of a field whose values are
    LinkedField,
    LinkFrom,
    LinkTo,
    Include,
    Stylesheet,
    ScriptName,
};

// "return field", for messages.
std::string_view nameOf(StoredRole role);
// "returnField", for programs.
std::string_view keyOf(StoredRole role);

// The configuration that one control of a page stores, read without making a control of it: what a
// page can be asked about when nothing is to be generated. Available fields, which are only a copy
// of what the provider offers, are left out.
struct StoredConfiguration {
    struct Criterion {
        int row = 0;
        StoredItem key, operation, value;
        // Whether it comes into the script: what lacks a piece is left out.
        bool isWritten() const;
    };
    struct Link {
        int row = 0;
        StoredItem from, to;
    };
    // The kind of a criterion's value: a CriteriumValueType, as far as it is a known one.
    struct ValueType {
        std::string value;
        int type = 0;
        std::string property;
    };
    struct OfFamily {
        std::vector<StoredItem> returnFields, keyFields, translatedNames, translatedValues;
        std::vector<StoredItem> linkedFields;
        std::vector<Criterion> criteria;  // every row of the grid, empty ones too
        std::vector<Link> links;
        std::vector<ValueType> valueTypes;
        // Kinds that are stored behind as many as there are criteria, where no control reads them.
        std::vector<ValueType> unreadTypes;

        // The kind of a criterion's value; a value that is not listed is a constant.
        int typeOf(std::string_view value) const;
    };
    struct Script {
        StoredItem name;
        std::string text;
    };
    // A stored text that ends the reading of a control, and why: "which is no 16-bit number".
    struct Fault {
        std::string property, text;
        std::string_view reason;
    };

    StoredItem dataProvider, linkedDataProvider, stylesheet;
    OfFamily eai, zeko;
    std::vector<StoredItem> includes;
    std::vector<Script> scripts;
    std::vector<Fault> faults;

    const OfFamily& of(Family family) const { return family == Family::EAI ? eai : zeko; }
    OfFamily& of(Family family) { return family == Family::EAI ? eai : zeko; }
    // Whether a linked provider was chosen: a page without one may store a name that is none.
    bool hasLinkedProvider() const;
};

// Reads a configuration as the control does, with its defaults and bounds. A count that is no
// number counts as none, and is noted as a fault.
StoredConfiguration readStoredConfiguration(const StoredProperties& properties);

// Calls with every text that says something, in the order in which a page stores it; empty ones are
// passed over.
void forEachItem(const StoredConfiguration& configuration,
                 const std::function<void(StoredRole, std::optional<Family>, const StoredItem&)>&);

}  // namespace headerdtc
