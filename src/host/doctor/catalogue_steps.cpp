#include "host/doctor/examination.h"
#include "host/files/whole_file.h"
#include "host/site/catalogue.h"

namespace headerdtc::doctor {

void examineCatalogue(Examination& seen) {
    if (!seen.configuration) return;
    constexpr const char* Link = "catalogue";
    const auto& file = seen.configuration->catalogue;
    const std::string remedy =
        "write the data providers into it, or let 'headerdtc catalogue import' make it from the "
        "database; \"catalogue\" in [datasource] of headerdtc.toml names it";
    try {
        const auto catalogue = Catalogue::parse(file.string(), readWholeFile(file).bytes);
        const std::size_t providers = catalogue.providers.size();
        if (providers == 0)
            return seen.doubtful(Link, file.string() + " has no data provider", remedy);
        seen.whole(Link, file.string() + ", " + std::to_string(providers) +
                             (providers == 1 ? " data provider" : " data providers"));
    } catch (const FileError& error) {
        seen.broken(Link, error.what(), error.line() > 0 ? "correct that place" : remedy);
    }
}

}  // namespace headerdtc::doctor
