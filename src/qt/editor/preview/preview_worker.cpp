#include "qt/editor/preview/preview_worker.h"

#include <QCoreApplication>
#include <QPointer>
#include <QThreadPool>
#include <utility>

namespace headerdtc::qt {
namespace {

std::shared_ptr<const Preview> make(const PreviewWorker::Request& request) {
    auto preview = std::make_shared<Preview>();
    preview->controlId = request.stored.id;
    preview->savedText = request.savedText;
    try {
        preview->expansion = expand(request.site, request.page, request.stored);
        preview->changes =
            diffRuns(linesOf(preview->savedText, LineForm::Shown),
                     linesOf(preview->expansion.content.runtimeText, LineForm::Shown));
    } catch (const std::exception& failure) {
        preview->problem = failure.what();
    }
    return preview;
}

}  // namespace

void PreviewWorker::request(Request request) {
    if (working_) {
        waiting_.insert_or_assign(request.stored.id, std::move(request));
    } else {
        start(std::move(request));
    }
}

void PreviewWorker::start(Request request) {
    working_ = true;
    QThreadPool::globalInstance()->start(
        [request = std::move(request), self = QPointer<PreviewWorker>(this)] {
            auto preview = make(request);
            // The page may have been closed meanwhile; only the main thread can tell.
            QMetaObject::invokeMethod(QCoreApplication::instance(), [preview, self] {
                if (self) self->finish(preview);
            });
        });
}

void PreviewWorker::finish(const std::shared_ptr<const Preview>& preview) {
    working_ = false;
    const bool isLatest = !waiting_.contains(preview->controlId);
    if (!waiting_.empty()) start(std::move(waiting_.extract(waiting_.begin()).mapped()));
    if (isLatest) Q_EMIT ready(preview);
}

}  // namespace headerdtc::qt
