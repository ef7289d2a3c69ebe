#include "host/doctor/examination.h"
#include "host/files/whole_file.h"
#include "host/site/catalogue.h"

#include <set>

namespace headerdtc::doctor {

namespace {

// The first that a provider's family cannot work with.
std::string doubtOf(const Catalogue::Provider& provider) {
    const auto doubt = [&](const std::string& keyField) {
        return "the key field " + keyField + " of \"" + provider.name + "\" is none of its fields";
    };
    if (!provider.zeko && !provider.eai)
        return "\"" + provider.name + "\" has neither \"zeko\" nor \"eai\", so no fields";
    std::set<std::string> zeko, eai;
    if (provider.zeko) {
        for (const auto& field : provider.zeko->fields)
            zeko.insert(field.name);
        for (const std::string& field : provider.zeko->keyFields)
            if (!zeko.contains(field)) return doubt(field);
    }
    if (provider.eai) {
        for (const auto& group : provider.eai->groups)
            eai.insert(group.fields.begin(), group.fields.end());
        for (const std::string& field : provider.eai->keyFields)
            if (!eai.contains(field)) return doubt(field);
    }
    return {};
}

}  // namespace

void examineCatalogue(Examination& seen) {
    if (!seen.configuration) return;
    constexpr const char* Link = "catalogue";
    const auto& file = seen.configuration->catalogue;
    const std::string remedy =
        "write the data providers into it, or let 'headerdtc catalogue import' make it from a list "
        "or a "
        "database; \"catalogue\" in [datasource] of headerdtc.toml names it";
    try {
        const auto catalogue = Catalogue::parse(file.string(), readWholeFile(file).bytes);
        const std::size_t providers = catalogue.providers.size();
        if (providers == 0)
            return seen.doubtful(Link, file.string() + " has no data provider", remedy);
        for (const auto& provider : catalogue.providers) {
            if (const std::string doubt = doubtOf(provider); !doubt.empty())
                return seen.doubtful(Link, file.string() + ": " + doubt, "correct it there");
        }
        seen.whole(Link, file.string() + ", " + std::to_string(providers) +
                             (providers == 1 ? " data provider" : " data providers"));
    } catch (const FileError& error) {
        seen.broken(Link, error.what(), error.line() > 0 ? "correct that place" : remedy);
    }
}

}  // namespace headerdtc::doctor
