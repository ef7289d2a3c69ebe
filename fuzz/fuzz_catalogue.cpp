// Any bytes are a catalogue or an error.

#include "fuzz/fuzz_tools.h"
#include "host/files/file_error.h"
#include "host/site/catalogue.h"

using namespace headerdtc;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        const Catalogue catalogue = Catalogue::parse("catalogue.json", fuzz::textOf(data, size));
        for (const auto& provider : catalogue.providers)
            fuzz::require(catalogue.find(provider.name) != nullptr, "a provider is found");
    } catch (const FileError&) {
    }
    return 0;
}
