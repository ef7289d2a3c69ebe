#include "editor/translation_removal.h"

#include "platform/runtime_error.h"

#include <algorithm>
#include <bit>
#include <functional>
#include <utility>

namespace headerdtc {
namespace {

constexpr int EndOfBucket = -1;

std::size_t at(int index) {
    return static_cast<std::size_t>(index);
}

int lowestBit(int number) {
    return number & -number;
}

}  // namespace

ScannedList::ScannedList(ListBox& list)
    : list_(list),
      left_(list.ListCount()),
      firstOfBucket_(std::bit_ceil(at(left_) + 1), EndOfBucket),
      nextInBucket_(at(left_)),
      removed_(at(left_)),
      tree_(at(left_) + 1) {
    for (int place = left_ - 1; place >= 0; --place)
        nextInBucket_[at(place)] = std::exchange(bucketOf(list.List(place)), place);
    for (int node = 1; node <= left_; ++node)
        tree_[at(node)] = lowestBit(node);
}

ScannedList::~ScannedList() {
    for (auto place = static_cast<int>(removed_.size()) - 1; place >= 0; --place) {
        if (removed_[at(place)]) list_.RemoveItem(place);
    }
}

void ScannedList::seek(std::string_view text) {
    text_ = text;
    found_ = &bucketOf(text);
}

int ScannedList::next(int from) {
    for (; *found_ != EndOfBucket; found_ = &nextInBucket_[at(*found_)]) {
        if (list_.List(*found_) != text_) continue;
        if (const int position = positionOf(*found_); position >= from) return position;
    }
    return text_.empty() ? std::max(from, count()) : None;
}

void ScannedList::remove() {
    const int place = *found_;
    if (place == EndOfBucket) throw RuntimeError(ErrorNumber::InvalidPropertyArrayIndex);
    *found_ = nextInBucket_[at(place)];
    removed_[at(place)] = true;
    --left_;
    for (int node = place + 1; node < static_cast<int>(tree_.size()); node += lowestBit(node))
        --tree_[at(node)];
}

int& ScannedList::bucketOf(std::string_view text) {
    return firstOfBucket_[std::hash<std::string_view>()(text) & (firstOfBucket_.size() - 1)];
}

int ScannedList::positionOf(int place) const {
    int position = 0;
    for (int node = place; node > 0; node -= lowestBit(node))
        position += tree_[at(node)];
    return position;
}

TranslationRemoval::TranslationRemoval(FamilyControls& family, ChangedProperties& changed)
    : names_(family.I18NFieldnamesList),
      linked_(family.LinkedFieldsList),
      values_(family.I18NFieldValuesList),
      changed_(changed),
      linkedName_(familyName(family.family, "AvailableFieldsLinked")) {}

void TranslationRemoval::remove(const std::string& field) {
    const int nameCount = names_.count();
    names_.seek(field);
    linked_.seek(field);
    for (int from = 0;;) {
        const int inNames = names_.next(from);
        const int inLinked = linked_.next(from);
        const int j = std::min(inNames, inLinked);
        if (j >= nameCount) break;
        if (inNames == j) names_.remove();
        if (inLinked == j) {
            linked_.remove();
            changed_.add(linkedName_);
        }
        from = j + 1;
    }
    const int valueCount = values_.count();
    values_.seek(field);
    for (int j = values_.next(0); j < valueCount; j = values_.next(j + 1))
        values_.remove();
}

}  // namespace headerdtc
