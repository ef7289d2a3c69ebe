#include "platform/nearest_name.h"

#include "platform/text.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace headerdtc {
namespace {

// How many letters have to be added, removed, replaced or swapped with the next one to make one
// text of the other.
std::size_t editDistance(std::string_view a, std::string_view b) {
    std::vector<std::size_t> last(b.size() + 1), row(b.size() + 1), next(b.size() + 1);
    std::iota(row.begin(), row.end(), 0);
    for (std::size_t i = 1; i <= a.size(); ++i) {
        next[0] = i;
        for (std::size_t j = 1; j <= b.size(); ++j) {
            const std::size_t replaced = row[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
            next[j] = std::min({replaced, row[j] + 1, next[j - 1] + 1});
            if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
                next[j] = std::min(next[j], last[j - 2] + 1);
        }
        last.swap(row);
        row.swap(next);
    }
    return row.back();
}

}  // namespace

// One letter in three may be wrong, and one in the shortest names.
NearestName::NearestName(std::string_view written)
    : written_(upperCase(written)), nearest_(std::max<std::size_t>(written_.size() / 3, 1) + 1) {}

void NearestName::offer(std::string_view name) {
    const std::size_t longer = std::max(written_.size(), name.size());
    // The difference in length is the least that has to be added or removed. A name that shares no
    // letter with the written one is no slip of the pen, however short both are.
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
