#include "qt/editor/base/message.h"

#include "core/stored_keys.h"
#include "qt/surface/text.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QStringList>
#include <algorithm>

namespace headerdtc::qt {
namespace {

int tabNamed(const QString& name) {
    const auto* const found =
        std::find(std::begin(TabPages), std::end(TabPages), name.toStdString());
    return found == std::end(TabPages) ? -1 : static_cast<int>(found - std::begin(TabPages));
}

std::string valueOf(const StoredProperties& properties, const std::string& name) {
    const auto found = std::find_if(properties.begin(), properties.end(),
                                    [&](const auto& property) { return property.first == name; });
    return found == properties.end() ? std::string() : found->second;
}

// The tab whose criterion of that row has exactly this operator and is otherwise whole.
int tabOfCriterion(const StoredProperties& properties, const QString& row,
                   const std::string& operatorText) {
    const std::string number = row.toStdString();
    for (const char* family : {"EAI", "ZEKO"}) {
        const std::string cell = std::string(family) + "Criteria" + number + '_';
        if (valueOf(properties, cell + "2") == operatorText &&
            !valueOf(properties, cell + "1").empty() && !valueOf(properties, cell + "3").empty())
            return tabNamed(QLatin1String(family));
    }
    return -1;
}

void findPlace(Message& message, const StoredProperties& properties) {
    static const QRegularExpression incomplete(
        QStringLiteral("^Incomplete criterion on line (\\d+) on the (\\w+) tab"));
    static const QRegularExpression noOperator(
        QStringLiteral("^(?:Specify operator|Unknown operator '(.*)') on criterion (\\d+)"));
    static const QRegularExpression atLine(QStringLiteral("^line (\\d+): "));
    if (const auto match = incomplete.match(message.text); match.hasMatch()) {
        message.place.row = match.captured(1).toInt();
        message.place.tab = tabNamed(match.captured(2));
    } else if (const auto operatorMatch = noOperator.match(message.text);
               operatorMatch.hasMatch()) {
        message.place.row = operatorMatch.captured(2).toInt();
        const std::string text = operatorMatch.captured(1).toStdString();
        message.place.tab =
            tabOfCriterion(properties, operatorMatch.captured(2), text.empty() ? " " : text);
    } else if (const auto lineMatch = atLine.match(message.text); lineMatch.hasMatch()) {
        message.place.line = lineMatch.captured(1).toInt();
        message.text.remove(0, lineMatch.capturedLength());
    }
}

}  // namespace

Message messageOf(const std::string& text, const std::filesystem::path& page,
                  const ControlSpan& stored) {
    Message message;
    message.text = QString::fromStdString(text);
    message.page = page;
    message.place.control = stored.id;
    message.place.line = stored.line;
    const bool failed = message.text.startsWith(QLatin1String("Error in ")) ||
                        message.text.startsWith(QLatin1String("Can not find"));
    message.severity = failed ? Message::Severity::Error : Message::Severity::Warning;
    findPlace(message, stored.properties);
    return message;
}

Message messageOf(const SaveDoubt& doubt, const std::filesystem::path& page,
                  const ControlSpan& stored) {
    Message message = messageOf(doubt.reason, page, stored);
    if (!doubt.losses.empty()) message.place.tab = partOf(doubt.losses.front().name)->tabPage();
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
