#include "qt/editor/base/message.h"

#include "core/stored_keys.h"
#include "qt/surface/text.h"

#include <QCoreApplication>
#include <QStringList>

namespace headerdtc::qt {

Message messageOf(const Finding& finding) {
    const Remark& remark = finding.remark;
    Message message;
    message.severity =
        finding.severity == Severity::Error ? Message::Severity::Error : Message::Severity::Warning;
    message.text = toQt(remark.text + ": " + remark.advice);
    message.page = finding.page;
    message.place = {.control = finding.control, .line = finding.line};
    const auto part = partOf(remark.property);
    if (part) {
        message.place.tab = part->tabPage();
        if (part->part == StoredPart::Criteria && remark.row > 0) message.place.row = remark.row;
    } else if (remark.family) {
        message.place.tab = traitsOf(*remark.family).tabPage;
    }
    return message;
}

QString describe(const Place& place) {
    QStringList words;
    if (!place.control.empty()) words += QString::fromStdString(place.control);
    if (place.tab >= 0)
        words += QCoreApplication::translate("Place", "%1 tab").arg(toQt(TabPages[place.tab]));
    if (place.row >= 0) words += QCoreApplication::translate("Place", "row %1").arg(place.row);
    if (place.tab < 0 && place.line > 0)
        words += QCoreApplication::translate("Place", "line %1").arg(place.line);
    return words.join(QLatin1String(", "));
}

}  // namespace headerdtc::qt
