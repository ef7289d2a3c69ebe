#include "core/header_dtc.h"
#include "core/key_buffer.h"
#include "core/stored_key_table.h"
#include "platform/error_trap.h"
#include "platform/text.h"

#include <functional>
#include <unordered_set>

namespace headerdtc {
namespace {

enum class Entries { All, ThoseThatCount };

// Writes the rows of the table, one after another.
class PropertyWriter {
  public:
    PropertyWriter(const HeaderDTC& dtc, PropertyBag& bag, Entries entries)
        : dtc_(dtc), bag_(bag), entries_(entries) {}

    void write(const stored::Row& row) {
        row_ = &row;
        fallback_ = stored::asPropertyValue(row.fallback);
        std::visit(*this, row.content);
    }

    // ---- one for each kind of content ------------------------------------------------------
    void operator()(stored::ExtraFilters) {
        const bool on = dtc_.EnableExtraFiltersCheck.Value() != CheckState::Unchecked;
        bag_.WriteProperty(row_->key, on, fallback_);
    }
    void operator()(const stored::Items& items) {
        items.list.in(dtc_, [this](const auto& list) {
            for (int i = 0; i < list.ListCount(); ++i)
                putText(keys_.numbered(row_->key, i), list.List(i));
        });
    }
    void operator()(const stored::ItemCount& items) {
        items.list.in(dtc_, [this](const auto& list) { putNumber(row_->key, list.ListCount()); });
    }
    void operator()(const stored::Selection& selection) {
        const ListBox& list = dtc_.*selection.of.family.*selection.of.list;
        int number = 0;
        for (int i = 0; i < list.ListCount(); ++i) {
            if (list.Selected(i)) putText(keys_.numbered(row_->key, number++), list.List(i));
        }
    }
    void operator()(const stored::SelectionCount& selection) {
        putNumber(row_->key, (dtc_.*selection.of.family.*selection.of.list).SelCount());
    }
    void operator()(const stored::Cells& cells) {
        const Grid& grid = dtc_.*cells.of.family.*cells.of.grid;
        for (int row = 1; row < grid.Rows(); ++row) {
            for (int column = 1; column < grid.Cols(); ++column)
                putText(keys_.cell(row_->key, row, column), grid.TextMatrix(row, column));
        }
    }
    void operator()(const stored::LinkRows& links) {
        const Grid& grid = dtc_.*links.of.family.*links.of.grid;
        for (int row = 1; row < grid.Rows(); ++row) {
            putText(keys_.numbered(row_->key, row), grid.TextMatrix(row, links_column::From));
            putText(keys_.numbered(rowBelow().key, row), grid.TextMatrix(row, links_column::To));
        }
    }
    void operator()(const stored::RowCount& rows) {
        putNumber(row_->key, (dtc_.*rows.of.family.*rows.of.grid).Rows());
    }
    void operator()(stored::Provider) { putText(row_->key, dtc_.DataProvidersCombo.Text()); }
    void operator()(stored::LinkedProvider) { putText(row_->key, dtc_.linkedDataProvider); }
    void operator()(stored::Stylesheet) { putText(row_->key, dtc_.XSLFilenameText.Text()); }
    void operator()(stored::ScriptCount) {
        const auto& scripts = *dtc_.userDefinedScripts;
        putNumber(row_->key, scripts.Count() - static_cast<int>(lookedUpOnly(scripts).size()));
    }
    void operator()(stored::Scripts) {
        const auto& scripts = *dtc_.userDefinedScripts;
        putEntries(scripts, lookedUpOnly(scripts),
                   [this](std::string_view key, const std::string& script, const PropertyValue&) {
                       putText(key, script);
                   });
    }
    void operator()(const stored::CriteriaTypes& types) {
        const FamilyControls& family = dtc_.*types.family;
        putEntries(family.CriteriaType, typesLeftOut(family),
                   [this](std::string_view key, std::int32_t type, const PropertyValue& fallback) {
                       bag_.WriteProperty(key, toInt16(type), fallback);
                   });
    }
    void operator()(stored::WithRowAbove) {}

  private:
    using Names = std::unordered_set<std::string_view>;

    const stored::Row& rowBelow() const { return row_[1]; }

    template <class Item>
    Names lookedUpOnly(const Dictionary<Item>& dictionary) const {
        Names names;
        if (entries_ == Entries::All) return names;
        for (const auto& entry : dictionary) {
            if (dictionary.isOnlyLookedUp(entry)) names.insert(entry.first);
        }
        return names;
    }

    // A page is read with as many types as it has criteria, so surplus types are left out. Types
    // that matter always fit, each having its own row; of the others those are left out first that
    // could not be read back anyway.
    Names typesLeftOut(const FamilyControls& family) const {
        Names names = lookedUpOnly(family.CriteriaType);
        if (entries_ == Entries::All) return names;
        const auto isTooMany = [&, bound = family.CriteriaGrid.Rows() - 1] {
            return family.CriteriaType.Count() - static_cast<int>(names.size()) > bound;
        };
        if (!isTooMany()) return names;
        Names used;
        for (int row = 1; row < family.CriteriaGrid.Rows(); ++row)
            used.insert(family.CriteriaGrid.TextMatrix(row, criteria_column::Value));
        using Entry = Dictionary<std::int32_t>::Entry;
        const std::function<bool(const Entry&)> saysNothing[] = {
            [](const Entry& entry) { return entry.first.empty(); },
            [&](const Entry& entry) { return !used.contains(entry.first); },
            [](const Entry& entry) { return entry.second == CONSTANT; },
        };
        for (const auto& canGo : saysNothing) {
            for (const Entry& entry : family.CriteriaType) {
                if (isTooMany() && canGo(entry)) names.insert(entry.first);
            }
        }
        return names;
    }

    void putText(std::string_view name, const std::string& text) {
        std::get<std::string>(text_) = text;
        bag_.WriteProperty(name, text_, fallback_);
    }
    void putNumber(std::string_view name, int number) {
        bag_.WriteProperty(name, toInt16(number), fallback_);
    }
    template <class Item, class PutItem>
    void putEntries(const Dictionary<Item>& dictionary, const Names& leftOut, PutItem putItem) {
        const PropertyValue itemFallback = stored::asPropertyValue(rowBelow().fallback);
        int number = 0;
        for (const auto& [name, item] : dictionary) {
            if (leftOut.contains(name)) continue;
            putText(keys_.numbered(row_->key, ++number), name);
            putItem(keys_.suffixed(name, rowBelow().key), item, itemFallback);
        }
    }

    const HeaderDTC& dtc_;
    PropertyBag& bag_;
    const Entries entries_;
    const stored::Row* row_ = nullptr;
    PropertyValue fallback_;
    // Holds the text on its way to the bag, so that its storage serves them all.
    PropertyValue text_{std::string()};
    KeyBuffer keys_;
};

void writeRows(const HeaderDTC& dtc, PropertyBag& bag, Entries entries) {
    trapErrors(dtc.surroundings.messages, "UserControl_WriteProperties", [&] {
        PropertyWriter writer(dtc, bag, entries);
        for (const stored::Row& row : stored::Table)
            writer.write(row);
    });
}

}  // namespace

void HeaderDTC::UserControl_WriteProperties(PropertyBag& bag) {
    writeRows(*this, bag, Entries::All);
}

void HeaderDTC::writePropertiesThatCount(PropertyBag& bag) {
    writeRows(*this, bag, Entries::ThoseThatCount);
}

}  // namespace headerdtc
