#pragma once

#include "qt/editor/base/page_content.h"

#include <QString>
#include <QStringList>
#include <optional>
#include <string>

namespace headerdtc::qt {

// What has changed in a page, part by part, in the author's words: "ZEKO return fields of
// HeaderDTC1: + 2 - CUSTNO".
QStringList changesInWords(const PageContent& before, const PageContent& now);

// Such parts as a list, as many as fit into a message box.
QString bulleted(QStringList parts);

// Two versions of a page merged into one: the second with the changes of the first.
struct MergedPage {
    std::optional<std::string> bytes;
    QString obstacle;  // why there is none: something that both have changed
};
MergedPage mergePages(const PageContent& base, const PageContent& mine, const PageContent& theirs);

}  // namespace headerdtc::qt
