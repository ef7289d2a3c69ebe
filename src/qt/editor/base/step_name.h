#pragma once

#include "host/page/page_markup.h"

#include <QString>
#include <QStringList>
#include <string_view>
#include <vector>

namespace headerdtc::qt {

// What of a control became another, by the first stored property that differs in what an author
// chooses; lists that only follow from a choice (the available fields of a provider) come last.
QString describeChange(const StoredProperties& before, const StoredProperties& after);

// One thing of a control that became another, as an author calls it, and which texts came and went
// by that. What only follows from a choice is left out, unless nothing else changed.
struct ChangedPart {
    QString caption;
    QStringList added, removed;
};
// In the order of the tabs.
std::vector<ChangedPart> changedParts(const StoredProperties& before,
                                      const StoredProperties& after);

// Whether two states of a control are the same to an author. The "..." of a criteria row is stored
// too, but it only says that somebody has been in the row.
bool isSameConfiguration(const StoredProperties& left, const StoredProperties& right);

// The stored properties that differ, for telling whether two changes are of one kind: their names,
// joined.
QString changedNames(const StoredProperties& before, const StoredProperties& after);

}  // namespace headerdtc::qt
