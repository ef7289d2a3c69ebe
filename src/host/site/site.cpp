#include "host/site/site.h"

#include "runtime/runtime_text.h"
#include "scripts/install_directory.h"

namespace headerdtc {

Site::Site(std::shared_ptr<const SiteConfiguration> ofSite)
    : configuration(std::move(ofSite)),
      registry(configuration->registry, configuration->codePage),
      dataSources(configuration->catalogue),
      database({.connectString = configuration->connectString,
                .labelConnectString = configuration->labelConnectString,
                .odbcIni = configuration->odbcIni,
                .siteFolder = configuration->folder}),
      textFiles(configuration->drives, configuration->codePage) {}

std::filesystem::path Site::templateFile() {
    const std::string directory = installDirectoryOf(registry);
    if (directory.empty()) return {};
    return configuration->drives.toLocal(directory + std::string(TemplateFile));
}

std::shared_ptr<Site> Sites::forPage(const std::filesystem::path& page) {
    auto configuration = configurations_.forPage(page);
    const std::lock_guard lock(mutex_);
    auto& site = sites_[configuration->folder];
    if (!site || site->configuration != configuration)
        site = std::make_shared<Site>(std::move(configuration));
    return site;
}

}  // namespace headerdtc
