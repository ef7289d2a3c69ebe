#include "qt/editor/window/page_status.h"

#include "host/inspection/configuration_text.h"
#include "qt/editor/base/words.h"
#include "qt/editor/workspace/page_editor.h"

namespace headerdtc::qt {
namespace {

QString lineEndName(const std::string& lineEnd) {
    if (lineEnd == "\n") return QStringLiteral("LF");
    return lineEnd == "\r" ? QStringLiteral("CR") : QStringLiteral("CR LF");
}

QString encodingName(const PageContent& content) {
    const bool hasMark = content.bytes().starts_with("\xEF\xBB\xBF");
    QString name = QString::fromStdString(content.codePage().name());
    return hasMark ? PageStatus::tr("%1 with byte-order mark").arg(name) : name;
}

QString inWordsOf(const PageContent& content) {
    QStringList lines;
    for (const ControlSpan& control : content.controls()) {
        lines += "<b>" + QString::fromStdString(control.id).toHtmlEscaped() + "</b>";
        for (const auto& [subject, text] : inWords(readStoredConfiguration(control.properties)))
            lines += QStringLiteral("%1: %2")
                         .arg(QString::fromStdString(subject), QString::fromStdString(text))
                         .toHtmlEscaped();
    }
    return lines.join(QStringLiteral("<br>"));
}

}  // namespace

void PageStatus::follow(const PageEditor* editor) {
    if (!editor) {
        clear();
        setToolTip({});
        return;
    }
    const EditedPage& page = editor->page();
    const PageContent& content = *page.content();
    const auto controls = static_cast<int>(content.controls().size());
    QStringList words{encodingName(content), lineEndName(content.lineEnd()),
                      content.problem() ? tr("controls cannot be read")
                                        : counted(controls, "control", "controls")};
    if (controls > 0 && editor->state()) words += wordOf(*editor->state());
    if (!page.hasFile()) words += tr("not saved yet");
    words.removeAll(QString());
    setToolTip(inWordsOf(content));
    setText(words.join(QStringLiteral("   ")));
}

}  // namespace headerdtc::qt
