#pragma once

#include "core/family.h"

namespace headerdtc {

// Where the criteria grids of the two families behave differently. Why they do is not known;
// authors are used to it.
struct CriteriaTraits {
    Family family;
    // A double click beside the value column acts like a click.
    bool doubleClickClicks;
    // A key field chosen for a row that is gone by then is dropped instead of failing.
    bool dropsKeyOfMissingRow;
};

inline constexpr CriteriaTraits CriteriaTraitsTable[] = {
    {Family::EAI, false, true},
    {Family::ZEKO, true, false},
};

constexpr const CriteriaTraits& criteriaTraitsOf(Family family) {
    return CriteriaTraitsTable[family == Family::EAI ? 0 : 1];
}

}  // namespace headerdtc
