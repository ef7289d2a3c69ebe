#include "editor/translation_removal.h"

#include <algorithm>

namespace headerdtc {

TranslationRemoval::TranslationRemoval(FamilyControls& family, ChangedProperties& changed)
    : names_(family.I18NFieldnamesList),
      linked_(family.LinkedFieldsList),
      values_(family.I18NFieldValuesList),
      changed_(changed),
      linkedName_(familyName(family.family, "AvailableFieldsLinked")) {}

void TranslationRemoval::remove(const std::string& field) {
    const int nameCount = names_.count();
    names_.seek(field);
    linked_.seek(field);
    for (int from = 0;;) {
        const int inNames = names_.next(from);
        const int inLinked = linked_.next(from);
        const int j = std::min(inNames, inLinked);
        if (j >= nameCount) break;
        if (inNames == j) names_.remove();
        if (inLinked == j) {
            linked_.remove();
            changed_.add(linkedName_);
        }
        from = j + 1;
    }
    const int valueCount = values_.count();
    values_.seek(field);
    for (int j = values_.next(0); j < valueCount; j = values_.next(j + 1))
        values_.remove();
}

}  // namespace headerdtc
