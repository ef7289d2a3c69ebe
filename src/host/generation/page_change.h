#pragma once

#include "host/files/whole_file.h"

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
};

}  // namespace headerdtc
