#include "platform/nearest_name.h"

#include "platform/text.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace headerdtc {
namespace {

// How many letters have to be added, removed or replaced to make one text of the other.
std::size_t editDistance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    for (std::size_t j = 0; j <= b.size(); ++j)
        row[j] = j;
    for (std::size_t i = 1; i <= a.size(); ++i) {
        std::size_t diagonal = std::exchange(row[0], i);
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t replaced = diagonal + (a[i - 1] == b[j - 1] ? 0 : 1);
            diagonal = std::exchange(row[j], std::min({replaced, row[j] + 1, row[j - 1] + 1}));
        }
    }
    return row.back();
}

}  // namespace

// A third of the letters may be wrong.
NearestName::NearestName(std::string_view written)
    : written_(upperCase(written)), nearest_((written_.size() + 2) / 3 + 1) {}

void NearestName::offer(std::string_view name) {
    const std::size_t longer = std::max(written_.size(), name.size());
    // Every letter that one of them is longer by has to be added; and of a slip some are right.
    if (longer - std::min(written_.size(), name.size()) >= nearest_) return;
    const std::size_t distance = editDistance(written_, upperCase(name));
    if (distance >= nearest_ || distance == longer) return;
    nearest_ = distance;
    found_ = name;
}

std::string NearestName::question() const {
    return found_.empty() ? "" : "; did you mean '" + found_ + "'?";
}

}  // namespace headerdtc
