#include "core/header_dtc.h"
#include "core/key_buffer.h"
#include "core/stored_key_table.h"
#include "core/stored_values.h"
#include "platform/error_trap.h"

#include <bit>
#include <functional>
#include <utility>
#include <vector>

namespace headerdtc {
namespace {

using stored::RowOf;

// Where the item is there already it is replaced, else it is appended.
template <class List>
void setItem(List& list, int index, std::string text) {
    if (index < list.ListCount()) {
        list.List(index, text);
    } else {
        list.AddItem(std::move(text), index);
    }
}

// Selects the first item of that text, if there is one.
void selectItem(ComboBox& combo, const std::string& text) {
    if (const int item = combo.find(text); item >= 0) combo.ListIndex(item);
}

// Finds the items of a list by their texts. A list may have thousands of items, and as many of
// them looked for, so they are hashed once.
class ItemFinder {
  public:
    explicit ItemFinder(const ListBox& list)
        : list_(list),
          firstOfBucket_(std::bit_ceil(static_cast<std::size_t>(list.ListCount()) + 1), None),
          nextInBucket_(static_cast<std::size_t>(list.ListCount())) {
        for (int i = list.ListCount() - 1; i >= 0; --i)
            nextInBucket_[static_cast<std::size_t>(i)] = std::exchange(bucket(list.List(i)), i);
    }

    // Appends every item of that text, the first time that it is asked for. They are not kept:
    // thousands of equal items, asked for thousands of times, would be found millions of times.
    void take(std::string_view text, std::vector<int>& items) {
        for (int* link = &bucket(text); *link != None;) {
            int& next = nextInBucket_[static_cast<std::size_t>(*link)];
            if (list_.List(*link) == text) {
                items.push_back(*link);
                *link = next;
            } else {
                link = &next;
            }
        }
    }

  private:
    static constexpr int None = -1;

    int& bucket(std::string_view text) {
        return firstOfBucket_[std::hash<std::string_view>()(text) & (firstOfBucket_.size() - 1)];
    }

    const ListBox& list_;
    std::vector<int> firstOfBucket_;
    std::vector<int> nextInBucket_;
};

class PropertyReader {
  public:
    PropertyReader(HeaderDTC& dtc, PropertyBag& bag) : dtc_(dtc), bag_(bag) {}

    // The order matters: selecting a provider clears the fields to link from, and what the
    // translation lists hold comes from the return fields.
    void readAll() {
        readExtraFilters();
        readDataProvider();
        readReturnFields("ZEKOReturnFieldCount", "ZEKOReturnFields", dtc_.ZEKO);
        readReturnFields("EAIReturnFieldCount", "EAIReturnFields", dtc_.EAI);
        readCriteria("ZEKOCriteriaCount", "ZEKOCriteria", dtc_.ZEKO.CriteriaGrid);
        readCriteria("EAICriteriaCount", "EAICriteria", dtc_.EAI.CriteriaGrid);
        readItems("ZEKOAvailableFieldsCount", "ZEKOAvailableFields");
        readItems("EAIAvailableFieldsCount", "EAIAvailableFields");
        readItems("ZEKOKeyFieldsCount", "ZEKOKeyFieldnames");
        readItems("EAIKeyFieldsCount", "EAIKeyFieldnames");
        readCriteriaTypes("ZEKOCriteriaCount", "ZEKOCriteriaType", dtc_.ZEKO.CriteriaType);
        readCriteriaTypes("EAICriteriaCount", "EAICriteriaType", dtc_.EAI.CriteriaType);
        readScripts();
        readIncludes();
        dtc_.XSLFilenameText.Text(text("XSLFilename"));
        readSelection("NrOfZEKOI18NFieldnames", "ZEKOI18NFieldnames", dtc_.ZEKO.I18NFieldnamesList);
        readSelection("NrOfEAII18NFieldnames", "EAII18NFieldnames", dtc_.EAI.I18NFieldnamesList);
        readSelection("NrOfZEKOI18NFieldValues", "ZEKOI18NFieldValues",
                      dtc_.ZEKO.I18NFieldValuesList);
        readSelection("NrOfEAII18NFieldValues", "EAII18NFieldValues", dtc_.EAI.I18NFieldValuesList);
        readLinkedProvider();
        readItems("NrOfZEKOAvailableFieldsLinked", "ZEKOAvailableFieldsLinked");
        readItems("NrOfEAIAvailableFieldsLinked", "EAIAvailableFieldsLinked");
        readItems("NrOfSelectedZEKOLinkedFields", "ZEKOSelectedLinkedFields");
        readItems("NrOfSelectedEAILinkedFields", "EAISelectedLinkedFields");
        readItems("NrOfZEKOToLinkKeyFields", "ZEKOToLinkKeyFields");
        readItems("NrOfEAIToLinkKeyFields", "EAIToLinkKeyFields");
        readLinks("NrOfLinkedZEKOFields", "ZEKOLinkFromFields", dtc_.ZEKO.LinksGrid);
        readLinks("NrOfLinkedEAIFields", "EAILinkFromFields", dtc_.EAI.LinksGrid);
    }

