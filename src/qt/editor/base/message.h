#pragma once

#include "host/page/page_session.h"

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

// A message of a control's expansion or loading: how grave it is, and the place that its text
// names. `stored` tells which family a numbered criterion belongs to where the text does not.
Message messageOf(const std::string& text, const std::filesystem::path& page,
                  const ControlSpan& stored);

// Why a page should not be saved, at the tab of what would be lost.
Message messageOf(const SaveDoubt& doubt, const std::filesystem::path& page,
                  const ControlSpan& stored);

// A place in words: "HeaderDTC1, ZEKO tab, row 2".
QString describe(const Place& place);

}  // namespace headerdtc::qt
