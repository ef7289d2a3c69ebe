#pragma once

#include "host/diff/line_diff.h"
#include "qt/editor/preview/expansion.h"

#include <QObject>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace headerdtc::qt {

// The generated text of a control beside the text that the page's file holds.
struct Preview {
    std::string controlId;
    Expansion expansion;
    std::string savedText;
    std::string problem;  // why there is no expansion
    std::vector<DiffRun> changes;
};

// Makes previews on another thread, so that typing never waits for them. When requests for one
// control come faster than they can be answered, only the latest is.
class PreviewWorker : public QObject {
    Q_OBJECT

  public:
    struct Request {
        std::shared_ptr<Site> site;
        std::filesystem::path page;
        ControlSpan stored;
        std::string savedText;
    };

    using QObject::QObject;
    void request(Request request);
    bool isBusy() const { return working_ || !waiting_.empty(); }

  Q_SIGNALS:
    void ready(const std::shared_ptr<const headerdtc::qt::Preview>& preview);

  private:
    void start(Request request);
    void finish(const std::shared_ptr<const Preview>& preview);

    bool working_ = false;
    std::map<std::string, Request> waiting_;  // by control
};

}  // namespace headerdtc::qt
