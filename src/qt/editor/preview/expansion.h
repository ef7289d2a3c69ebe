#pragma once

#include "host/page/page_session.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace headerdtc::qt {

// What a stored control would be generated to.
struct Expansion {
    ControlContent content;
    // The texts of the boxes that it would have shown, in order.
    std::vector<std::string> messages;
    // Why a page with this content should not be saved.
    std::optional<SaveDoubt> doubt;
    // Loading or generating reported an error: there is no usable text.
    bool failed() const { return doubt && doubt->kind == SaveDoubt::Kind::Failure; }
};

// Expands a control in a hidden copy of its own, as `headerdtc generate` does: no box is shown, and
// the author's control, whose dictionaries an expansion adds to, is left alone. Thread-safe. Throws
// what OpenControl throws.
Expansion expand(const std::shared_ptr<Site>& site, const std::filesystem::path& page,
                 const ControlSpan& stored);

}  // namespace headerdtc::qt