  private:
    // ---- one stored property ---------------------------------------------------------------
    int number(RowOf row) {
        return toInteger(bag_.ReadProperty(row->key, stored::readingDefault(*row)));
    }
    std::string text(RowOf row) {
        return toText(bag_.ReadProperty(row->key, stored::readingDefault(*row)));
    }
    // All texts with numbered names and suffixes have the empty text as their default.
    std::string textNamed(std::string_view name) { return toText(bag_.ReadProperty(name, empty_)); }

    // ---- the steps -------------------------------------------------------------------------
    void readExtraFilters() {
        const RowOf row = "EnableExtraFilters";
        const bool on = toBoolean(bag_.ReadProperty(row->key, stored::readingDefault(*row)));
        dtc_.EnableExtraFiltersCheck.Value(on ? CheckState::Checked : CheckState::Unchecked);
    }

    void readDataProvider() {
        const std::string provider = text("DataProvider");
        selectItem(dtc_.DataProvidersCombo, provider);
        dtc_.ZEKO.DataProviderText.Text(provider);
        dtc_.EAI.DataProviderText.Text(provider);
    }

    // The translation lists and the fields to link from are rebuilt from the return fields.
    void readReturnFields(RowOf count, RowOf items, FamilyControls& family) {
        const int fields = number(count);
        for (int i = 0; i < fields; ++i) {
            std::string field = textNamed(keys_.numbered(items->key, i));
            setItem(family.SelectedFieldsList, i, field);
            setItem(family.I18NFieldnamesList, i, field);
            setItem(family.I18NFieldValuesList, i, field);
            family.FromLinkFieldsCombo.AddItem(std::move(field));
        }
    }

    void readCriteria(RowOf count, RowOf cells, Grid& grid) {
        const int rows = number(count);
        for (int row = 1; row < rows; ++row) {
            if (row > 1) grid.Rows(grid.Rows() + 1);
            // The ZEKO grid's columns bound both families.
            for (int column = 1; column < dtc_.ZEKO.CriteriaGrid.Cols(); ++column)
                grid.TextMatrix(row, column, textNamed(keys_.cell(cells->key, row, column)));
        }
    }

    void readItems(RowOf count, RowOf items) {
        const int last = number(count);
        std::get<stored::Items>(items->content).list.in(dtc_, [&](auto& list) {
            for (int i = 0; i < last; ++i)
                setItem(list, i, textNamed(keys_.numbered(items->key, i)));
        });
    }

    // As many entries as there are criteria, whatever the dictionary had.
    void readCriteriaTypes(RowOf criteriaCount, RowOf types, Dictionary<std::int32_t>& dictionary) {
        const PropertyValue constantType = stored::readingDefault(types.below());
        const int entries = number(criteriaCount) - 1;
        for (int k = 1; k <= entries; ++k) {
            const std::string name = textNamed(keys_.numbered(types->key, k));
            if (name.empty()) continue;
            const auto key = keys_.suffixed(name, types.below().key);
            dictionary.Add(name, toInteger(bag_.ReadProperty(key, constantType)));
        }
    }

    void readScripts() {
        const RowOf scripts = "UserDefinedScript";
        dtc_.nrOfUserDefinedScripts = static_cast<std::int16_t>(number("NrOfUserDefinedScripts"));
        for (int k = 1; k <= dtc_.nrOfUserDefinedScripts; ++k) {
            const std::string name = textNamed(keys_.numbered(scripts->key, k));
            dtc_.userDefinedScripts->Add(name,
                                         textNamed(keys_.suffixed(name, scripts.below().key)));
        }
    }

    void readIncludes() {
        dtc_.IncludeASPList.Clear();
        readItems("NrOfExtraIncludes", "ExtraIncludes");
    }

    // A name that is no longer among the return fields finds no item and is dropped. Those found
    // before a failure are selected.
    void readSelection(RowOf count, RowOf names, ListBox& list) {
        const int selected = number(count);
        if (selected <= 0) return;
        ItemFinder finder(list);
        std::vector<int> items;
        try {
            for (int k = 0; k < selected; ++k)
                finder.take(textNamed(keys_.numbered(names->key, k)), items);
        } catch (const RuntimeError&) {
            list.Selected(items, true);
            throw;
        }
        list.Selected(items, true);
    }

    void readLinkedProvider() {
        dtc_.linkedDataProvider = text("LinkedDataProvider");
        if (dtc_.linkedDataProvider.empty()) return;
        // Each selection lets the link tabs compare their combo with the name stored above.
        const std::string provider = dtc_.linkedDataProvider;
        selectItem(dtc_.ZEKO.LinkedDataProvidersCombo, provider);
        selectItem(dtc_.EAI.LinkedDataProvidersCombo, provider);
    }

    void readLinks(RowOf count, RowOf from, Grid& grid) {
        const int rows = number(count);
        grid.Rows(rows);
        for (int row = 1; row < rows; ++row) {
            grid.TextMatrix(row, links_column::From, textNamed(keys_.numbered(from->key, row)));
            grid.TextMatrix(row, links_column::To,
                            textNamed(keys_.numbered(from.below().key, row)));
        }
    }

    HeaderDTC& dtc_;
    PropertyBag& bag_;
    const PropertyValue empty_{std::string()};
    KeyBuffer keys_;
};

}  // namespace

void HeaderDTC::UserControl_ReadProperties(PropertyBag& bag) {
    trapErrors(surroundings.messages, "UserControl_ReadProperties",
               [&] { PropertyReader(*this, bag).readAll(); });
}

}  // namespace headerdtc
