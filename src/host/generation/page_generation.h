#pragma once

#include "host/files/whole_file.h"
#include "host/page/page_session.h"
#include "host/site/site.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace headerdtc {

// The result of generating one page.
struct GeneratedPage {
    enum class Verdict {
        NoControl,      // nothing of ours in it
        UpToDate,       // the bytes would be the same
        Stale,          // other bytes
        Losing,         // left alone: something would be lost
        Failing,        // left alone: loading or generating reported a failure
        NotReadable,    // the page itself cannot be read or written to
        NotConfigured,  // its site's configuration is wrong
    };
    Verdict verdict = Verdict::NoControl;
    // Texts of the control's message boxes in order, characters that its script has as references,
    // then the reason for a bad verdict.
    std::vector<std::string> messages;
    // Why controls of the page should be left as they are, one by one.
    struct Doubt {
        std::size_t control;  // index in the page
        SaveDoubt doubt;
    };
    std::vector<Doubt> doubts;
    std::string before, after;  // the page's bytes; after: only of a stale page
    FileStamp stamp;            // of the file that was read

    bool isFailure() const { return verdict >= Verdict::Losing; }
};

// The message for a control whose runtime text has characters that the page's code page lacks.
std::optional<std::string> referencesTold(const ControlSpan& control,
                                          const std::string& runtimeText, const CodePage& codePage);

// Why a page is left as it was for a doubt about one of its controls, and what to do.
std::string leftAlone(const ControlSpan& control, const SaveDoubt& doubt);

// Opens a page's controls and makes the page anew from them; writes nothing. Never throws for the
// page's sake. Thread-safe.
GeneratedPage generatePage(const std::filesystem::path& page, Sites& sites, LossGuard guard);

// The same for bytes that are not written yet: of a page that is being edited.
GeneratedPage generatePage(const std::filesystem::path& page, std::string bytes, Sites& sites,
                           LossGuard guard);

}  // namespace headerdtc
