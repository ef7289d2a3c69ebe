#pragma once

#include "platform/runtime_error.h"

#include <list>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace headerdtc {

// A keyed dictionary: string keys, compared exactly, enumerated in the order in which they were
// added. As in the established dictionary object, *reading* a missing key adds it with an empty
// item; that is why item() is not const. isOnlyLookedUp() tells such an entry, as long as it is
// empty, from one that was added on purpose.
template <class Item>
class Dictionary {
  public:
    using Entry = std::pair<const std::string, Item>;
    using value_type = Entry;
    using const_iterator = typename std::list<Entry>::const_iterator;

    Dictionary() = default;
    Dictionary(const Dictionary& other) {
        for (const auto& [key, item] : other)
            Add(key, item);
        for (const std::string_view key : other.lookedUp_)
            lookedUp_.insert(index_.find(key)->first);
    }
    Dictionary(Dictionary&&) noexcept = default;
    Dictionary& operator=(Dictionary other) {
        entries_.swap(other.entries_);
        index_.swap(other.index_);
        lookedUp_.swap(other.lookedUp_);
        return *this;
    }

    // Adds an entry at the end. Raises 457 when the key is present.
    void Add(std::string_view key, Item item) {
        if (Exists(key)) throw RuntimeError(ErrorNumber::KeyAlreadyExists);
        append(key, std::move(item));
    }

    // The item of a key. A missing key is added at the end with an empty item.
    Item& item(std::string_view key) {
        const auto found = index_.find(key);
        if (found != index_.end()) return found->second->second;
        Item& added = append(key, Item{});
        lookedUp_.insert(entries_.back().first);
        return added;
    }

    // Sets the item of a key, at its place when present, else at the end.
    void assign(std::string_view key, Item value) {
        item(key) = std::move(value);
        lookedUp_.erase(key);
    }

    bool Exists(std::string_view key) const { return index_.contains(key); }
    // Whether an entry is there only because it was looked up, and is still empty.
    bool isOnlyLookedUp(const Entry& entry) const {
        return entry.second == Item{} && lookedUp_.contains(entry.first);
    }

    // Removes a key and tells whether it was there; the other entries keep their order.
    bool Remove(std::string_view key) {
        const auto found = index_.find(key);
        if (found == index_.end()) return false;
        const auto entry = found->second;
        lookedUp_.erase(key);
        index_.erase(found);
        entries_.erase(entry);
        return true;
    }

    void RemoveAll() {
        lookedUp_.clear();
        index_.clear();
        entries_.clear();
    }

    int Count() const { return static_cast<int>(entries_.size()); }

    const_iterator begin() const { return entries_.begin(); }
    const_iterator end() const { return entries_.end(); }

  private:
    Item& append(std::string_view key, Item item) {
        entries_.emplace_back(std::string(key), std::move(item));
        const auto entry = std::prev(entries_.end());
        index_.emplace(entry->first, entry);
        return entry->second;
    }

    std::list<Entry> entries_;
    // The keys are views of the list's own strings, which never move.
    std::unordered_map<std::string_view, typename std::list<Entry>::iterator> index_;
    std::unordered_set<std::string_view> lookedUp_;
};

}  // namespace headerdtc
