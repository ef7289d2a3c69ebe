#pragma once

#include "host/files/code_page.h"
#include "host/site/windows_paths.h"
#include "platform/surroundings.h"

#include <memory>
#include <string>

namespace headerdtc {

// Text files of a site by their Windows paths, in the site's code page. A file that is read again
// unchanged is not read from disk a second time. Thread-safe.
class SiteTextFiles : public TextFiles {
  public:
    SiteTextFiles(WindowsPaths paths, CodePage codePage);
    ~SiteTextFiles() override;
    std::string readText(const std::string& windowsPath) override;
    // The folder must exist.
    void writeText(const std::string& windowsPath, const std::string& text) override;

  private:
    struct Cache;
    WindowsPaths paths_;
    CodePage codePage_;
    std::unique_ptr<Cache> cache_;
};

}  // namespace headerdtc
