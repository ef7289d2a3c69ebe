#pragma once

#include "qt/editor/base/page_content.h"

#include <QString>
#include <QStringList>
#include <optional>
#include <string>

namespace headerdtc::qt {

// What of a page became another, part by part, as its author calls the parts: "ZEKO return fields
// of HeaderDTC1: + 2 - CUSTNO".
QStringList changesInWords(const PageContent& before, const PageContent& now);

// Such parts one below the other, as many as fit into a question.
QString bulleted(QStringList parts);

// One page of two that were made of the same one: as the second of them, with the changes of the
// first.
struct MergedPage {
    std::optional<std::string> bytes;
    QString obstacle;  // why there is none: something that both have changed
};
MergedPage mergePages(const PageContent& base, const PageContent& mine, const PageContent& theirs);

}  // namespace headerdtc::qt
