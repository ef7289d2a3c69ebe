#pragma once

#include "core/family.h"
#include "platform/property_bag.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace headerdtc {

// Stored properties by name, as a page has them: text, in order.
using StoredTexts = std::vector<std::pair<std::string, std::string>>;

// Something of an author that would not survive being read and written again.
struct StoredLoss {
    enum class What {
        Value,       // the provider, the stylesheet, the filter switch
        Item,        // of a list, or the text of a cell or link
        MarkedItem,  // a field chosen for translation
        Row,         // of a grid or list: there would be fewer
        Script,      // the text of a script
        Kind,        // whether a criterion's value is a function or a script
    };
    What what;
    std::string name;  // of the stored property
    // Of a kind the criterion's value, of a script its name, else what the page stores.
    std::string text;
    std::string stored;  // as the page has it
    // What would be stored instead; nothing when the property would be gone.
    std::optional<std::string> rewritten;
    std::optional<Family> family;
};

// What of `stored` comes back different or not at all when a control that has read it writes
// `written`. Both are as a page has them, defaults left out. Values compare by the property's type
// and meaning. No loss is: another spelling, order or number of a name, a default written out, the
// kind of a value that no criterion uses, a property that the control does not know.
std::vector<StoredLoss> findLosses(const StoredTexts& stored, const StoredTexts& written);

// The losses that still have to be put back. One of which `now` has another value than the control
// made of it was dealt with by the author.
std::vector<StoredLoss> remainingLosses(const std::vector<StoredLoss>& losses,
                                        const StoredTexts& now);

// `now`, which a control wrote after changes, with what that control never could take put back as
// it was stored.
StoredTexts withLosses(StoredTexts now, const std::vector<StoredLoss>& losses);

}  // namespace headerdtc
