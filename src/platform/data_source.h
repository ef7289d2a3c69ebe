#pragma once

#include "platform/dictionary.h"

#include <memory>
#include <string>
#include <vector>

namespace headerdtc {

// One object of the suite's data-source component: the metadata of data providers. Every request
// raises RuntimeError when the source cannot be read; a provider that it does not know gives an
// empty result.
class DataSource {
  public:
    virtual ~DataSource() = default;
    // The names of the data providers, in the source's order.
    virtual std::vector<std::string> providerNames() = 0;
    // ZEKO fields of a provider: sequence number as text -> field name.
    virtual Dictionary<std::string> zekoFields(const std::string& provider) = 0;
    // ZEKO key fields of a provider; the items are the field names.
    virtual Dictionary<std::string> zekoKeyFields(const std::string& provider) = 0;
    // EAI record groups of a provider; the items are the group names.
    virtual Dictionary<std::string> eaiGroups(const std::string& provider) = 0;
    // Fields of one record group; the items are the field names.
    virtual Dictionary<std::string> eaiGroupFields(const std::string& provider,
                                                   const std::string& group) = 0;
    // EAI key fields of a provider; the items are the field names.
    virtual Dictionary<std::string> eaiKeyFields(const std::string& provider) = 0;
};

// Creates data-source objects. Raises RuntimeError (429) when the component is not there.
class DataSourceFactory {
  public:
    virtual ~DataSourceFactory() = default;
    virtual std::unique_ptr<DataSource> createDataSource() = 0;
};

}  // namespace headerdtc
