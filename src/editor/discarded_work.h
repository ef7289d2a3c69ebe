#pragma once

#include "core/handler.h"

namespace headerdtc {

// What the author has stored and a new data provider discards, noted while it is still there.

// The translation choices. Their notice is the one of the return fields that they belong to.
void noteTranslations(const FamilyControls& family, ChangedProperties& changed);
// Everything on the family's tab, and the translation choices.
void noteFamilyTab(const FamilyControls& family, ChangedProperties& changed);

}  // namespace headerdtc
