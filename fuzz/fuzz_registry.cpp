// Any bytes are a registry export or an error.

#include "fuzz/fuzz_tools.h"
#include "host/files/file_error.h"
#include "host/site/registry_export.h"

using namespace headerdtc;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        const auto registry = RegistryExport::parse("velmora.reg", fuzz::textOf(data, size),
                                                    CodePage("windows-1253"));
        registry.find("HKLM\\SOFTWARE\\Zarvik\\Zarvik Velmora\\InstallDir");
    } catch (const FileError&) {
    }
    return 0;
}
