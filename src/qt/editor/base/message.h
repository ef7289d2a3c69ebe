#pragma once

#include "host/inspection/finding.h"

#include <QString>
#include <filesystem>
#include <string>

namespace headerdtc::qt {

// Where in a page something is.
struct Place {
    std::string control;  // its ID; empty: the page itself
    int tab = -1;         // page of the control's tab strip, from 0; -1: none
    int row = -1;         // row of that tab's criteria grid; -1: none
    int line = 0;         // of the source, from 1; 0: none
    bool operator==(const Place&) const = default;
};

// Something that a person should know of a page.
struct Message {
    enum class Severity { Note, Warning, Error };
    Severity severity = Severity::Note;
    QString text;
    std::filesystem::path page;
    Place place;
};

// What the rules of `headerdtc check` have found, in the same words.
Message messageOf(const Finding& finding);

// A place in words: "HeaderDTC1, ZEKO tab, row 2".
QString describe(const Place& place);

}  // namespace headerdtc::qt
