#pragma once

#include "host/files/code_page.h"

#include <string>
#include <string_view>

namespace headerdtc::cli {

// The code page of a page's bytes: the site's, or UTF-8 where a byte-order mark says so.
const CodePage& codePageOf(std::string_view page, const CodePage& siteCodePage);

// Writes the difference of a page to standard output. Into a file or a pipe go the bytes that
// `patch -p0` takes; on a terminal it is in colour and in UTF-8, and control characters are
// visible.
void printDiff(const std::string& page, std::string_view before, std::string_view after,
               const CodePage& siteCodePage);

}  // namespace headerdtc::cli
