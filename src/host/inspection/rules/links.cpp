#include "host/inspection/rules/rules.h"

#include <algorithm>

namespace headerdtc::rules {

void linkedFieldsAreOffered(const ControlView& control, Remarks& remarks) {
    const StoredConfiguration& configuration = control.configuration();
    const auto* provider = control.provider();
    const auto* linked = control.linkedProvider();
    for (const Family family : BothFamilies) {
        const auto& own = configuration.of(family);
        if (linked)
            requireAllOffered(own.linkedFields, StoredRole::LinkedField, family, linked->of(family),
                              configuration.linkedDataProvider.text, remarks);
        for (const auto& link : own.links) {
            if (provider)
                requireOffered(link.from, StoredRole::LinkFrom, family, provider->of(family),
                               configuration.dataProvider.text, remarks);
            if (linked)
                requireOffered(link.to, StoredRole::LinkTo, family, linked->of(family),
                               configuration.linkedDataProvider.text, remarks);
        }
    }
}

void linksAreWhole(const ControlView& control, Remarks& remarks) {
    const StoredConfiguration& configuration = control.configuration();
    for (const Family family : BothFamilies) {
        const auto& own = configuration.of(family);
        bool linksAnything = false;
        for (const auto& link : own.links) {
            const bool from = !link.from.text.empty(), to = !link.to.text.empty();
            linksAnything = linksAnything || from;
            if (from == to) continue;
            remarks.push_back(about(from ? link.to : link.from, family,
                                    "link " + std::to_string(link.row) + " has only its " +
                                        (from ? "from-field " + inQuotes(link.from.text)
                                              : "to-field " + inQuotes(link.to.text)) +
                                        (from ? "" : " and is left out"),
                                    "choose the other field, or remove the link"));
        }
        if (linksAnything && !configuration.hasLinkedProvider()) {
            remarks.push_back(about(configuration.linkedDataProvider, family,
                                    "fields are linked, but no linked data provider is chosen",
                                    "choose one on the link tab, or remove the links"));
        }
        if (!linksAnything && !own.linkedFields.empty()) {
            remarks.push_back(about(own.linkedFields.front(), family,
                                    "linked fields are chosen, but no fields are linked, so they "
                                    "are never read",
                                    "link a field of this provider to one of the other, or remove "
                                    "the linked fields"));
        }
    }
}

}  // namespace headerdtc::rules
