#pragma once

#include "host/inspection/stored_configuration.h"

#include <string>
#include <vector>

namespace headerdtc {

// What a configuration says of one thing, for people who know the suite and not what a page stores:
// "ZEKO fields", "ORDNO, STATUS".
struct Statement {
    std::string subject, text;
};

// A whole configuration in words, in the order of the editor's tabs. What is not configured is not
// mentioned, but for a data provider that is not chosen.
std::vector<Statement> inWords(const StoredConfiguration& configuration);

}  // namespace headerdtc
