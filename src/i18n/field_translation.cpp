#include "i18n/field_translation.h"

#include "platform/error_trap.h"
#include "platform/text.h"

namespace headerdtc {

FieldTranslation::FieldTranslation(HeaderDTC& dtc) : dtc_(dtc), store_(dtc.surroundings) {
    for (const Family which : BothFamilies) {
        FamilyControls& family = dtc_.family(which);
        struct {
            ListBox& list;
            Translate translate;
        } const lists[] = {
            {family.I18NFieldnamesList, &FieldTranslation::translateFieldname},
            {family.I18NFieldValuesList, &FieldTranslation::ShowFieldValueTranslations},
        };
        for (const auto& [list, translate] : lists) {
            subscriptions_ +=
                list.Click.subscribe([this, &family, &clicked = list, translate = translate] {
                    trapErrors(dtc_.surroundings.messages, clicked.name() + "_Click",
                               [&] { listClicked(family, clicked, translate); });
                });
        }
    }
}

void FieldTranslation::listClicked(FamilyControls& family, ListBox& list, Translate translate) {
    const int index = list.ListIndex();
    if (list.isShowing() && index >= 0 && list.Selected(index)) {
        const std::string fieldname(secondPiece(list.List(index), family.traits.separator));
        (this->*translate)(dtc_.dataProvider, std::string(family.traits.tag), fieldname);
    }
    dtc_.PropertyChanged(familyName(family.family, "ReturnFields"));
}

void FieldTranslation::translateFieldname(const std::string& provider, const std::string& bisType,
                                          const std::string& fieldname) {
    if (!FieldnameTranslationExists(provider, bisType, fieldname))
        AddFieldnameTranslation(provider, bisType, fieldname);
}

bool FieldTranslation::FieldnameTranslationExists(const std::string& provider,
                                                  const std::string& bisType,
                                                  const std::string& fieldname) {
    bool exists = false;
    trapErrors(dtc_.surroundings.messages, "FieldnameTranslationExists",
               [&] { exists = store_.FieldnameTranslationExists(provider, bisType, fieldname); });
    return exists;
}

void FieldTranslation::AddFieldnameTranslation(const std::string& provider,
                                               const std::string& bisType,
                                               const std::string& fieldname) {
    trapErrors(dtc_.surroundings.messages, "AddFieldnameTranslation", [&] {
        if (!question_) question_ = std::make_unique<AddI18NFieldQuestionDialog>(dtc_.desktop);
        question_->Fieldname = fieldname;
        question_->form.ShowModal();
        if (!question_->UserAgrees()) return;
        if (!fieldnameDialog_) {
            fieldnameDialog_ = std::make_unique<SpecifyI18NFieldnameDialog>(
                dtc_.desktop, dtc_.surroundings, store_, [this] { showAddLabel(); });
        }
        fieldnameDialog_->FieldNameText.Text(fieldname);
        fieldnameDialog_->FieldNameText.Enabled(false);
        fieldnameDialog_->BisType = bisType;
        fieldnameDialog_->ProviderName = provider;
        fieldnameDialog_->form.ShowModal();
    });
}

void FieldTranslation::ShowFieldValueTranslations(const std::string& provider,
                                                  const std::string& bisType,
                                                  const std::string& fieldname) {
    trapErrors(dtc_.surroundings.messages, "ShowFieldValueTranslations", [&] {
        if (!fieldValueDialog_) {
            fieldValueDialog_ = std::make_unique<SpecifyI18NFieldValueDialog>(
                dtc_.desktop, dtc_.surroundings, store_, [this] { showAddLabel(); });
        }
        fieldValueDialog_->FieldNameText.Text(fieldname);
        fieldValueDialog_->BisType = bisType;
        fieldValueDialog_->ProviderName = provider;
        fieldValueDialog_->Init();
        fieldValueDialog_->form.ShowModal();
    });
}

void FieldTranslation::showAddLabel() {
    if (!addLabel_)
        addLabel_ = std::make_unique<AddLabelDialog>(dtc_.desktop, dtc_.surroundings, store_);
    addLabel_->form.ShowModal();
}

}  // namespace headerdtc
