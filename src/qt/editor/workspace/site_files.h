#pragma once

#include "host/site/site.h"

#include <QString>
#include <filesystem>
#include <vector>

namespace headerdtc::qt {

// A file that every page of a site is made with.
struct SiteFile {
    const char* what;  // "template"
    std::filesystem::path file;
};
// A file whose place is not known is left out.
std::vector<SiteFile> filesOf(Site& site);

// Which of them are not there, a line each; empty when all are.
QString missingFiles(Site& site);

}  // namespace headerdtc::qt
