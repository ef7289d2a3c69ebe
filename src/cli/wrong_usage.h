#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace headerdtc::cli {

// The first of the words of a command line that is no command or no option where it stands, said in
// a sentence, with the one that may have been meant; empty when all are known.
std::string unknownWord(const CLI::App& app, const std::vector<std::string>& words);

}  // namespace headerdtc::cli
