#include "cli/commands.h"
#include "host/files/file_error.h"
#include "host/odbc/secrets.h"

#include <cstdio>
#include <new>

namespace headerdtc::cli {

int guarded(const std::function<ExitStatus()>& body) {
    try {
        return body();
    } catch (const ConfigurationError& error) {
        std::fprintf(stderr, "%s\n", maskSecrets(error.what()).c_str());
        return WrongUsage;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", maskSecrets(error.what()).c_str());
        return PageNotDone;
    }
}

}  // namespace headerdtc::cli
