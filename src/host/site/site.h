#pragma once

#include "host/odbc/odbc_database.h"
#include "host/site/catalogue.h"
#include "host/site/registry_export.h"
#include "host/site/site_configuration.h"
#include "host/site/site_text_files.h"
#include "platform/surroundings.h"

#include <clocale>
#include <ctime>
#include <filesystem>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

namespace headerdtc {

// One site with the surroundings that all its pages share. Thread-safe, so that pages can be done
// side by side.
class Site {
  public:
    explicit Site(std::shared_ptr<const SiteConfiguration> configuration);

    const std::shared_ptr<const SiteConfiguration> configuration;
    SiteRegistry registry;
    CatalogueDataSources dataSources;
    OdbcDatabase database;
    SiteTextFiles textFiles;

    // The suite's template on this machine; empty where the registry does not say where the suite
    // is. Raises RuntimeError for a drive that the configuration lacks.
    std::filesystem::path templateFile();
};

// The sites of any number of pages; a site whose configuration file changed is made anew.
class Sites {
  public:
    explicit Sites(std::optional<std::filesystem::path> onlyConfiguration = std::nullopt)
        : configurations_(std::move(onlyConfiguration)) {}
    // Throws ConfigurationError. Thread-safe.
    std::shared_ptr<Site> forPage(const std::filesystem::path& page);

  private:
    SiteConfigurations configurations_;
    std::mutex mutex_;
    std::map<std::filesystem::path, std::shared_ptr<Site>> sites_;  // by folder
};

// Today in the short form of the user's locale.
class SystemClock : public Clock {
  public:
    std::string shortDate() override;
};

// A date in a locale's short form, by the locale's strftime pattern for dates (D_FMT): the year
// always in four digits, and month/day/year without leading zeros, as it is written where that
// order is usual (4/26/2000). Names of months are the locale's.
std::string shortDate(const std::tm& date, std::string_view pattern, locale_t locale);

}  // namespace headerdtc
