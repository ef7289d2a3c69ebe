#include "host/generation/page_failure.h"

#include "host/files/file_error.h"

#include <new>

namespace headerdtc {

std::optional<PageFailure> failureOf(const std::filesystem::path& page,
                                     const std::function<void()>& look) {
    using Of = PageFailure::Of;
    try {
        look();
    } catch (const ConfigurationError& error) {
        return PageFailure{Of::Configuration, error.what()};
    } catch (const FileError& error) {
        if (error.file() != page.string()) return PageFailure{Of::Site, error.what()};
        return PageFailure{Of::Page, error.line() == 0 ? error.problem()
                                                       : "line " + std::to_string(error.line()) +
                                                             ": " + error.problem()};
    } catch (const std::bad_alloc&) {
        return PageFailure{Of::Page, "there is not enough memory for this page"};
    } catch (const std::exception& error) {
        return PageFailure{Of::Page, error.what()};
    }
    return std::nullopt;
}

}  // namespace headerdtc
