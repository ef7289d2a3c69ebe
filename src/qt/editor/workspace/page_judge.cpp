#include "qt/editor/workspace/page_judge.h"

#include <QCoreApplication>
#include <QPointer>
#include <QThreadPool>
#include <utility>

namespace headerdtc::qt {

void PageJudge::request(Request request) {
    if (working_) {
        waiting_ = std::move(request);
    } else {
        start(std::move(request));
    }
}

void PageJudge::start(Request request) {
    working_ = true;
    QThreadPool::globalInstance()->start([request = std::move(request), &sites = sites_,
                                          self = QPointer<PageJudge>(this)]() mutable {
        // Looked up anew each time: catalogue and include files may have changed.
        SiteFactsCache facts;
        auto page = std::make_shared<const InspectedPage>(
            inspectPage(request.page, std::move(request.bytes), sites, facts));
        QMetaObject::invokeMethod(QCoreApplication::instance(), [page, self] {
            if (!self) return;
            self->working_ = false;
            if (self->waiting_) {
                self->start(*std::exchange(self->waiting_, std::nullopt));
            } else {
                Q_EMIT self->judged(page);
            }
        });
    });
}

}  // namespace headerdtc::qt
