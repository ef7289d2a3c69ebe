#pragma once

#include "host/page/page_markup.h"

#include <optional>
#include <string_view>
#include <vector>

namespace headerdtc {

// The places in a page where a designer control, ours or another's, begins and ends: comments like
//     <!--METADATA TYPE="DesignerControl" startspan ...   and   <!--METADATA ... endspan-->
// All positions are bytes from the page's start.
struct SpanMarker {
    enum class Kind { Start, End };
    Kind kind;
    std::size_t begin;  // of the '<'
    // Start: of what follows the comment's own attributes. End: behind the comment.
    std::size_t end;
};

// The first marker at or behind a place.
std::optional<SpanMarker> findSpanMarker(std::string_view page, std::size_t from);

// Whether a text, put between the two comments of a control, would not be read as its text alone:
// it has an end marker, or the start of another control.
bool breaksSpan(std::string_view text);

// Where the controls are.
struct ControlsOfPage {
    std::vector<ControlSpan> ours;
    std::vector<ByteRange> others;
    std::vector<std::string> otherIds;
};

// Takes a page apart. Throws FileError as PageMarkup does.
ControlsOfPage readControls(const std::string& file, std::string_view page,
                            const CodePage& codePage);

}  // namespace headerdtc
