#include "qt/editor/window/page_status.h"

#include "qt/editor/page/edited_page.h"

namespace headerdtc::qt {
namespace {

QString lineEndName(const std::string& lineEnd) {
    if (lineEnd == "\n") return QStringLiteral("LF");
    return lineEnd == "\r" ? QStringLiteral("CR") : QStringLiteral("CR LF");
}

}  // namespace

void PageStatus::follow(const EditedPage* page) {
    if (!page) {
        clear();
        return;
    }
    const PageContent& content = *page->content();
    const auto controls = static_cast<int>(content.controls().size());
    QStringList words{QString::fromStdString(content.codePage().name()),
                      lineEndName(content.lineEnd()),
                      content.problem() ? tr("controls cannot be read")
                      : controls == 1   ? tr("1 control")
                                        : tr("%1 controls").arg(controls)};
    if (!page->hasFile()) words += tr("not saved yet");
    setText(words.join(QStringLiteral("   ")));
}

}  // namespace headerdtc::qt
