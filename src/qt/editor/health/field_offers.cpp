#include "qt/editor/health/field_offers.h"

#include "core/field_entries.h"
#include "host/files/file_error.h"
#include "platform/runtime_error.h"
#include "platform/text.h"

#include <algorithm>
#include <set>

namespace headerdtc::qt {
namespace {

std::string nameIn(const std::string& entry, Family family) {
    const auto name = fieldNameIn(entry, family);
    return upperCase(name ? *name : trimBlanks(entry));
}

// How far a name is from another; 0 is the same.
int distance(const std::string& name, const std::string& other) {
    constexpr std::size_t Likeness = 3;  // letters
    if (name == other) return 0;
    if (name.empty() || other.empty()) return 3;
    if (name.find(other) != std::string::npos || other.find(name) != std::string::npos) return 1;
    return name.compare(0, Likeness, other, 0, Likeness) == 0 ? 2 : 3;
}

}  // namespace

void FieldOffers::refresh(const std::shared_ptr<Site>& site) {
    site_ = site;
    std::shared_ptr<const Catalogue> now;
    problem_.clear();
    try {
        now = site->dataSources.current();
    } catch (const FileError& error) {
        problem_ = error.what();
    }
    if (now == catalogue_) return;
    fields_.clear();
    catalogue_ = std::move(now);
}

bool FieldOffers::knows(const std::string& provider) const {
    return catalogue_ && catalogue_->find(provider);
}

const ProviderFields* FieldOffers::of(const std::string& provider, Family family) {
    const Catalogue::Provider* found = catalogue_ ? catalogue_->find(provider) : nullptr;
    if (!found) return nullptr;
    return &fields_.try_emplace({provider, family}, *found, family).first->second;
}

std::vector<std::string> FieldOffers::replacements(const VanishedField& vanished,
                                                   const StoredConfiguration& configuration) const {
    const auto source = site_->dataSources.createDataSource();
    const bool isKey =
        vanished.role == StoredRole::CriterionKey || vanished.role == StoredRole::LinkTo;
    std::vector<std::string> entries;
    try {
        entries = isKey ? keyFieldNames(vanished.family, *source, vanished.provider)
                        : fieldEntries(vanished.family, *source, vanished.provider);
    } catch (const RuntimeError&) {
        return {};  // The catalogue is another since; its problem is said elsewhere.
    }
    std::set<std::string> chosen;
    const auto& own = configuration.of(vanished.family);
    if (vanished.role == StoredRole::ReturnField) {
        for (const StoredItem& item : own.returnFields)
            chosen.insert(item.text);
    } else if (vanished.role == StoredRole::LinkedField) {
        for (const StoredItem& item : own.linkedFields)
            chosen.insert(item.text);
    }
    std::erase_if(entries, [&](const std::string& entry) { return chosen.contains(entry); });
    const std::string name = nameIn(vanished.item.text, vanished.family);
    std::stable_sort(entries.begin(), entries.end(),
                     [&](const std::string& left, const std::string& right) {
                         return distance(nameIn(left, vanished.family), name) <
                                distance(nameIn(right, vanished.family), name);
                     });
    return entries;
}

}  // namespace headerdtc::qt
