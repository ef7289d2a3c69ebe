#pragma once

#include "host/inspection/rules/page_inspection.h"

#include <QString>
#include <filesystem>
#include <string>
#include <vector>

namespace headerdtc::qt {

// Where in a page something is.
struct Place {
    std::string control;  // its ID; empty: the page itself
    int tab = -1;         // page of the control's tab strip, from 0; -1: none
    int row = -1;         // row of that tab's criteria grid; -1: none
    int item = 0;         // position in a list or another grid of that tab, from 1; 0: none
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
    // Its cause is the set-up of the site: every page says the same.
    bool isOfSite = false;
};

// Whether a page cannot be generated because nobody has set up a site for it.
bool lacksSite(const InspectedPage& inspected);

// What the rules of `headerdtc check` have found in a page, in the same words. That its text is out
// of date is its state. Where there is no site, that is all there is to say.
std::vector<Message> messagesOf(const std::filesystem::path& page, const InspectedPage& inspected);

// The state of a page, in the words and with the icon ("" for none) of every part of the window.
QString wordOf(GeneratedPage::Verdict state);
const char* iconOf(GeneratedPage::Verdict state);

// A place in words: "HeaderDTC1, ZEKO tab, row 2".
QString describe(const Place& place);

}  // namespace headerdtc::qt
