#include "host/automation/event_log.h"

#include <utility>

namespace headerdtc {

std::string EventLog::open(const FileDialogRequest& request) {
    events_.push_back({{"fileDialog",
                        {{"title", request.title},
                         {"initialDirectory", request.initialDirectory},
                         {"filter", request.filter}}}});
    if (files_.empty()) return {};
    std::string file = std::move(files_.front());
    files_.pop_front();
    return file;
}

nlohmann::ordered_json EventLog::take() {
    return std::exchange(events_, nlohmann::ordered_json::array());
}

void EventLog::add(const char* kind, std::string_view text) {
    nlohmann::ordered_json event = nlohmann::ordered_json::object();
    event[kind] = text;
    events_.push_back(std::move(event));
}

}  // namespace headerdtc
