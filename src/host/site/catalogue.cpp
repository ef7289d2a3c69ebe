#include "host/site/catalogue.h"

#include "host/files/file_cache.h"
#include "host/files/file_error.h"

#include <algorithm>
#include <utility>

namespace headerdtc {
namespace {

// Keys 1, 2, 3 ...: for dictionaries of which only the items count.
Dictionary<std::string> numbered(const std::vector<std::string>& items) {
    Dictionary<std::string> dictionary;
    for (const auto& item : items)
        dictionary.Add(std::to_string(dictionary.Count() + 1), item);
    return dictionary;
}

}  // namespace

const Catalogue::Provider* Catalogue::find(std::string_view name) const {
    const auto found =
        std::find_if(providers.begin(), providers.end(),
                     [name](const Provider& provider) { return provider.name == name; });
    return found == providers.end() ? nullptr : &*found;
}

struct CatalogueDataSources::Cache {
    FileCache<Catalogue> file;

    // The catalogue, its failures as run-time errors of the control.
    std::shared_ptr<const Catalogue> forRequest() {
        try {
            return file.current();
        } catch (const FileError& error) {
            throw runtimeErrorOf(error,
                                 "write the data-source catalogue there, or name another one by "
                                 "\"catalogue\" in [datasource] of headerdtc.toml");
        }
    }
};

class CatalogueDataSources::Source : public DataSource {
  public:
    explicit Source(std::shared_ptr<Cache> cache) : cache_(std::move(cache)) {}

    std::vector<std::string> providerNames() override {
        const auto catalogue = cache_->forRequest();
        std::vector<std::string> names;
        names.reserve(catalogue->providers.size());
        for (const auto& provider : catalogue->providers)
            names.push_back(provider.name);
        return names;
    }

    Dictionary<std::string> zekoFields(const std::string& provider) override {
        const auto catalogue = cache_->forRequest();
        Dictionary<std::string> fields;
        if (const auto* zeko = zekoOf(*catalogue, provider)) {
            for (const auto& [number, name] : zeko->fields)
                fields.Add(std::to_string(number), name);
        }
        return fields;
    }

    Dictionary<std::string> zekoKeyFields(const std::string& provider) override {
        const auto catalogue = cache_->forRequest();
        const auto* zeko = zekoOf(*catalogue, provider);
        return zeko ? numbered(zeko->keyFields) : Dictionary<std::string>();
    }

    Dictionary<std::string> eaiGroups(const std::string& provider) override {
        const auto catalogue = cache_->forRequest();
        std::vector<std::string> names;
        if (const auto* eai = eaiOf(*catalogue, provider)) {
            for (const auto& group : eai->groups)
                names.push_back(group.name);
        }
        return numbered(names);
    }

    Dictionary<std::string> eaiGroupFields(const std::string& provider,
                                           const std::string& group) override {
        const auto catalogue = cache_->forRequest();
        if (const auto* eai = eaiOf(*catalogue, provider)) {
            for (const auto& [name, fields] : eai->groups) {
                if (name == group) return numbered(fields);
            }
        }
        return {};
    }

    Dictionary<std::string> eaiKeyFields(const std::string& provider) override {
        const auto catalogue = cache_->forRequest();
        const auto* eai = eaiOf(*catalogue, provider);
        return eai ? numbered(eai->keyFields) : Dictionary<std::string>();
    }

  private:
    static const Catalogue::Zeko* zekoOf(const Catalogue& catalogue, const std::string& name) {
        const auto* provider = catalogue.find(name);
        return provider && provider->zeko ? &*provider->zeko : nullptr;
    }
    static const Catalogue::Eai* eaiOf(const Catalogue& catalogue, const std::string& name) {
        const auto* provider = catalogue.find(name);
        return provider && provider->eai ? &*provider->eai : nullptr;
    }

    std::shared_ptr<Cache> cache_;
};

CatalogueDataSources::CatalogueDataSources(std::filesystem::path file)
    : cache_(new Cache{{std::move(file), Catalogue::parse}}) {}

CatalogueDataSources::~CatalogueDataSources() = default;

std::unique_ptr<DataSource> CatalogueDataSources::createDataSource() {
    return std::make_unique<Source>(cache_);
}

std::shared_ptr<const Catalogue> CatalogueDataSources::current() {
    return cache_->file.current();
}

}  // namespace headerdtc
