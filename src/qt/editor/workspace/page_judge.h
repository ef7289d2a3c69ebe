#pragma once

#include "host/inspection/rules/page_inspection.h"

#include <QObject>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace headerdtc::qt {

// Checks a page as it would be saved, by the rules of `headerdtc check`, on another thread. When
// requests come faster than they can be answered, only the latest is.
class PageJudge : public QObject {
    Q_OBJECT

  public:
    struct Request {
        std::filesystem::path page;
        std::string bytes;
    };

    // The sites outlive every judgement.
    explicit PageJudge(Sites& sites, QObject* parent = nullptr) : QObject(parent), sites_(sites) {}
    void request(Request request);

  Q_SIGNALS:
    void judged(const std::shared_ptr<const headerdtc::InspectedPage>& page);

  private:
    void start(Request request);

    Sites& sites_;
    bool working_ = false;
    std::optional<Request> waiting_;
};

}  // namespace headerdtc::qt
