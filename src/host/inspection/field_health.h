#pragma once

#include "host/inspection/provider_fields.h"
#include "host/inspection/stored_configuration.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace headerdtc {

// A stored field that the catalogue does not offer, or no longer. It stays in the configuration
// until somebody removes or replaces it.
struct VanishedField {
    StoredRole role = StoredRole::ReturnField;
    Family family = Family::ZEKO;
    StoredItem item;
    std::string provider;            // that does not offer it
    std::optional<std::string> now;  // the entry under which it offers a field of that name
    std::string like;                // else the entry of the likest name; empty: none
    std::string text;                // what is wrong, a sentence without its full stop
    std::string advice;              // what to do
};

// Looks whether a provider offers a field: return fields, linked fields and the from-side of links
// by their entry, keys by their name, the to-side of links by either. Nothing when it does, or when
// nothing is stored.
std::optional<VanishedField> vanishedField(StoredRole role, Family family, const StoredItem& item,
                                           const ProviderFields& offered,
                                           const std::string& provider);

// What a provider offers to a family; nullptr for a provider that is not known, whose fields cannot
// be judged.
using OfferLookup = std::function<const ProviderFields*(const std::string& provider, Family)>;

// All return fields, keys of criteria, links and linked fields of a configuration that have
// vanished, in the order of the tabs.
std::vector<VanishedField> vanishedFields(const StoredConfiguration& configuration,
                                          const OfferLookup& offers);

class HeaderDTC;

// Puts another field into the place of a vanished one, as a program that has the control to itself:
// the field keeps its place, a return field also its translations and links, and a field that is
// chosen now is no longer among the available ones. Raises 381 when the control has another
// configuration than the one in which the field was found.
void replaceField(HeaderDTC& dtc, const VanishedField& vanished, const std::string& with);

}  // namespace headerdtc
