#include "host/generation/page_change.h"

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

void PageChange::attempt(const std::filesystem::path& page, const std::function<void()>& work) {
    const auto failure = failureOf(page, work);
    if (!failure) return;
    const bool ofConfiguration = failure->of == PageFailure::Of::Configuration;
    outcome = ofConfiguration ? Outcome::NotConfigured : Outcome::Failed;
    failures.push_back(failure->text);
}

}  // namespace headerdtc
