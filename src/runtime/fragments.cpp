#include "runtime/fragments.h"

#include "core/header_dtc.h"
#include "platform/error_trap.h"
#include "platform/text.h"

#include <iterator>
#include <string_view>

namespace headerdtc {
namespace {

constexpr std::string_view LineEnd = "\r\n";
constexpr std::string_view Indent = "\t\t\t";

// The family that a code names, nullptr for none.
FamilyControls* familyOf(HeaderDTC& control, int code) {
    for (const FamilyTraits& traits : FamilyTable) {
        if (static_cast<int>(traits.family) == code) return &control.family(traits.family);
    }
    return nullptr;
}

FamilyControls* linkedFamilyOf(HeaderDTC& control, int code) {
    for (const FamilyTraits& traits : FamilyTable) {
        if (traits.linkedCode == code) return &control.family(traits.family);
    }
    return nullptr;
}

template <class... Texts>
void append(std::string& text, const Texts&... more) {
    ((text += more), ...);
}

// EAI entries are only a name, written twice; ZEKO entries are an identifier and a name.
std::string fieldLines(std::string_view variable, const ListBox& fields,
                       const FamilyTraits& traits) {
    std::string text;
    for (int i = 0; i < fields.ListCount(); ++i) {
        const std::string_view entry = fields.List(i);
        append(text, variable, ".Add ");
        if (traits.family == Family::EAI) {
            append(text, '"', entry, "\", \"", entry);
        } else {
            const std::string_view name = secondPiece(entry, traits.separator);
            append(text, entry.substr(0, entry.find(traits.separator)), ", \"", name);
        }
        append(text, '"', LineEnd, Indent);
    }
    return text;
}

std::string translationCall(std::string_view procedure, const ListBox& fields,
                            const FamilyTraits& traits) {
    int remaining = fields.SelCount();
    if (remaining == 0) return {};
    std::string text;
    append(text, "<DATAPROVIDER_VARNAME>.", procedure, "( Array( _", LineEnd);
    for (int i = 0; i < fields.ListCount(); ++i) {
        if (!fields.Selected(i)) continue;
        --remaining;
        append(text, "\t\t\t\t\"", trimBlanks(secondPiece(fields.List(i), traits.separator)), '"');
        if (remaining > 0) text += ", ";
        append(text, " _", LineEnd);
    }
    append(text, Indent, "))");
    return text;
}

// The number of an operator; -1 when it is unknown.
int operatorNumber(std::string_view text) {
    for (std::size_t number = 0; number < std::size(CriteriumOperators); ++number) {
        if (CriteriumOperators[number] == text) return static_cast<int>(number);
    }
    return -1;
}

std::string unknownOperatorRemark(const std::string& text, int row) {
    const std::string place = "criterion " + std::to_string(row);
    if (trimBlanks(text).empty()) return "Specify operator on " + place;
    return "Unknown operator '" + text + "' on " + place;
}

}  // namespace

std::string GetKeyFieldsRuntimeText(HeaderDTC& control, int family) {
    std::string text;
    const auto body = [&] {
        const FamilyControls* own = familyOf(control, family);
        if (!own) return;
        text = "Array(";
        const ComboBox& keyFields = own->KeyFieldsCombo;
        for (int i = 0; i < keyFields.ListCount(); ++i) {
            if (i > 0) text += ", ";
            append(text, '"', keyFields.List(i), '"');
        }
        text += ')';
    };
    trapErrors(control.surroundings.messages, "GetKeyFieldsRuntimeText", body,
               ErrorReportStyle::NoBlankBeforeNumber);
    return text;
}

std::string GetReturnFieldsRuntimeText(HeaderDTC& control, int family) {
    const FamilyControls* own = familyOf(control, family);
    if (!own) return {};
    return fieldLines("<RETURN_FIELDS_VARNAME>", own->SelectedFieldsList, own->traits);
}

std::string GetLinkedReturnFieldsRuntimeText(HeaderDTC& control, int linkedFamily) {
    const FamilyControls* own = linkedFamilyOf(control, linkedFamily);
    if (!own) return {};
    return fieldLines("<LINKED_RETURN_FIELDS_VARNAME>", own->SelectedLinkedFieldsList, own->traits);
}

std::string GetCriteriaRuntimeText(HeaderDTC& control, int family) {
    FamilyControls* own = familyOf(control, family);
    if (!own) return {};
    MessageBox& messages = control.surroundings.messages;
    const auto cell = [&](int row, int column) -> const std::string& {
        return own->CriteriaGrid.TextArray(control.CriteriaGridIndex(row, column));
    };
    std::string text;
    int number = 0;
    for (int row = 1; row < own->CriteriaGrid.Rows(); ++row) {
        const std::string_view key = trimBlanks(cell(row, criteria_column::Key));
        const std::string& operatorText = cell(row, criteria_column::Operator);
        const std::string& value = cell(row, criteria_column::Value);
        if (operatorText.empty() || key.empty() || value.empty()) {
            if (!key.empty()) {
                messages.show("Incomplete criterion on line " + std::to_string(row) + " on the " +
                              familyName(own->family, " tab"));
            }
            continue;
        }
        // A row with an unknown operator is written all the same, with the number of the last
        // known one.
        if (const int known = operatorNumber(operatorText); known >= 0)
            number = known;
        else
            messages.show(unknownOperatorRemark(operatorText, row));
        append(text, "<DATAPROVIDER_VARNAME>.SetKeyValue \"", key, "\", ", std::to_string(number),
               ", ");
        if (own->CriteriaType.item(value) == CONSTANT)
            append(text, '"', value, '"');
        else
            append(text, value, "()");
        append(text, LineEnd, Indent);
    }
    return text;
}

std::string GetI18NFieldnamesRuntimeText(HeaderDTC& control, int family) {
    const FamilyControls* own = familyOf(control, family);
    if (!own) return {};
    return translationCall("setTranslatedFieldNames", own->I18NFieldnamesList, own->traits);
}

std::string GetI18NFieldValuesRuntimeText(HeaderDTC& control, int family) {
    const FamilyControls* own = familyOf(control, family);
    if (!own) return {};
    return translationCall("setTranslatedFieldValues", own->I18NFieldValuesList, own->traits);
}

std::string GetLinkedFieldsRuntimeText(HeaderDTC& control, int linkedFamily) {
    const FamilyControls* own = linkedFamilyOf(control, linkedFamily);
    if (!own) return {};
    const auto cell = [&](int row, int column) -> const std::string& {
        return own->LinksGrid.TextArray(control.LinksGridIndex(row, column));
    };
    std::string text;
    for (int row = 1; row < own->LinksGrid.Rows(); ++row) {
        const std::string& from = cell(row, links_column::From);
        if (from.empty()) continue;
        // Here the first line goes without the indentation after it.
        const bool first = text.empty();
        append(text, "<LINKED_FIELDS_VARNAME>.Add \"", secondPiece(from, own->traits.separator),
               "\", \"", cell(row, links_column::To), '"', LineEnd);
        if (!first) text += Indent;
    }
    return text;
}

}  // namespace headerdtc
