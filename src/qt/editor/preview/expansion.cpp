#include "qt/editor/preview/expansion.h"

#include "host/page/quiet_host.h"

#include <utility>

namespace headerdtc::qt {

Expansion expand(const std::shared_ptr<Site>& site, const std::filesystem::path& page,
                 const ControlSpan& stored) {
    QuietHost host;
    OpenControl control(site, page, stored, host.faces());
    MadeContent made = control.content();
    Expansion expansion;
    expansion.doubt = std::move(made.doubt);
    expansion.content = std::move(made.content);
    expansion.messages = std::move(host.messages);
    return expansion;
}

}  // namespace headerdtc::qt
