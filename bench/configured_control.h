#pragma once

#include "core/header_dtc.h"
#include "host/page/page_markup.h"
#include "support/fake_surroundings.h"

#include <string>

namespace headerdtc::bench {

// A control over stand-ins, filled with the given number of fields in each of its lists.
struct ConfiguredControl {
    explicit ConfiguredControl(int fields);

    testing::FakeSurroundings outside;
    HeaderDTC dtc{outside.all(), outside.modalLoop};
};

// Its stored properties, as a page keeps them.
StoredProperties storedPropertiesOf(int fields);

// A template of about that many bytes, in which every placeholder stands several times.
std::string templateOf(std::size_t bytes);

}  // namespace headerdtc::bench
