#include "runtime/host_binding.h"

#include "core/header_dtc.h"
#include "platform/error_trap.h"
#include "platform/utf8.h"

#include <string_view>

namespace headerdtc {
namespace {

// What a path has more characters than another, taken from its end. Raises 5 when it is shorter.
std::string_view tailBeyond(std::string_view path, std::string_view root) {
    const int length = utf8::length(root);
    if (utf8::length(path) < length) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
    return path.substr(utf8::offset(path, length));
}

std::string wayUp(std::string_view root, std::string_view page) {
    constexpr std::string_view LevelUp = "../";
    std::string way;
    for (const char c : tailBeyond(page, root)) {
        if (c == '/') way += LevelUp;
    }
    // A project without a root path lies one level above its pages' own paths.
    if (root.empty()) way += LevelUp;
    return way;
}

}  // namespace

void HostBinding::IDesignTimeControl_DesignTimeControlSite(DesignTimeControlSite* site) {
    control_.site = site;
}

DesignTimeControlSite* HostBinding::IDesignTimeControl_DesignTimeControlSite() const {
    return control_.site;
}

std::string GetRelativePathRoot(HeaderDTC& control) {
    MessageBox& messages = control.surroundings.messages;
    if (!control.site) {
        messages.show("Not running in DevStudio...");
        return {};
    }
    std::string way;
    const auto body = [&] {
        const std::string root =
            control.site->targetEnvironment(TargetEnvironmentEntry::ProjectRoot);
        const std::string page = control.site->targetEnvironment(TargetEnvironmentEntry::PagePath);
        way = wayUp(root, page);
    };
    trapErrors(messages, "GetRelativePathRoot", body, ErrorReportStyle::NoBlankBeforeNumber);
    return way;
}

}  // namespace headerdtc
