#pragma once

#include "host/files/whole_file.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace headerdtc {

// What a command would change in one page, which it does not write itself.
struct PageChange {
    enum class Outcome {
        NoControl,      // nothing of ours in it, or not the control that is asked for
        Unchanged,      // the same bytes
        Changed,        // other bytes
        Failed,         // it cannot be read, or should be left as it is
        NotConfigured,  // its site's configuration is wrong
    };
    Outcome outcome = Outcome::NoControl;
    std::vector<std::string> failures;  // why it is not done
    std::vector<std::string> messages;  // what else is to be said, in order
    std::string before, after;          // the page's bytes; after: only of a changed page
    FileStamp stamp;                    // of the file that was read

    // Does the work; what ends it becomes the outcome and a failure.
    void attempt(const std::filesystem::path& page, const std::function<void()>& work);
};

// Why a page could not be looked into.
struct PageFailure {
    enum class Of {
        Page,           // its own
        Site,           // of what all pages of its site need; each of them says the same
        Configuration,  // the site's configuration is wrong
    };
    Of of = Of::Page;
    std::string text;  // without the page's name; of a site or its configuration with their file's
};

// What ended the look into a page; nothing when it came to its end.
std::optional<PageFailure> failureOf(const std::filesystem::path& page,
                                     const std::function<void()>& look);

}  // namespace headerdtc
