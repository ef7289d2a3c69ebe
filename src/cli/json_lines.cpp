#include "cli/json_lines.h"

#include "cli/output.h"
#include "cli/version.h"

namespace headerdtc::cli {

void JsonLines::begin(const std::string& command, int schema) {
    write({{"type", "run"}, {"command", command}, {"schema", schema}, {"version", Version}});
}

void JsonLines::write(const Json& object) {
    printLine(stdout, object.dump(-1, ' ', false, Json::error_handler_t::replace));
    std::fflush(stdout);  // whoever reads follows the run
}

}  // namespace headerdtc::cli
