#pragma once

#include "host/page/page_markup.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace headerdtc {

// Finds stored properties by their names. Pages hold tens of thousands of them, and each is looked
// for: the places are hashed, the names stay where they are. The properties must outlive the index
// and keep their places.
class PropertyIndex {
  public:
    explicit PropertyIndex(const StoredProperties& properties);

    // The first property of that name, 0-based.
    std::optional<std::size_t> find(std::string_view name) const;
    // The first property whose name an earlier one has already.
    std::optional<std::size_t> repeated() const { return repeated_; }

  private:
    static constexpr std::uint32_t Free = UINT32_MAX;
    // The slot of a name: where its place stands, or could stand.
    std::size_t slotOf(std::string_view name) const;

    const StoredProperties& properties_;
    std::vector<std::uint32_t> slots_;
    std::optional<std::size_t> repeated_;
};

}  // namespace headerdtc
