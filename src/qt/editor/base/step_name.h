#pragma once

#include "core/stored_keys.h"
#include "host/page/page_markup.h"

#include <QString>
#include <QStringList>
#include <set>
#include <vector>

namespace headerdtc::qt {

// The parts of a control that are others, what only follows from those among them. The "..." of a
// criteria row is stored too, but it only says that somebody has been in the row.
std::set<ControlPart> differingParts(const StoredProperties& before, const StoredProperties& after);

// One part of a control that became another, and what came and went by that: items of a list, rows
// of a grid, texts. What only follows from a choice (the available fields of a provider) is left
// out, unless nothing else changed.
struct ChangedPart {
    ControlPart part;
    QStringList added, removed;

    QString caption() const { return QString::fromStdString(part.caption()); }
};
// In the order of the tabs.
std::vector<ChangedPart> changedParts(const StoredProperties& before,
                                      const StoredProperties& after);

// What an author did to a control, as "Undo" is followed by it: "add 8 - DELNAME to ZEKO return
// fields".
QString describeChange(const StoredProperties& before, const StoredProperties& after);

// Whether two states of a control are the same to an author.
bool isSameConfiguration(const StoredProperties& left, const StoredProperties& right);

// The stored properties that differ, for telling whether two changes are of one kind: their names,
// joined.
QString changedNames(const StoredProperties& before, const StoredProperties& after);

}  // namespace headerdtc::qt
