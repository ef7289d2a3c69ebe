#include "host/doctor/doctor.h"

#include "host/doctor/examination.h"
#include "host/odbc/secrets.h"

#include <span>
#include <utility>

namespace headerdtc {
namespace {

constexpr void (*Steps[])(Examination&) = {
    doctor::examineConfiguration, doctor::examineFolders,  doctor::examineInstallation,
    doctor::examineCatalogue,     doctor::examineDatabase,
};

}  // namespace

std::string_view nameOf(Health health) {
    switch (health) {
        case Health::Whole:
            return "ok";
        case Health::Doubtful:
            return "warning";
        case Health::Broken:
            return "broken";
        case Health::NotLookedAt:
            break;
    }
    return "skipped";
}

void Examination::whole(const std::string& link, const std::string& detail) {
    diagnoses.push_back({link, Health::Whole, maskSecrets(detail), ""});
}

void Examination::doubtful(const std::string& link, const std::string& detail,
                           const std::string& nextStep) {
    diagnoses.push_back({link, Health::Doubtful, maskSecrets(detail), maskSecrets(nextStep)});
}

void Examination::broken(const std::string& link, const std::string& detail,
                         const std::string& nextStep) {
    diagnoses.push_back({link, Health::Broken, maskSecrets(detail), maskSecrets(nextStep)});
}

void Examination::refused(const std::string& link, const std::filesystem::path& folder) {
    broken(link, folder.string() + ": permission denied",
           "let this user read it and the folders above it");
}

void Examination::skipped(const std::string& link, const std::string& detail) {
    diagnoses.push_back({link, Health::NotLookedAt, maskSecrets(detail), ""});
}

std::vector<Diagnosis> examineSite(const std::filesystem::path& place,
                                   const std::filesystem::path& named, const std::string& namedBy) {
    Examination seen;
    seen.place = place;
    seen.named = named;
    seen.namedBy = namedBy;
    for (const auto step : Steps)
        step(seen);
    return std::move(seen.diagnoses);
}

std::vector<Diagnosis> examineSite(SiteConfiguration configuration) {
    Examination seen;
    seen.configuration = std::move(configuration);
    for (const auto step : std::span(Steps).subspan<1>())
        step(seen);
    return std::move(seen.diagnoses);
}

}  // namespace headerdtc
