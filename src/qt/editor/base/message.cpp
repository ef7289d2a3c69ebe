#include "qt/editor/base/message.h"

#include "core/stored_keys.h"
#include "host/inspection/rules/rule_table.h"
#include "qt/surface/text.h"

#include <QCoreApplication>
#include <QStringList>
#include <algorithm>
#include <iterator>
#include <utility>

namespace headerdtc::qt {

namespace {

using Verdict = GeneratedPage::Verdict;

struct StateLook {
    const char* word;
    const char* icon;
};

// In the order of the verdicts.
constexpr StateLook StateLooks[] = {
    {QT_TRANSLATE_NOOP("PageState", "no control"), ""},
    {QT_TRANSLATE_NOOP("PageState", "up to date"), "dialog-ok"},
    {QT_TRANSLATE_NOOP("PageState", "out of date"), "view-refresh"},
    {QT_TRANSLATE_NOOP("PageState", "would lose something"), "dialog-warning"},
    {QT_TRANSLATE_NOOP("PageState", "cannot be generated"), "dialog-error"},
    {QT_TRANSLATE_NOOP("PageState", "cannot be read"), "dialog-error"},
    {QT_TRANSLATE_NOOP("PageState", "wrong settings"), "dialog-error"},
};
static_assert(std::size(StateLooks) == static_cast<std::size_t>(Verdict::NotConfigured) + 1);

const StateLook& lookOf(Verdict state) {
    return StateLooks[static_cast<std::size_t>(state)];
}

Place placeOf(const Finding& finding) {
    const Remark& remark = finding.remark;
    Place place{.control = finding.control, .item = remark.row, .line = finding.line};
    const auto part = partOf(remark.property);
    if (part) {
        place.tab = part->tabPage();
        if (part->part == StoredPart::Criteria && remark.row > 0)
            place.row = std::exchange(place.item, 0);
    } else if (remark.family) {
        place.tab = traitsOf(*remark.family).tabPage;
    }
    return place;
}

}  // namespace

QString wordOf(Verdict state) {
    return QCoreApplication::translate("PageState", lookOf(state).word);
}

const char* iconOf(Verdict state) {
    return lookOf(state).icon;
}

bool lacksSite(const InspectedPage& inspected) {
    return !inspected.hasConfiguration && inspected.verdict >= Verdict::Failing;
}

std::vector<Message> messagesOf(const std::filesystem::path& page, const InspectedPage& inspected) {
    if (lacksSite(inspected))
        return {{Message::Severity::Error,
                 QCoreApplication::translate(
                     "PageState",
                     "There is no site yet: no headerdtc.toml in the folder of the "
                     "page or in one above it."),
                 page,
                 {},
                 true}};
    std::vector<Message> messages;
    for (const Finding& finding : inspected.findings) {
        if (finding.rule == StaleRule) continue;
        const bool isError = finding.severity == Severity::Error;
        const bool isLoss = inspected.verdict == Verdict::Losing;
        // The rule tells what the command line can do.
        const QString advice =
            finding.rule != NotGeneratedRule ? toQt(finding.remark.advice)
            : isLoss
                ? QCoreApplication::translate(
                      "PageState", "put back what is missing, or keep it stored by saving anyway")
                : QCoreApplication::translate(
                      "PageState", "correct that first; Site > Settings shows what the site lacks");
        messages.push_back(
            {isError ? Message::Severity::Error : Message::Severity::Warning,
             toQt(finding.remark.text) + QLatin1String(": ") + advice, page, placeOf(finding),
             finding.rule == NotGeneratedRule && inspected.verdict == Verdict::Failing});
    }
    if (const auto& failure = inspected.failure)
        messages.push_back({Message::Severity::Error,
                            toQt(failure->text),
                            page,
                            {},
                            failure->of != PageFailure::Of::Page});
    return messages;
}

QString describe(const Place& place) {
    QStringList words;
    if (!place.control.empty()) words += QString::fromStdString(place.control);
    if (place.tab >= 0)
        words += QCoreApplication::translate("Place", "%1 tab").arg(toQt(TabPages[place.tab]));
    if (const int row = std::max(place.row, place.item); row > 0)
        words += QCoreApplication::translate("Place", "row %1").arg(row);
    if (place.tab < 0 && place.line > 0)
        words += QCoreApplication::translate("Place", "line %1").arg(place.line);
    return words.join(QLatin1String(", "));
}

}  // namespace headerdtc::qt
