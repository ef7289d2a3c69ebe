#pragma once

#include "host/generation/page_generation.h"
#include "host/inspection/finding.h"
#include "host/inspection/site_facts.h"
#include "host/inspection/stored_configuration.h"
#include "host/page/page_markup.h"

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace headerdtc {

// A page as rules see it.
class PageView {
  public:
    // `generated` is the result of generating the page. Markup and generated page outlive the view.
    PageView(const PageMarkup& markup, const std::filesystem::path& file,
             std::shared_ptr<SiteFacts> facts, const GeneratedPage& generated);

    const PageMarkup& markup() const { return markup_; }
    SiteFacts& facts() const { return *facts_; }
    const GeneratedPage& generated() const { return generated_; }
    const std::vector<StoredConfiguration>& configurations() const { return configurations_; }

    // Whether the page's server script knows a function of that name: it is defined in the page, in
    // a script of one of its controls, in a file that page, controls or template include, or
    // built in.
    bool definesFunction(std::string_view name) const;

  private:
    SiteFacts::Functions gatherFunctions() const;

    const PageMarkup& markup_;
    const std::filesystem::path& file_;
    std::shared_ptr<SiteFacts> facts_;
    const GeneratedPage& generated_;
    std::vector<StoredConfiguration> configurations_;        // by control
    mutable std::optional<SiteFacts::Functions> functions_;  // once asked for
};

// One control of a page as rules see it.
struct ControlView {
    const PageView& page;
    std::size_t index;  // of the control in its page

    const ControlSpan& span() const { return page.markup().controls()[index]; }
    const StoredConfiguration& configuration() const { return page.configurations()[index]; }
    SiteFacts& facts() const { return page.facts(); }
    // What the chosen provider offers; nullptr when it is not in the catalogue.
    const SiteFacts::Provider* provider() const;
    const SiteFacts::Provider* linkedProvider() const;
};

using Remarks = std::vector<Remark>;

}  // namespace headerdtc
