#include "qt/editor/workspace/site_files.h"

#include "platform/runtime_error.h"
#include "qt/editor/base/words.h"
#include "runtime/runtime_text.h"
#include "scripts/install_directory.h"

#include <QCoreApplication>
#include <QStringList>

namespace headerdtc::qt {

namespace fs = std::filesystem;

std::vector<SiteFile> filesOf(Site& site) {
    const SiteConfiguration& configuration = *site.configuration;
    std::vector<SiteFile> files{
        {"site configuration",
         configuration.file.empty() ? configuration.folder / "headerdtc.toml" : configuration.file},
        {"catalogue", configuration.catalogue},
        {"registry export", configuration.registry}};
    const std::string directory = installDirectoryOf(site.registry);
    if (directory.empty()) return files;
    try {
        files.push_back(
            {"template", configuration.drives.toLocal(directory + std::string(TemplateFile))});
    } catch (const RuntimeError&) {
        // A drive that the configuration lacks.
    }
    return files;
}

QString missingFiles(Site& site) {
    QStringList missing;
    for (const auto& [what, file] : filesOf(site)) {
        std::error_code failure;
        if (!fs::exists(file, failure))
            missing += QCoreApplication::translate("SiteFiles", "The %1 is missing: %2")
                           .arg(QLatin1String(what), toName(file));
    }
    return missing.join(QLatin1Char('\n'));
}

}  // namespace headerdtc::qt
