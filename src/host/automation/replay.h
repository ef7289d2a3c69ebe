#pragma once

#include "host/files/whole_file.h"
#include "host/site/site.h"

#include <filesystem>
#include <string>
#include <vector>

namespace headerdtc {

// What replaying a script on one page came to.
struct ReplayedPage {
    enum class Outcome {
        NoControl,      // nothing of ours in it, or not the control that is asked for
        Unchanged,      // the script saved nothing, or the same bytes
        Changed,        // other bytes
        Failed,         // a line was refused, or the page cannot be read or saved
        NotConfigured,  // its site's configuration is wrong
    };
    Outcome outcome = Outcome::NoControl;
    std::vector<std::string> failures;  // "line 4: ..." of the script, or of the page
    std::vector<std::string> messages;  // texts of message boxes, in order
    std::string before, after;          // the page's bytes; after: only of a changed page
    FileStamp stamp;                    // of the file that was read
};

// Whether a script has a line that saves the page, without which it changes none.
bool scriptSaves(const std::string& script);

// Does on a page what the lines of an automation script say, and writes nothing: what the script
// saves is kept, and neither the translation database nor any other file is changed; a line that
// would is a failure. `control` is an ID, empty for the page's only or first one. Never throws for
// the page's sake. Thread-safe.
ReplayedPage replayOnPage(Sites& sites, const std::filesystem::path& page,
                          const std::string& control, const std::string& script);

}  // namespace headerdtc
