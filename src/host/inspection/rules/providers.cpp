#include "host/inspection/rules/rules.h"

namespace headerdtc::rules {
namespace {

void requireKnown(const ControlView& control, const StoredItem& provider, std::string_view role,
                  Remarks& remarks) {
    if (control.facts().provider(provider.text)) return;
    const std::string similar = control.facts().similarProvider(provider.text);
    remarks.push_back(about(
        provider, std::nullopt,
        "the " + std::string(role) + " " + inQuotes(provider.text) + " is not in the catalogue",
        (similar.empty() ? "" : "is " + inQuotes(similar) + " meant? ") +
            std::string("choose one that is offered, or add it to the catalogue")));
}

}  // namespace

void providerIsKnown(const ControlView& control, Remarks& remarks) {
    const StoredItem& provider = control.configuration().dataProvider;
    if (!provider.text.empty()) return requireKnown(control, provider, "data provider", remarks);
    remarks.push_back(about(provider, std::nullopt, "no data provider is chosen",
                            "choose one on the General tab"));
}

void linkedProviderIsKnown(const ControlView& control, Remarks& remarks) {
    if (!control.configuration().hasLinkedProvider()) return;
    requireKnown(control, control.configuration().linkedDataProvider, "linked data provider",
                 remarks);
}

}  // namespace headerdtc::rules
