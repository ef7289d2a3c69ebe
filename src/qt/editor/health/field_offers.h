#pragma once

#include "host/inspection/field_health.h"
#include "host/site/site.h"

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace headerdtc::qt {

// What the catalogue of a site offers, for asking often.
class FieldOffers {
  public:
    // Looks at the catalogue again, which costs little while it is the same. A catalogue that
    // cannot be read offers nothing and has a problem.
    void refresh(const std::shared_ptr<Site>& site);

    // Why the catalogue cannot be read; empty when it can.
    const std::string& problem() const { return problem_; }
    bool knows(const std::string& provider) const;
    // nullptr for a provider that is not known.
    const ProviderFields* of(const std::string& provider, Family family);

    // What can stand in the place of a field, as the lists show it: fields of its name first, then
    // those whose names are like it, then the others in the order of the catalogue. Fields that
    // the configuration has chosen already are left out.
    std::vector<std::string> replacements(const VanishedField& vanished,
                                          const StoredConfiguration& configuration) const;

  private:
    std::shared_ptr<Site> site_;
    std::shared_ptr<const Catalogue> catalogue_;
    std::string problem_;
    std::map<std::pair<std::string, Family>, ProviderFields> fields_;
};

}  // namespace headerdtc::qt
