#pragma once

#include "host/page/page_markup.h"
#include "platform/property_bag.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
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

// The properties of a control as a page stores them: text under names. Reading gives strings.
class StoredPropertyBag : public PropertyBag {
  public:
    // The properties must outlive the bag; no name occurs twice.
    explicit StoredPropertyBag(const StoredProperties& properties);
    PropertyValue ReadProperty(std::string_view name, const PropertyValue& fallback) override;
    // Nothing is written into a page that is being read.
    void WriteProperty(std::string_view, const PropertyValue&, const PropertyValue&) override {}

  private:
    const StoredProperties& properties_;
    const PropertyIndex index_;
    std::size_t next_ = 0;  // behind the last one that was read
};

// Collects what a control writes, defaults left out, typed and in order.
class CollectingPropertyBag : public PropertyBag {
  public:
    // `expected`: about how many properties there will be.
    explicit CollectingPropertyBag(std::size_t expected = 0) { written_.reserve(expected); }
    PropertyValue ReadProperty(std::string_view, const PropertyValue& fallback) override {
        return fallback;
    }
    void WriteProperty(std::string_view name, const PropertyValue& value,
                       const PropertyValue& fallback) override;

    using Written = std::vector<std::pair<std::string, PropertyValue>>;
    const Written& written() const { return written_; }
    // As a page keeps them: Booleans -1 and 0, integers decimal.
    StoredProperties asStored() const&;
    StoredProperties asStored() &&;

  private:
    Written written_;
};

}  // namespace headerdtc
