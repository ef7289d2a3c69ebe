#include "host/site/site.h"

#include "platform/text.h"
#include "runtime/runtime_text.h"
#include "scripts/scripts.h"

#include <array>
#include <langinfo.h>
#include <memory>

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

// ---- the clock ----------------------------------------------------------------------------------

namespace {

struct FreeLocale {
    using pointer = locale_t;
    void operator()(locale_t locale) const { freelocale(locale); }
};
using Locale = std::unique_ptr<locale_t, FreeLocale>;

// The user's locale; the plain one where that is not installed.
Locale userLocale() {
    Locale locale(newlocale(LC_TIME_MASK, "", nullptr));
    return locale ? std::move(locale) : Locale(newlocale(LC_TIME_MASK, "C", nullptr));
}

}  // namespace

std::string shortDate(const std::tm& date, std::string_view pattern, locale_t locale) {
    std::string ownPattern = replaceAll(pattern, "%D", "%m/%d/%y");
    ownPattern = replaceAll(replaceAll(ownPattern, "%y", "%Y"), "%Ey", "%EY");
    if (ownPattern == "%m/%d/%Y") ownPattern = "%-m/%-d/%Y";
    std::array<char, 100> buffer{};
    const auto length = strftime_l(buffer.data(), buffer.size(), ownPattern.c_str(), &date, locale);
    return {buffer.data(), length};
}

std::string SystemClock::shortDate() {
    const std::time_t now = std::time(nullptr);
    std::tm today{};
    localtime_r(&now, &today);
    const auto locale = userLocale();
    return headerdtc::shortDate(today, nl_langinfo_l(D_FMT, locale.get()), locale.get());
}

}  // namespace headerdtc
