#pragma once

#include "host/generation/page_change.h"
#include "host/inspection/stored_configuration.h"
#include "host/site/site.h"

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace headerdtc {

// What is looked for in the pages of a site. Texts compare without regard to case.
struct WhereQuery {
    enum class Kind {
        Provider,    // as data provider or linked one
        Field,       // by its name or its whole entry, wherever a field can stand
        Include,     // by its path, or by its name alone
        Stylesheet,  // the same
        Label,       // fields whose name or values it translates, where a page has them translated
    };
    Kind kind;
    std::string value;
    std::string ofProvider;  // of a field: only that provider's; empty: any
};

// One place of a page that uses it.
struct Use {
    int line = 0;
    std::string control;  // ID
    StoredRole role = StoredRole::DataProvider;
    std::optional<Family> family;
    StoredItem item;
};

// The result of looking into one page.
struct PageUses {
    bool hasControl = false;
    std::vector<Use> uses;
    std::optional<PageFailure> failure;  // nothing when it was looked into
};

// Looks for one thing in any number of pages. Labels are looked up in each site's translation
// database once. Thread-safe.
class WhereUsed {
  public:
    WhereUsed(Sites& sites, WhereQuery query) : sites_(sites), query_(std::move(query)) {}

    // Never throws for the page's sake.
    PageUses lookInto(const std::filesystem::path& page);

  private:
    // The fields that a label translates, "provider\0family\0field".
    struct LabelledFields {
        std::vector<std::string> names, values;
        std::string failure;
    };

    void lookInto(const std::filesystem::path& page, PageUses& result);
    const LabelledFields& labelledFields(const std::shared_ptr<Site>& site);

    Sites& sites_;
    WhereQuery query_;
    std::mutex mutex_;
    std::map<std::shared_ptr<Site>, LabelledFields> labelled_;
};

}  // namespace headerdtc
