#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace headerdtc {

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
