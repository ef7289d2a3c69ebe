#include "cli/commands.h"
#include "host/files/file_error.h"

#include <cstdio>

namespace headerdtc::cli {

int guarded(const std::function<ExitStatus()>& body) {
    try {
        return body();
    } catch (const ConfigurationError& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return WrongUsage;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return PageNotDone;
    }
}

}  // namespace headerdtc::cli
