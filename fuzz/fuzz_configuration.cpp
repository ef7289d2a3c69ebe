// Any bytes are a site's configuration or an error, and no Windows path leads out of its drive.

#include "fuzz/fuzz_tools.h"
#include "host/site/site_configuration.h"
#include "platform/runtime_error.h"
#include "support/temp_folder.h"

#include <fstream>

using namespace headerdtc;

namespace {

const std::filesystem::path& folder() {
    static const testing::TempFolder made;
    return made.path();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto file = folder() / "headerdtc.toml";
    std::ofstream(file, std::ios::binary) << fuzz::textOf(data, size);
    try {
        readSiteConfiguration(file);
    } catch (const ConfigurationError&) {
    }
    const WindowsPaths paths({{'C', folder()}});
    try {
        const std::string local =
            paths.toLocal("C:\\" + std::string(fuzz::textOf(data, size))).string();
        fuzz::require(local.starts_with(folder().string()), "a path stays in its drive");
    } catch (const RuntimeError&) {
    }
    return 0;
}
