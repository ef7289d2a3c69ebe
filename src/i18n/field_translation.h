#pragma once

#include "controls/event.h"
#include "core/header_dtc.h"
#include "i18n/translation_dialogs.h"
#include "i18n/translation_store.h"

#include <memory>
#include <string>

namespace headerdtc {

// What a click in a list of the I18N tab does: it looks the field up in the translation store and
// opens the dialogs. The dialogs are made on first use and live as long as this.
class FieldTranslation {
  public:
    explicit FieldTranslation(HeaderDTC& dtc);

    bool FieldnameTranslationExists(const std::string& provider, const std::string& bisType,
                                    const std::string& fieldname);
    void AddFieldnameTranslation(const std::string& provider, const std::string& bisType,
                                 const std::string& fieldname);
    void ShowFieldValueTranslations(const std::string& provider, const std::string& bisType,
                                    const std::string& fieldname);

  private:
    using Translate = void (FieldTranslation::*)(const std::string&, const std::string&,
                                                 const std::string&);
    void listClicked(FamilyControls& family, ListBox& list, Translate translate);
    void translateFieldname(const std::string& provider, const std::string& bisType,
                            const std::string& fieldname);
    void showAddLabel();

    HeaderDTC& dtc_;
    TranslationStore store_;
    std::unique_ptr<AddLabelDialog> addLabel_;
    std::unique_ptr<AddI18NFieldQuestionDialog> question_;
    std::unique_ptr<SpecifyI18NFieldnameDialog> fieldnameDialog_;
    std::unique_ptr<SpecifyI18NFieldValueDialog> fieldValueDialog_;
    Subscriptions subscriptions_;
};

}  // namespace headerdtc
