// A stored script whose body was read and stored again stays the same from then on.

#include "fuzz/fuzz_tools.h"
#include "scripts/specify_criterium_dialog.h"

using namespace headerdtc;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string stored(fuzz::textOf(data, size));
    const std::string body = scriptBody(stored);
    const std::string again = scriptFunction("Name", body);
    if (body.find("<BODY>") != std::string::npos) return 0;
    fuzz::require(scriptFunction("Name", scriptBody(again)) == again,
                  "a script stays as it is stored");
    return 0;
}
