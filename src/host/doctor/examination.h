#pragma once

#include "host/doctor/doctor.h"
#include "host/site/site_configuration.h"

#include <filesystem>
#include <optional>
#include <string>

namespace headerdtc {

// One look at a site's set-up, link by link; each step leaves what later ones need.
struct Examination {
    std::filesystem::path place;  // page or folder from which the configuration is looked for
    // The configuration that was named instead, and by what ("--config"); empty: none was.
    std::filesystem::path named;
    std::string namedBy;

    std::optional<SiteConfiguration> configuration;  // once it could be read
    std::string installDir;                          // Windows path; empty until it is known
    std::vector<Diagnosis> diagnoses;

    // Details and next steps lose their secrets here.
    void whole(const std::string& link, const std::string& detail);
    void doubtful(const std::string& link, const std::string& detail, const std::string& nextStep);
    void broken(const std::string& link, const std::string& detail, const std::string& nextStep);
    // A folder that must not be looked into.
    void refused(const std::string& link, const std::filesystem::path& folder);
    void skipped(const std::string& link, const std::string& detail);
};

// The steps, in their order; each says something of every link that is its own.
namespace doctor {

// site_steps.cpp
void examineConfiguration(Examination& seen);
void examineFolders(Examination& seen);

// installation_steps.cpp
void examineInstallation(Examination& seen);

// catalogue_steps.cpp
void examineCatalogue(Examination& seen);

// database_steps.cpp
void examineDatabase(Examination& seen);

}  // namespace doctor
}  // namespace headerdtc
