#pragma once

#include <QString>
#include <filesystem>
#include <optional>

namespace headerdtc::qt {

// The demo site that comes with the program: installed beside it, or in the source tree.
std::optional<std::filesystem::path> findDemoSite();

// The page of the demo that shows most of what a control can do, below the site's folder.
std::filesystem::path demoPage(const std::filesystem::path& site);

// A copy of the demo for the author to play with. The folder must not be there yet, or be empty.
// Throws std::runtime_error with what to do. Tells, where there is something to tell, why the
// copy's translations will not work.
QString copyDemoSite(const std::filesystem::path& from, const std::filesystem::path& to);

}  // namespace headerdtc::qt
