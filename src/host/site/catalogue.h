#pragma once

#include "platform/surroundings.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace headerdtc {

// The data-source catalogue of a site: providers with their fields, every order kept.
struct Catalogue {
    struct NumberedField {
        long long number = 0;
        std::string name;
    };
    struct Group {
        std::string name;
        std::vector<std::string> fields;
    };
    struct Zeko {
        std::vector<NumberedField> fields;
        std::vector<std::string> keyFields;
    };
    struct Eai {
        std::vector<Group> groups;
        std::vector<std::string> keyFields;
    };
    struct Provider {
        std::string name;
        std::optional<Zeko> zeko;
        std::optional<Eai> eai;
    };
    std::vector<Provider> providers;

    // Throws FileError with line and column.
    static Catalogue parse(const std::string& file, std::string_view bytes);
    const Provider* find(std::string_view name) const;
};

// Data sources over a site's catalogue file, which is read again when it changed. A catalogue that
// is missing or malformed fails each request, not the creation: RuntimeError 53 for a missing
// file, 57 for a malformed one, the description naming file, line and column. Thread-safe.
class CatalogueDataSources : public DataSourceFactory {
  public:
    explicit CatalogueDataSources(std::filesystem::path file);
    ~CatalogueDataSources() override;
    std::unique_ptr<DataSource> createDataSource() override;
    // The catalogue as it now stands. Throws FileError.
    std::shared_ptr<const Catalogue> current();

  private:
    struct Cache;
    class Source;
    std::shared_ptr<Cache> cache_;
};

}  // namespace headerdtc
